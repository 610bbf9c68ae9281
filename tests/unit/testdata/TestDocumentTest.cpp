#include "testdata/TestDocument.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "machine/SeededRandom.h"
#include "support/HeldChance.h"

namespace testdata {
namespace {

using support::HeldClock;
using support::ListedRandom;

constexpr std::int32_t LastRij = 248;

// Draws as many documents as asked, the loop index starting over behind its last value as in a run.
template <class Look>
void DrawForms(int count, const DrawSources& sources, Look look) {
    DrawState state;
    TestDocument document;
    for (int i = 0; i < count; ++i) {
        DrawTestDocument(state, sources, document);
        look(state, document);
        state.Rij = state.Rij == LastRij ? 0 : state.Rij + 1;
    }
}

std::vector<std::int32_t> NumbersWithoutAccount(int count) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    std::vector<std::int32_t> numbers;
    DrawForms(count, {random, clock}, [&](const DrawState& state, const TestDocument& document) {
        if (document.rekening.empty()) {
            EXPECT_EQ(document.bic, "");
            EXPECT_NE(document.euro, "");
            numbers.push_back(state.Volgnummer);
        }
    });
    return numbers;
}

TEST(DrawTestDocumentTest, TakesThePersonsInTableOrder) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    DrawForms(250, {random, clock}, [](const DrawState& state, const TestDocument& document) {
        Person expected;
        SplitPerson(PersonTable()[state.Volgnummer - 1], expected);
        ASSERT_EQ(document.naam, expected.naam);
        ASSERT_EQ(document.partner, expected.partner);
        ASSERT_EQ(document.postcode, expected.postcode);
        ASSERT_EQ(document.adres, expected.adres);
        ASSERT_EQ(document.woonplaats, expected.woonplaats);
        ASSERT_EQ(document.adres.size(), 50U);
    });
}

TEST(DrawTestDocumentTest, HasBlankPayersBehindTheLastPerson) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    DrawForms(30000, {random, clock}, [](const DrawState& state, const TestDocument& document) {
        if (state.Volgnummer <= 250) {
            ASSERT_NE(document.naam, "");
            return;
        }
        ASSERT_EQ(document.naam, "");
        ASSERT_EQ(document.partner, "");
        ASSERT_EQ(document.postcode, "");
        ASSERT_EQ(document.adres, "");
        ASSERT_EQ(document.woonplaats, "");
        ASSERT_NE(document.euro, "");
    });
}

TEST(DrawTestDocumentTest, KeepsTheRowWhereTheTableEnds) {
    const HeldClock clock;
    ListedRandom random({0.5});
    const std::string rows =
        std::string(80, 'a') + std::string(68, 'x') + std::string(80, 'b') + std::string(68, 'y');
    const base::TextTable persons(rows, 148, 1); // without an empty row behind
    DrawState state;
    TestDocument document;
    for (const char expected : {'a', 'b', 'b', 'b'}) {
        DrawTestDocument(state, {random, clock, persons}, document);
        EXPECT_EQ(document.naam, std::string(80, expected));
    }
    EXPECT_EQ(state.Volgnummer, 4);
}

TEST(DrawTestDocumentTest, NumbersTheDocuments) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    std::string last;
    DrawForms(251, {random, clock}, [&](const DrawState& state, const TestDocument& document) {
        if (state.Volgnummer == 1) {
            EXPECT_EQ(document.volgnummertekst, "00000001");
        }
        last = document.volgnummertekst;
    });
    EXPECT_EQ(last, "00000251");
}

TEST(DrawTestDocumentTest, DrawsRowsOneToTwentyTwoThousandFiveHundred) {
    const HeldClock clock;
    const auto ibanFor = [&](double value) {
        ListedRandom random({value, 0.5, 0.5});
        DrawState state;
        TestDocument document;
        DrawTestDocument(state, {random, clock}, document);
        EXPECT_EQ(document.rekening.size(), 18U);
        EXPECT_EQ(document.bic.size(), 8U);
        return std::string(document.rekening) + ',' + std::string(document.bic);
    };
    EXPECT_EQ(ibanFor(0), AccountTable()[1].substr(11));
    EXPECT_EQ(ibanFor(0.9999999999999999), AccountTable()[22500].substr(11));
    EXPECT_EQ(ibanFor(1.5 / 22500), AccountTable()[2].substr(11));
}

TEST(DrawTestDocumentTest, SeedsFromTheClockBeforeEachDraw) {
    const HeldClock clock;
    ListedRandom random({0.1, 0.2, 0.3});
    DrawState state;
    TestDocument document;
    DrawTestDocument(state, {random, clock}, document);
    EXPECT_EQ(random.seeds, 3);
    EXPECT_EQ(random.draws, 3U);
    EXPECT_EQ(random.lastSeed, 12 * 3600 + 30 * 60 + 15.25);
    EXPECT_EQ(document.euro, "200"); // 0.2 x 998 + 1
    EXPECT_EQ(document.cent, "30");  // 0.3 x 98 + 1
}

TEST(DrawTestDocumentTest, LeavesTheAccountOutOnEveryTwentySixthForm) {
    EXPECT_EQ(NumbersWithoutAccount(100), (std::vector<std::int32_t>{32, 58, 84}));
    const std::vector<std::int32_t> first = {32, 58, 84, 110, 136, 162, 188, 214, 240};
    EXPECT_EQ(NumbersWithoutAccount(250), first);
    // The counter goes on when the loop starts over, but for the first six forms of each round: of the nine
    // forms behind number 240 all count, and the 17th that counts after them is the loop's index 22.
    const std::vector<std::int32_t> second = NumbersWithoutAccount(300);
    ASSERT_EQ(second.size(), 11U);
    EXPECT_EQ(second[9], 249 + 22 + 1);
    EXPECT_EQ(second[10], 249 + 48 + 1);
}

TEST(DrawTestDocumentTest, DrawsAgainForTheNextRun) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    const auto batch = [&] {
        std::vector<std::string> values;
        DrawForms(50, {random, clock}, [&](const DrawState&, const TestDocument& document) {
            values.push_back(std::string(document.rekening) + document.euro + document.cent);
        });
        return values;
    };
    const std::vector<std::string> preview = batch();
    EXPECT_NE(preview, batch());
}

TEST(DrawTestDocumentTest, SpreadsItsValuesEvenlyUnderAClockThatStands) {
    const HeldClock clock;
    machine::SeededRandom random(1);
    std::set<std::string_view> accounts;
    std::set<std::string> euros;
    std::set<std::string> cents;
    int sameShare = 0;
    DrawForms(3000, {random, clock}, [&](const DrawState&, const TestDocument& document) {
        accounts.insert(document.rekening);
        euros.insert(document.euro);
        cents.insert(document.cent);
        sameShare += std::stoi(document.euro) * 98 / 998 == std::stoi(document.cent) ? 1 : 0;
    });
    EXPECT_GT(accounts.size(), 2500U);
    EXPECT_GT(euros.size(), 850U);
    EXPECT_EQ(cents.size(), 98U);
    EXPECT_LT(sameShare, 150); // euros and cents do not hang together
}

TEST(SplitAccountTest, ReadsOddRowsOfATableAsFarAsTheyGo) {
    const HeldClock clock;
    ListedRandom random({0});
    DrawState state;
    TestDocument document;
    const auto draw = [&](const std::string& row) {
        const int width = static_cast<int>(row.size());
        const std::string rows = row + row;
        DrawTestDocument(state, {random, clock, PersonTable(), base::TextTable(rows, width, 25000)},
                         document);
        return std::string(document.rekening) + '|' + std::string(document.bic);
    };
    // The record's views would outlive these rows, so each is looked at before the next is drawn.
    EXPECT_EQ(draw("1,NL13ABNA0500000018,ABNANL2A"), "NL13ABNA0500000018|ABNANL2A");
    EXPECT_EQ(draw("1,,X,Y"), "|X,Y");
    document.bic = "KEPT";
    EXPECT_EQ(draw("1,NL13ABNA0500000018"), "NL13ABNA0500000018|KEPT");
    EXPECT_EQ(draw("NL13ABNA0500000018"), "NL13ABNA0500000018|KEPT");
    EXPECT_EQ(draw("1,"), "|KEPT");
}

TEST(SplitAccountDeathTest, StopsTheProgramOnAWrongTable) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const HeldClock clock;
    ListedRandom random({0});
    DrawState state;
    TestDocument document;
    const base::TextTable accounts("1,NL13ABNA050000001,ABNANL2A1,NL13ABNA050000001,ABNANL2A", 28, 25000);
    EXPECT_DEATH(DrawTestDocument(state, {random, clock, PersonTable(), accounts}, document), "");
}

TEST(TrekEuroTest, GoesFromOneToNineHundredNinetyEight) {
    const HeldClock clock;
    const auto euro = [&](double value) {
        ListedRandom random({value});
        return TrekEuro(random, clock);
    };
    EXPECT_EQ(euro(0), "1");
    EXPECT_EQ(euro(8.5 / 998), "9");
    EXPECT_EQ(euro(0.5), "500");
    EXPECT_EQ(euro(0.9999999999999999), "998");
}

TEST(TrekCentTest, GoesFromOneToNinetyEightInTwoDigits) {
    const HeldClock clock;
    const auto cent = [&](double value) {
        ListedRandom random({value});
        return TrekCent(random, clock);
    };
    EXPECT_EQ(cent(0), "01");
    EXPECT_EQ(cent(8.5 / 98), "09");
    EXPECT_EQ(cent(0.5), "50");
    EXPECT_EQ(cent(0.9999999999999999), "98");
}

} // namespace
} // namespace testdata
