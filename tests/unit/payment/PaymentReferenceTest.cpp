#include "payment/PaymentReference.h"

#include <gtest/gtest.h>

#include "HostileTexts.h"
#include "base/RuntimeError.h"

namespace payment {
namespace {

TEST(MaakBetalingskenmerkTest, HasFifteenDigits) {
    EXPECT_EQ(MaakBetalingskenmerk("00000012", "1", "03", "2026"), "100000012010326");
    EXPECT_EQ(MaakBetalingskenmerk("00030000", "1", "12", "1999"), "100030000011299");
}

TEST(MaakBetalingskenmerkTest, ChangesTheKindForADocumentNumberOfZero) {
    EXPECT_EQ(MaakBetalingskenmerk("00000000", "1", "03", "2026"), "100000000000326");
    EXPECT_EQ(MaakBetalingskenmerk("-5", "1", "03", "2026"), "1000000-5000326");
}

TEST(MaakBetalingskenmerkTest, PutsZerosForWhatIsMissing) {
    EXPECT_EQ(MaakBetalingskenmerk("12", "", "", ""), "100000012000000");
    EXPECT_EQ(MaakBetalingskenmerk("12", "-1", "-1", "-1"), "100000012000000");
    EXPECT_EQ(MaakBetalingskenmerk("12", "1", "3", "5"), "10000001201035"); // the year is not filled up
}

TEST(MaakBetalingskenmerkTest, CutsLongNumbers) {
    EXPECT_EQ(MaakBetalingskenmerk("123456789", "123", "123", "12026"), "112345678121226");
}

TEST(MaakBetalingskenmerkTest, RefusesANumberBeyondThirtyTwoBits) {
    EXPECT_THROW(MaakBetalingskenmerk("99999999999", "1", "03", "2026"), base::RuntimeError);
    EXPECT_THROW(MaakBetalingskenmerk("1", "99999999999", "03", "2026"), base::RuntimeError);
    EXPECT_THROW(MaakBetalingskenmerk("1", "1", "99999999999", "2026"), base::RuntimeError);
}

TEST(MaakBetalingskenmerkTest, StandsHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        try {
            MaakBetalingskenmerk(text, text, text, text);
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.Number(), base::ErrorOverflow);
        }
        EXPECT_EQ(MaakBetalingskenmerk("12", "1", "03", "1" + text).substr(0, 13), "1000000120103");
    }
}

} // namespace
} // namespace payment
