#include "payment/OcrLine.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostileTexts.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "payment/Iban.h"

namespace payment {
namespace {

OcrValues UsualValues() {
    return {.kenmerk = "100000012010326",
            .euro = "123",
            .cent = "45",
            .rekening = "NL13ABNA0500000018",
            .bic = "ABNANL2A",
            .ContractVorm = 31};
}

OcrLine Made(const OcrValues& values) {
    OcrLine line;
    MakeOcrLine(values, line);
    return line;
}

std::string AmountOf(std::string_view euro, std::string_view cent) {
    OcrValues values = UsualValues();
    values.euro = euro;
    values.cent = cent;
    return Made(values).Amount;
}

TEST(OcrLineTest, HoldsTheFieldsInTheirOrder) {
    const OcrLine line = Made(UsualValues());
    std::vector<std::string> texts;
    std::vector<double> places;
    for (const OcrField& field : OcrFields) {
        texts.push_back(line.*field.Text);
        places.push_back(field.XCm);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"X", "7100000012010326+", "000123457<", "ABNANL2A+",
                                               "NL13ABNA0500000018+", "17>"}));
    EXPECT_EQ(places, (std::vector<double>{3.2, 4.45, 9.02, 11.82, 14.37, 19.48}));
}

TEST(OcrLineTest, GroupsTheReferenceForTheReader) {
    EXPECT_EQ(Made(UsualValues()).GroupedReference, "7100 0000 1201 0326");
}

TEST(OcrLineTest, FillsAShortReferenceAndCutsALongOne) {
    OcrValues values = UsualValues();
    values.kenmerk = "5";
    EXPECT_EQ(Made(values).Reference, "0000000000000015+");
    values.kenmerk = " 5 ";
    EXPECT_EQ(Made(values).Reference, "0000000000000015+");
    values.kenmerk = "99100000012010326";
    EXPECT_EQ(Made(values).Reference, "9100000012010326+");
}

TEST(OcrLineAmountTest, HasTwoDigitsOfCents) {
    EXPECT_EQ(AmountOf("123", "45"), "000123457<");
    EXPECT_EQ(AmountOf("0", "5"), AmountOf("", "50"));
    EXPECT_EQ(AmountOf("0", "5").substr(0, 8), "00000050");
    EXPECT_EQ(AmountOf("1", "07").substr(0, 8), "00000107");
    EXPECT_EQ(AmountOf("1", "").substr(0, 8), "00000100");
    EXPECT_EQ(AmountOf("1", "459").substr(0, 8), "00000145");
}

TEST(OcrLineAmountTest, LosesDigitsOfTooManyEuros) {
    EXPECT_EQ(AmountOf("1234567", "89").substr(0, 8), "12345689");
    EXPECT_THROW(AmountOf("99999999999", "00"), base::RuntimeError);
}

TEST(OcrLineAmountTest, IsAbsentForAnAmountOfZero) {
    OcrValues values = UsualValues();
    values.euro = "";
    values.cent = "";
    const OcrLine line = Made(values);
    EXPECT_EQ(line.Amount, "");
    EXPECT_EQ(line.Reference, "7100000012010326+");
    EXPECT_EQ(line.Bic, "ABNANL2A+");
    EXPECT_EQ(line.Account, "NL13ABNA0500000018+");
    EXPECT_EQ(line.Trailer, "17>");
    EXPECT_EQ(AmountOf("0", "00"), "");
    EXPECT_EQ(AmountOf("x", "0"), "");
}

TEST(OcrLineTest, LacksTheBicOfAnUnknownBankOnly) {
    OcrValues values = UsualValues();
    values.rekening = "NL71ZZZZ0500000018";
    values.bic = IBAN2BIC(values.rekening);
    const OcrLine line = Made(values);
    EXPECT_EQ(line.Bic, "");
    EXPECT_EQ(line.Account, "NL71ZZZZ0500000018+");
}

TEST(OcrLineTest, HasNoFieldForAnAccountThatIsMissing) {
    OcrValues values = UsualValues();
    values.rekening = "";
    EXPECT_EQ(Made(values).Account, "");
}

TEST(OcrLineTest, GivesNoAccountUnderTheContractWithoutOne) {
    OcrValues values = UsualValues();
    values.ContractVorm = 2;
    const OcrLine line = Made(values);
    EXPECT_EQ(line.Account, "");
    EXPECT_EQ(line.Bic, "ABNANL2A+");
    EXPECT_EQ(line.Trailer, "17>");
}

TEST(OcrLineTest, KeepsNothingOfTheFormBefore) {
    OcrLine line;
    MakeOcrLine(UsualValues(), line);
    MakeOcrLine({.kenmerk = "", .euro = "", .cent = "", .rekening = "", .bic = ""}, line);
    EXPECT_EQ(line.Reference, "0000000000000000+");
    EXPECT_EQ(line.GroupedReference, "0000 0000 0000 0000");
    EXPECT_EQ(line.Amount, "");
    EXPECT_EQ(line.Bic, "");
    EXPECT_EQ(line.Account, "");
    MakeOcrLine(UsualValues(), line);
    EXPECT_EQ(line.Reference, "7100000012010326+");
}

TEST(OcrLineTest, StandsHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        OcrValues values{.kenmerk = text, .euro = "1", .cent = text, .rekening = text, .bic = text};
        OcrLine line;
        MakeOcrLine(values, line);
        EXPECT_EQ(base::text::Length(line.Reference), 17U);
        EXPECT_EQ(base::text::Length(line.GroupedReference), 19U);
        EXPECT_LE(base::text::Length(line.Amount), 10U);
        EXPECT_EQ(line.Account, text.empty() ? "" : text + "+");

        values.euro = text;
        try {
            MakeOcrLine(values, line);
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.Number(), base::ErrorOverflow);
        }
    }
}

} // namespace
} // namespace payment
