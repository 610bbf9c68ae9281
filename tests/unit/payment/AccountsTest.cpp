#include "payment/Accounts.h"

#include <algorithm>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostileTexts.h"
#include "machine/SeededRandom.h"
#include "payment/TextRoutines.h"
#include "support/HeldChance.h"

namespace payment {
namespace {

using namespace std::string_view_literals;

using support::HeldClock;
using support::ListedRandom;

// The value that makes the draw give `number`, of 1 to 99.
double ValueFor(int number) {
    return (number - 0.5) / 99;
}

TEST(BankGiroCheckTest, AcceptsAnAccountThatIsLeftOut) {
    EXPECT_TRUE(BankGiroCheck(""));
    EXPECT_TRUE(BankGiroCheck("   "));
    EXPECT_TRUE(BankGiroCheck(" . "));
}

TEST(BankGiroCheckTest, TakesAGiroNumberAsItIsWritten) {
    EXPECT_TRUE(BankGiroCheck("1234567"));
    EXPECT_TRUE(BankGiroCheck("12345678"));
    EXPECT_TRUE(BankGiroCheck("12 34.567"));
    EXPECT_TRUE(BankGiroCheck("0"));
    EXPECT_FALSE(BankGiroCheck("0123456"));
    EXPECT_FALSE(BankGiroCheck("P1234"));
    EXPECT_FALSE(BankGiroCheck("123456é"));
}

TEST(BankGiroCheckTest, PutsABankNumberUnderTheElevenTest) {
    EXPECT_TRUE(BankGiroCheck("123456789"));
    EXPECT_TRUE(BankGiroCheck("12.34.56.789"));
    EXPECT_TRUE(BankGiroCheck("0123456789"));
    EXPECT_FALSE(BankGiroCheck("123456780"));
    EXPECT_FALSE(BankGiroCheck("000000000"));
    EXPECT_FALSE(BankGiroCheck("0000000000"));
}

TEST(BankGiroCheckTest, LooksAtTheLastTenCharactersOfALongText) {
    EXPECT_TRUE(BankGiroCheck("99990123456789"));
    EXPECT_TRUE(BankGiroCheck(std::string(100000, '7') + "0123456789"));
    EXPECT_FALSE(BankGiroCheck("012345678999"));
}

TEST(BankGiroCheckTest, CountsWhatIsNoDigitAsZero) {
    EXPECT_TRUE(BankGiroCheck("X123456789"));
    EXPECT_TRUE(BankGiroCheck("é123456789"));
    EXPECT_FALSE(BankGiroCheck("ABCDEFGHI"));
    // Of ten characters the first weighs 10 and the last 1, which makes 11; of nine the first weighs 9.
    EXPECT_TRUE(BankGiroCheck("1éééééééé1"));
    EXPECT_FALSE(BankGiroCheck("1ééééééé1"));
}

TEST(BankGiroCheckTest, AcceptsAnIbanInAnyForm) {
    EXPECT_TRUE(BankGiroCheck("NL13ABNA0500000018"));
    EXPECT_TRUE(BankGiroCheck("nl13abna0500000018"));
    EXPECT_TRUE(BankGiroCheck("NL13 ABNA 0500 0000 18"));
    EXPECT_TRUE(BankGiroCheck(" nL13.aBnA.0500.0000.18 "));
    EXPECT_TRUE(BankGiroCheck("NL13-ABNA-0500-0000-18"));
}

TEST(BankGiroCheckTest, GivesAnIbanThatFailsTheElevenTestAsWell) {
    EXPECT_TRUE(BankGiroCheck("NL14ABNA0500000018")); // 0500000018 passes by itself
    EXPECT_FALSE(BankGiroCheck("NL14ABNA0500000019"));
}

TEST(Text2RekeningTest, SetsBlocksByLength) {
    EXPECT_EQ(Text2Rekening("123456789"), "12.34.56.789");
    EXPECT_EQ(Text2Rekening("0123456789"), "0123.456.789");
    EXPECT_EQ(Text2Rekening("1234"), "1234");
    EXPECT_EQ(Text2Rekening("12345678"), "12345678");
    EXPECT_EQ(Text2Rekening("nl13abna0500000018"), "NL13 ABNA 0500 0000 18");
    EXPECT_EQ(Text2Rekening("12345678901"), "1234 5678 901");
    EXPECT_EQ(Text2Rekening("123456789012"), "1234 5678 9012");
    EXPECT_EQ(Text2Rekening(""), "");
    EXPECT_EQ(Text2Rekening(" . "), "");
}

TEST(Text2RekeningTest, CountsCharacters) {
    EXPECT_EQ(Text2Rekening("éabcdefgh"), "ÉA.BC.DE.FGH");
    EXPECT_EQ(Text2Rekening("ééééé"), "ÉÉÉÉÉ");
    EXPECT_EQ(Text2Rekening("€€€€€€€€€€€"), "€€€€ €€€€ €€€");
}

TEST(Text2RekeningTest, MayBeAppliedToItsOwnResult) {
    for (const char* text : {"123456789", "0123456789", "NL13ABNA0500000018", "1234"}) {
        EXPECT_EQ(Text2Rekening(Text2Rekening(text)), Text2Rekening(text));
    }
}

TEST(Rekening2TextTest, TakesOutDotsAndBlanks) {
    EXPECT_EQ(Rekening2Text("NL13 ABNA 0500 0000 18"), "NL13ABNA0500000018");
    EXPECT_EQ(Rekening2Text("12.34.56.789"), "123456789");
    EXPECT_EQ(Rekening2Text(" nl13 abna "), "nl13abna");
    EXPECT_EQ(Rekening2Text(""), "");
}

TEST(AccountsTest, StandHostileTexts) {
    for (const std::string& text : HostileTexts()) {
        const std::string bare = Rekening2Text(text);
        EXPECT_EQ(bare.find_first_of(" ."), std::string::npos);
        EXPECT_EQ(BankGiroCheck(text), BankGiroCheck(bare));
        EXPECT_EQ(Rekening2Text(Text2Rekening(bare)).size(), bare.size());
    }
    EXPECT_FALSE(BankGiroCheck("123\0"sv));
    EXPECT_FALSE(BankGiroCheck("\xFF"));
    EXPECT_TRUE(BankGiroCheck(std::string(100000, '.') + "7"));
}

TEST(NieuwRekeningnummerTest, TakesTheFirstEndingThatPasses) {
    const HeldClock clock;
    ListedRandom random({ValueFor(12), ValueFor(34)});
    const std::string number = NieuwRekeningnummer("40", random, clock);
    ASSERT_EQ(number.size(), 9U);
    EXPECT_EQ(number.substr(0, 6), "401234");
    EXPECT_EQ(number[6], '4'); // 31 to 40 go with 401 to 499
    EXPECT_TRUE(BankGiroCheck(number));
    for (int ending = 401; ending < std::stoi(number.substr(6)); ++ending) {
        EXPECT_FALSE(BankGiroCheck("401234" + std::to_string(ending)));
    }
    EXPECT_EQ(random.draws, 2U);
    EXPECT_EQ(random.seeds, 4); // twice before each draw
    EXPECT_EQ(random.lastSeed, clock.Now().SecondsSinceMidnight());
}

TEST(NieuwRekeningnummerTest, PicksTheHundredByTheSecondNumber) {
    const HeldClock clock;
    struct Row {
        int second;
        char hundred;
    };
    for (const Row& row : std::initializer_list<Row>{{10, '1'},
                                                     {11, '2'},
                                                     {20, '2'},
                                                     {21, '3'},
                                                     {30, '3'},
                                                     {31, '4'},
                                                     {40, '4'},
                                                     {41, '5'},
                                                     {50, '5'},
                                                     {51, '6'},
                                                     {60, '6'},
                                                     {61, '7'},
                                                     {70, '7'},
                                                     {71, '8'},
                                                     {80, '8'},
                                                     {81, '9'},
                                                     {90, '9'},
                                                     {91, '1'},
                                                     {99, '1'}}) {
        ListedRandom random({ValueFor(55), ValueFor(row.second)});
        EXPECT_EQ(NieuwRekeningnummer("70", random, clock)[6], row.hundred) << row.second;
    }
}

TEST(NieuwRekeningnummerTest, DrawsAgainBelowTen) {
    const HeldClock clock;
    // 9 is drawn again; 20 with a 5 behind it is given up as a whole.
    ListedRandom random({ValueFor(9), ValueFor(20), ValueFor(5), ValueFor(77), ValueFor(88)});
    EXPECT_EQ(NieuwRekeningnummer("50", random, clock).substr(0, 6), "507788");
}

TEST(NieuwRekeningnummerTest, HasTenDigitsAfterThree) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    std::set<std::string> numbers;
    for (int i = 0; i < 200; ++i) {
        const std::string number = NieuwRekeningnummer("123", random, clock);
        EXPECT_EQ(number.size(), 10U);
        EXPECT_TRUE(BankGiroCheck(number)) << number;
        numbers.insert(number);
    }
    EXPECT_GT(numbers.size(), 150U); // a held clock does not repeat the numbers
}

TEST(NieuwRekeningnummerTest, GivesUpWhenNothingCanFollow) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    EXPECT_EQ(NieuwRekeningnummer("0", random, clock), ""); // eight figures with a leading zero
    ListedRandom stuck({0});
    EXPECT_EQ(NieuwRekeningnummer("40", stuck, clock), "");
}

} // namespace
} // namespace payment
