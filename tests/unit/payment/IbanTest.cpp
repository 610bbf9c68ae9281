#include "payment/Iban.h"

#include <cstdint>
#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "HostileTexts.h"
#include "base/RuntimeError.h"

namespace payment {
namespace {

using namespace std::string_view_literals;

TEST(IBANCheckTest, TellsRightFromWrongCheckDigits) {
    EXPECT_TRUE(IBANCheck("NL13ABNA0500000018"));
    EXPECT_FALSE(IBANCheck("NL14ABNA0500000018"));
    EXPECT_TRUE(IBANCheck("nl13abna0500000018"));
}

TEST(IBANCheckTest, TakesTheBareFormOnly) {
    EXPECT_FALSE(IBANCheck("NL13 ABNA 0500 0000 18"));
    EXPECT_FALSE(IBANCheck(" NL13ABNA0500000018"));
    EXPECT_FALSE(IBANCheck("NL13ABNA0500000018 "));
}

TEST(IBANCheckTest, OverlooksMarksBetween) {
    EXPECT_TRUE(IBANCheck("NL13-ABNA-0500-0000-18"));
    EXPECT_TRUE(IBANCheck(R"(/N:L\1+3-A*BNA0500000018)"));
    EXPECT_TRUE(
        IBANCheck("NL13ABNA0500000018.")); // a full stop is no mark, and is dropped as no digit or letter
    EXPECT_TRUE(IBANCheck("NL13ABNAé0500000018"));
    EXPECT_TRUE(IBANCheck("NL13ABNA\0"
                          "0500000018"sv));
}

TEST(IBANCheckTest, CountsTheFourCharactersOfTheHeadWhateverTheyAre) {
    EXPECT_FALSE(IBANCheck("éNL13ABNA0500000018")); // "éNL1" moves, and "3" stays in front
    EXPECT_FALSE(IBANCheck(".NL13ABNA0500000018"));
}

TEST(IBANCheckTest, IsFalseForTextsThatAreTooShort) {
    EXPECT_FALSE(IBANCheck(""));
    EXPECT_FALSE(IBANCheck("NL13ABNA0"));
    EXPECT_FALSE(IBANCheck("----------"));
    EXPECT_FALSE(IBANCheck("-------NL1"));
    EXPECT_FALSE(IBANCheck("------NL13"));
}

TEST(IBANCheckTest, WantsTenCharactersNotTenBytes) {
    // With its head moved behind, each of these reads 98, which leaves the remainder 1.
    EXPECT_TRUE(IBANCheck("0098000000"));
    EXPECT_FALSE(IBANCheck("009800000"));
    EXPECT_FALSE(IBANCheck("0098€€€€€"));
    EXPECT_TRUE(IBANCheck("0098€€€€€€"));
}

TEST(ModulusTest, FollowsTheLongDivision) {
    const auto modulus = [](std::string digits, std::int16_t divisor) { return Modulus(digits, divisor); };
    EXPECT_EQ(modulus("12345", 97), 26);
    EXPECT_EQ(modulus("123456", 97), 72);
    EXPECT_EQ(modulus("0", 97), 0);
    EXPECT_EQ(modulus("000000097", 97), 0);
    EXPECT_EQ(modulus("98", 97), 1);
    EXPECT_EQ(modulus("18446744073709551616", 1000), 616);
    EXPECT_EQ(modulus("123456789", 1), 0);
    EXPECT_EQ(modulus("123456", -97), 72);
}

TEST(ModulusTest, ReadsTheEmptyTextAsZeroAndWritesIt) {
    std::string digits;
    EXPECT_EQ(Modulus(digits, 97), 0);
    EXPECT_EQ(digits, "0");
}

TEST(ModulusTest, LeavesItsTextAlone) {
    std::string digits = "123456789012";
    Modulus(digits, 97);
    EXPECT_EQ(digits, "123456789012");
}

TEST(ModulusTest, StandsAHundredThousandDigits) {
    // 96 digits of 9 are 10^96 - 1, which 97 divides; so are 1008 times as many.
    std::string nines(96 * 1042, '9');
    EXPECT_EQ(Modulus(nines, 97), 0);
    nines.push_back('5');
    EXPECT_EQ(Modulus(nines, 97), 5);
}

TEST(ModulusTest, AgreesWithReductionFourFiguresAtATime) {
    const auto stepwise = [](std::string digits, int divisor) {
        while (digits.size() >= 6) {
            digits = std::to_string(std::stoi(digits.substr(0, 4)) % divisor) + digits.substr(4);
        }
        return std::stoi(digits) % divisor;
    };
    std::string digits = "7";
    for (int i = 0; i < 60; ++i) {
        digits.push_back(static_cast<char>('0' + (i * i + 3) % 10));
        for (const std::int16_t divisor : std::initializer_list<std::int16_t>{1, 2, 11, 97, 100, 999, 1000}) {
            EXPECT_EQ(Modulus(digits, divisor), stepwise(digits, divisor)) << digits << " by " << divisor;
        }
    }
}

TEST(ModulusTest, RefusesADivisorOrATextThatIsNone) {
    std::string digits = "123456";
    for (const std::int16_t divisor : std::initializer_list<std::int16_t>{0, 1001, -1001, 32767, -32768}) {
        EXPECT_THROW(Modulus(digits, divisor), base::RuntimeError) << divisor;
    }
    for (std::string text : {"12a4", "-5", "1.5", " 1", "\xFF"}) {
        EXPECT_THROW(Modulus(text, 97), base::RuntimeError) << text;
    }
}

TEST(BankCode2BICTest, KnowsTheBanks) {
    EXPECT_EQ(BankCode2BIC("", "ABNA"), "ABNANL2A");
    EXPECT_EQ(BankCode2BIC("", "BOFA"), "BOFANLNX");
    EXPECT_EQ(BankCode2BIC("", "DEUT"), "DEUTNL2N");
    EXPECT_EQ(BankCode2BIC("", "VPVG"), "VPVGNL22");
    EXPECT_EQ(BankCode2BIC("NL13ABNA0500000018", "INGB"), "INGBNL2A");
}

TEST(BankCode2BICTest, KnowsEveryRowOfTheListByItsFirstFourLetters) {
    const std::string list =
        "ABNANL2A AEGONL2U ANDLNL2A ARBNNL22 ARSNNL21 ARTENL2A ASNBNL21 ASRBNL2R ATBANL2A BBRUNL2X BCDMNL22 "
        "BCITNL2A BICKNL2A BKMGNL2A BNGHNL2G BNPANL2A BOFANLNX BOTKNL2X CITCNL2A CITINL2X COBANL2X DEUTNL2N "
        "DHBNNL2R DLBKNL2A DNIBNL2G FBHLNL2A FLORNL2A FRBKNL2L FTSBNL2R FVLBNL22 GILLNL2A HANDNL2A HHBANL22 "
        "HSBCNL2A ICBKNL2A INGBNL2A INKBNL21 INSINL2A ISBKNL2A KABANL2A KASANL2A KNABNL2H KOEXNL2A KREDNL2X "
        "LOCYNL2A LOYDNL2A LPLNNL2A MHCBNL2A NNBANL2G NWABNL2G OVBNNL22 RABONL2U RBOSNL2A RBRBNL21 RGRBNL2R "
        "SNSBNL2A SOGENL2A STALNL2G TEBUNL2A TRIONL2U UBSWNL2A UGBINL2A VOWANL21 VPVGNL22";
    ASSERT_EQ(list.size(), 64U * 9 - 1);
    for (std::size_t at = 0; at < list.size(); at += 9) {
        EXPECT_EQ(BankCode2BIC("", list.substr(at, 4)), list.substr(at, 8));
    }
}

TEST(BankCode2BICTest, ComparesExactly) {
    for (const char* code :
         {"", "ZZZZ", "AAAA", "abna", "ABN", "ABNAN", "ABNANL2A", "ABNA ", "TEST", "-ABNA-"}) {
        EXPECT_EQ(BankCode2BIC("", code), "") << code;
    }
}

TEST(IBAN2BICTest, FindsTheBankOfAValidIban) {
    EXPECT_EQ(IBAN2BIC("NL13ABNA0500000018"), "ABNANL2A");
    EXPECT_EQ(IBAN2BIC(" NL13 ABNA 0500 0000 18 "), "ABNANL2A");
    EXPECT_EQ(IBAN2BIC("NL13.ABNA.0500.0000.18"), "ABNANL2A");
}

TEST(IBAN2BICTest, IsEmptyForAllElse) {
    EXPECT_EQ(IBAN2BIC(""), "");
    EXPECT_EQ(IBAN2BIC("123456789"), "");
    EXPECT_EQ(IBAN2BIC("NL14ABNA0500000018"), "");
    EXPECT_EQ(IBAN2BIC("nl13abna0500000018"), "");     // a bank code is known in capitals only
    EXPECT_EQ(IBAN2BIC("NL13-ABNA-0500-0000-18"), ""); // the code is then "-ABNA-"
}

TEST(IbanTest, StandsHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        EXPECT_FALSE(IBANCheck(text));
        EXPECT_EQ(IBAN2BIC(text), "");
        EXPECT_EQ(BankCode2BIC(text, text), "");
    }
}

} // namespace
} // namespace payment
