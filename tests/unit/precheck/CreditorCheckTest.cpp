#include "PrecheckTest.h"

namespace precheck {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CreditorCheckTest : public PrecheckTest {
  protected:
    void ClearAll() {
        state.IncassantBegunstigde.clear();
        state.IncassantAdres.clear();
        state.IncassantPostCode.clear();
        state.IncassantWoonplaats.clear();
        state.IncassantBankGiro.clear();
    }
    std::vector<std::string> CodesUnder(std::int16_t contract) {
        state.GMUContractVorm = contract;
        return Codes(Settings());
    }
};

TEST_F(CreditorCheckTest, OnBlankStationeryAllOfItIsNeeded) {
    ClearAll();
    for (const std::int16_t contract : Numbers{31, 32}) {
        EXPECT_THAT(CodesUnder(contract),
                    ElementsAre("creditor.no-name", "creditor.no-town", "creditor.no-account",
                                "creditor.no-address", "creditor.no-postcode"));
    }
}

TEST_F(CreditorCheckTest, WhereItIsOnTheStationeryTheOcrLineNeedsTheAccountAlone) {
    ClearAll();
    for (const std::int16_t contract : Numbers{2, 33, 34}) {
        EXPECT_THAT(CodesUnder(contract), ElementsAre("creditor.no-account")) << contract;
    }
}

TEST_F(CreditorCheckTest, WithoutAnOcrLinePreprintedStationeryNeedsNothing) {
    ClearAll();
    EXPECT_THAT(CodesUnder(1), ElementsAre("ocr.contract-a"));
    state.GMUVerkeer = false;
    EXPECT_THAT(CodesUnder(33), ElementsAre("ocr.off"));
    EXPECT_THAT(CodesUnder(34), ElementsAre("ocr.off", "creditor.no-account"));
}

TEST_F(CreditorCheckTest, SwitchedOffItIsMissedOnlyWhereTheContractAsksForIt) {
    state.IncassantAfdrukken = false;
    EXPECT_THAT(CodesUnder(2), IsEmpty());
    EXPECT_THAT(CodesUnder(33), IsEmpty());
    EXPECT_THAT(CodesUnder(31), ElementsAre("creditor.off"));
    EXPECT_THAT(CodesUnder(34), ElementsAre("creditor.off"));
}

TEST_F(CreditorCheckTest, AnAccountWithBlanksIsTheSameAccount) {
    state.IncassantBankGiro = "NL13 ABNA 0500 0000 18";
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(CreditorCheckTest, WhatIsNoIbanOrHasNoKnownBankLacksTheBic) {
    for (const char* account : {"NL14ABNA0500000018", "1234567", "x"}) {
        state.IncassantBankGiro = account;
        EXPECT_THAT(Codes(Settings()), ElementsAre("creditor.no-iban")) << account;
    }
    for (const char* account : {"DE89370400440532013000", "NL13-ABNA-0500-0000-18"}) {
        state.IncassantBankGiro = account;
        EXPECT_THAT(Codes(Settings()), ElementsAre("creditor.no-bic")) << account;
    }
}

TEST_F(CreditorCheckTest, LettersThatTheFontHasAreGood) {
    state.IncassantBegunstigde = "Café 't Œuvre – €5 & Łąka";
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(CreditorCheckTest, LettersThatTheFontLacksAreToldOnceEach) {
    memory.fonts.Describe("Tahoma", {.LacksLetters = "éx"});
    state.IncassantWoonplaats = "éénxx";
    const Finding finding = First(Settings(), "creditor.letters");
    EXPECT_THAT(finding.Wrong,
                HasSubstr("de plaats van de incassant staan tekens die niet kunnen worden afgedrukt: é x."));
    EXPECT_EQ(finding.Spot, Spot::CreditorTown);
}

TEST_F(CreditorCheckTest, LettersAreJudgedOnlyWhereTheyArePrinted) {
    memory.fonts.Describe("Tahoma", {.LacksLetters = "Ł"});
    state.IncassantBegunstigde = "Łąka";
    EXPECT_THAT(CodesUnder(34), IsEmpty());
    EXPECT_THAT(CodesUnder(31), ElementsAre("creditor.letters"));
}

TEST_F(CreditorCheckTest, AnyTextAtAllIsTaken) {
    state.IncassantBegunstigde = std::string("a\0b\n", 4) + "\xFF\xFE";
    state.IncassantWoonplaats = "&%1<b>";
    memory.fonts.Describe("Tahoma",
                          {.LacksLetters = "\xEF\xBF\xBD"}); // what bytes that are no text stand for
    intent = {.Forms = 3};
    EXPECT_THAT(Codes(All()), ElementsAre("creditor.letters"));
}

TEST_F(CreditorCheckTest, ATextOfThirtyThousandCharactersIsTakenToo) {
    state.IncassantBegunstigde.assign(30000, 'n');
    intent = {.Forms = 3, .FormsAskedFor = 3};
    const Findings findings = All();
    EXPECT_THAT(Codes(findings), Contains("creditor.name-cut"));
    EXPECT_THAT(Codes(findings), Contains("sheet.text-off"));
    EXPECT_LT(First(findings, "creditor.name-cut").Wrong.size(), 300U);
}

TEST_F(CreditorCheckTest, WhatHasBeenSwitchedOnSinceTheStartAsksForAnotherStart) {
    state.IncassantAfdrukken = false;
    const Finding finding = First(Settings(), "creditor.off");
    EXPECT_THAT(finding.Wrong,
                HasSubstr("wel hoort: het afdrukken van de incassant stond uit toen dit programma "
                          "startte."));
    EXPECT_EQ(finding.Mend, "Het staat nu aan: start dit programma opnieuw.");
}

TEST_F(CreditorCheckTest, NobodyKnowsWhatBelongsToAnUnknownContract) {
    state.IncassantAfdrukken = false;
    state.GMUContractVorm = 30;
    EXPECT_THAT(Codes(Settings()), ElementsAre("contract.none"));
}

} // namespace precheck
