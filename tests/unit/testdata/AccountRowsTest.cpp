#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "payment/Accounts.h"
#include "payment/Iban.h"
#include "testdata/Tables.h"

namespace testdata {
namespace {

constexpr int RowCount = 22654;
constexpr int LastGiroRow = 5000;

struct Row {
    std::string_view account;
    std::string_view iban;
    std::string_view bic;

    std::string_view Bank() const { return iban.substr(4, 4); }
    int Number() const { return std::stoi(std::string(account.substr(1))); }
    int Band() const { return Number() / 10'000'000; }
    bool operator==(const Row& other) const { return iban == other.iban; }
};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (int i = 0; i < RowCount; ++i) {
            const std::string_view row = AccountTable()[i];
            all.push_back({row.substr(0, 10), row.substr(11, 18), row.substr(30)});
        }
        return all;
    }();
    return rows;
}

bool PassesElevenTest(std::string_view digits) {
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        sum += (10 - static_cast<int>(i)) * (digits[i] - '0');
    }
    return sum > 0 && sum % 11 == 0;
}

std::string CheckDigitsOf(const Row& row) {
    int remainder = 0;
    for (const char c : std::string(row.iban.substr(4)) + "NL00") {
        remainder = c <= '9' ? (remainder * 10 + (c - '0')) % 97 : (remainder * 100 + (c - 'A' + 10)) % 97;
    }
    const std::string digits = std::to_string(98 - remainder);
    return digits.size() == 1 ? "0" + digits : digits;
}

int CountRows(std::string_view bank, const std::function<bool(const Row&)>& holds) {
    return static_cast<int>(std::count_if(Rows().begin(), Rows().end(),
                                          [&](const Row& row) { return row.Bank() == bank && holds(row); }));
}

int InBands(std::string_view bank, int from, int to) {
    return CountRows(bank, [&](const Row& row) { return row.Band() >= from && row.Band() <= to; });
}

TEST(AccountRowsTest, HaveThirtyEightCharactersAndTwoCommas) {
    for (int i = 0; i < RowCount; ++i) {
        const std::string_view row = AccountTable()[i];
        ASSERT_EQ(row.size(), 38U) << i;
        ASSERT_EQ(std::count(row.begin(), row.end(), ','), 2) << i;
        ASSERT_EQ(row[10], ',') << i;
        ASSERT_EQ(row[29], ',') << i;
    }
}

TEST(AccountRowsTest, CarryTheAccountInTheIban) {
    for (const Row& row : Rows()) {
        ASSERT_EQ(row.account.find_first_not_of("0123456789"), std::string_view::npos) << row.account;
        ASSERT_EQ(row.iban.substr(0, 2), "NL");
        ASSERT_EQ(row.iban.substr(8), row.account);
    }
}

TEST(AccountRowsTest, HaveValidIbans) {
    for (const Row& row : Rows()) {
        ASSERT_TRUE(payment::IBANCheck(row.iban)) << row.iban;
        ASSERT_EQ(row.iban.substr(2, 2), CheckDigitsOf(row)) << row.iban;
    }
}

TEST(AccountRowsTest, HaveTheBicOfTheirBank) {
    for (const Row& row : Rows()) {
        ASSERT_EQ(row.bic, row.Bank() == "TEST" ? "TESTNL2A" : payment::BankCode2BIC("", row.Bank()))
            << row.iban;
        ASSERT_EQ(row.bic.size(), 8U);
    }
}

TEST(AccountRowsTest, PassTheElevenTestBehindTheGiroNumbers) {
    for (std::size_t i = LastGiroRow + 1; i < Rows().size(); ++i) {
        const Row& row = Rows()[i];
        ASSERT_TRUE(PassesElevenTest(row.account)) << row.account;
        ASSERT_TRUE(payment::BankGiroCheck(row.account)) << row.account;
        ASSERT_EQ(row.account[0], '0');
        ASSERT_NE(row.account[1], '0');
    }
}

TEST(AccountRowsTest, FailTheElevenTestAmongTheGiroNumbersAsOftenAsTheyShould) {
    EXPECT_EQ(CountRows("INGB", [](const Row& row) { return !PassesElevenTest(row.account); }), 4531);
    EXPECT_EQ(CountRows("INGB", [](const Row& row) { return PassesElevenTest(row.account); }), 469);
}

TEST(AccountRowsTest, BeginWithARowOutOfOrder) {
    EXPECT_EQ(Rows()[0].Bank(), "RBRB");
    EXPECT_TRUE(PassesElevenTest(Rows()[0].account));
    EXPECT_GT(Rows()[0].account, Rows()[1].account);
}

TEST(AccountRowsTest, AscendInBothGroups) {
    for (std::size_t i = 1; i < Rows().size(); ++i) {
        const bool giro = i <= LastGiroRow;
        ASSERT_EQ(Rows()[i].Bank() == "INGB", giro) << i;
        if (i != 1 && i != LastGiroRow + 1) {
            ASSERT_LE(Rows()[i - 1].account, Rows()[i].account) << i;
        }
    }
}

TEST(AccountRowsTest, AreRepeatedInTwentyFourPlaces) {
    int places = 0;
    int giroPlaces = 0;
    for (std::size_t i = 1; i < Rows().size(); ++i) {
        if (Rows()[i] == Rows()[i - 1]) {
            ++places;
            giroPlaces += i <= LastGiroRow ? 1 : 0;
        }
    }
    EXPECT_EQ(places, 24);
    EXPECT_EQ(giroPlaces, 4);

    std::set<std::string_view> different;
    for (const Row& row : Rows()) {
        different.insert(row.iban);
    }
    EXPECT_EQ(different.size(), 22630U);
}

TEST(AccountRowsTest, MixTheBanks) {
    const std::map<std::string_view, int> expected = {
        {"SNSB", 5572}, {"INGB", 5000}, {"RABO", 5000}, {"ABNA", 5000}, {"FRBK", 791}, {"ASNB", 467},
        {"RBRB", 285},  {"TRIO", 227},  {"FVLB", 202},  {"DEUT", 76},   {"STAL", 8},   {"ARSN", 6},
        {"INSI", 4},    {"BNGH", 4},    {"FTSB", 3},    {"ARTE", 2},    {"GILL", 1},   {"DLBK", 1},
        {"BOFA", 1},    {"RGRB", 1},    {"RBOS", 1},    {"NWAB", 1},    {"TEST", 1}};
    std::map<std::string_view, int> found;
    for (const Row& row : Rows()) {
        ++found[row.Bank()];
    }
    EXPECT_EQ(found, expected);
}

TEST(AccountRowsTest, LieInTheBandsOfTheirBank) {
    struct BandCount {
        std::string_view bank;
        int from;
        int to;
        int rows;
    };
    // Each bank's last row is the whole of the bands that it may use; what is scattered lies there as well.
    constexpr BandCount expected[] = {
        {"SNSB", 90, 96, 4965}, {"SNSB", 80, 89, 491},  {"SNSB", 10, 98, 5572}, {"RABO", 10, 10, 1951},
        {"RABO", 11, 11, 999},  {"RABO", 12, 12, 1201}, {"RABO", 13, 13, 669},  {"RABO", 14, 14, 180},
        {"ABNA", 40, 47, 4794}, {"ABNA", 16, 37, 206},  {"FRBK", 29, 29, 687},  {"FRBK", 91, 91, 44},
        {"FRBK", 95, 95, 42},   {"FRBK", 10, 98, 791},  {"ASNB", 70, 70, 434},  {"ASNB", 85, 97, 33},
        {"RBRB", 64, 69, 149},  {"RBRB", 78, 79, 27},   {"RBRB", 82, 98, 109}, // row 0 included
        {"TRIO", 78, 78, 106},  {"TRIO", 39, 39, 69},   {"TRIO", 19, 19, 30},   {"TRIO", 25, 25, 13},
        {"TRIO", 21, 21, 9},    {"FVLB", 22, 22, 114},  {"FVLB", 69, 69, 37},   {"FVLB", 26, 26, 34},
        {"FVLB", 63, 63, 17},   {"DEUT", 40, 63, 76},   {"STAL", 10, 98, 8},    {"ARSN", 77, 78, 6},
        {"INSI", 10, 98, 4},    {"BNGH", 28, 28, 4},    {"FTSB", 10, 98, 3},    {"ARTE", 63, 63, 2},
        {"GILL", 10, 98, 1},    {"DLBK", 10, 98, 1},    {"BOFA", 10, 98, 1},    {"RGRB", 10, 98, 1},
        {"RBOS", 10, 98, 1},    {"NWAB", 10, 98, 1},
    };
    for (const BandCount& row : expected) {
        EXPECT_EQ(InBands(row.bank, row.from, row.to), row.rows)
            << row.bank << ' ' << row.from << '-' << row.to;
    }
}

TEST(AccountRowsTest, HaveGiroNumbersOfEachLength) {
    const auto between = [](int from, int to) {
        return CountRows("INGB", [&](const Row& row) { return row.Number() >= from && row.Number() <= to; });
    };
    EXPECT_EQ(between(100, 999), 21);
    EXPECT_EQ(between(1000, 9999), 175);
    EXPECT_EQ(between(10000, 99999), 993);
    EXPECT_EQ(between(100000, 433700), 3811);
}

TEST(AccountRowsTest, HoldTheTestAccountAtItsPlace) {
    const auto isTest = [](const Row& row) { return row.Bank() == "TEST"; };
    const auto found = std::find_if(Rows().begin(), Rows().end(), isTest);
    ASSERT_NE(found, Rows().end());
    EXPECT_EQ(found->account, "0123456789");
    EXPECT_EQ(found->bic, "TESTNL2A");
    EXPECT_LT(found - Rows().begin(), 22500); // so it can be drawn like any other
}

} // namespace
} // namespace testdata
