#include "PrecheckTest.h"

namespace precheck {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SettingsCheckTest : public PrecheckTest {};

TEST_F(SettingsCheckTest, NothingIsWrong) {
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(SettingsCheckTest, WithoutSettingsNothingIsSaidOfTheirContents) {
    memory.registry.RemoveKey(SettingsPath);
    state.GMUContractVorm = 0;
    state.IncassantBegunstigde.clear();
    state.GMUFontName = "Tahoma";
    EXPECT_THAT(Codes(Settings()), ElementsAre("settings.none"));
}

TEST_F(SettingsCheckTest, SettingsThatCannotBeReadAreNotRead) {
    memory.registry.Present.Trouble = machine::StoreTrouble::Unreadable;
    int calls = 0;
    memory.registry.ShouldFail = [&](const char*) { return ++calls > 0; };
    EXPECT_THAT(Codes(All()), ElementsAre("settings.unreadable"));
    EXPECT_EQ(calls, 0);
}

TEST_F(SettingsCheckTest, TheFileAndTheReasonAreToldWithoutBreakingTheSentence) {
    memory.registry.Present = {machine::StoreTrouble::UnknownEncoding, {}, std::string("a\0b & \n%1", 9)};
    const Finding finding = First(Settings(), "settings.encoding");
    EXPECT_THAT(finding.Wrong, HasSubstr(SettingsPath));
    EXPECT_THAT(finding.Wrong, HasSubstr("(a\xEF\xBF\xBD"
                                         "b & \xEF\xBF\xBD%1)."));
}

TEST_F(SettingsCheckTest, WhatWasReadBeforeStillHolds) {
    memory.registry.Present = {machine::StoreTrouble::Unreadable};
    EXPECT_THAT(First(Settings(), "settings.unreadable").Mend, HasSubstr("zonder calibratie"));
    memory.registry.Present.EarlierHolds = true;
    const Finding finding = First(Settings(), "settings.unreadable");
    EXPECT_EQ(finding.Mend,
              "Zorg dat u het mag lezen, of vraag de beheerder. Tot dan geldt wat eerder is gelezen.");
    EXPECT_EQ(finding.Gravity, Gravity::LookAt);
}

TEST_F(SettingsCheckTest, AFileWithoutTheKeyIsNoFileThatIsMissing) {
    memory.registry.Present = {machine::StoreTrouble::NoKey};
    const Finding finding = First(Settings(), "settings.none");
    EXPECT_EQ(finding.Wrong, "De instellingen van Tarvik zijn niet gevonden: in " +
                                 std::string(SettingsPath) + " staan ze niet.");
    EXPECT_THAT(finding.Mend, HasSubstr("Haal ze opnieuw op uit Tarvik"));
}

TEST_F(SettingsCheckTest, OfHalfAFileTheHalfThatIsThereIsJudged) {
    memory.registry.Present.Trouble = machine::StoreTrouble::CutOff;
    state.GMUContractVorm = 0;
    EXPECT_THAT(Codes(Settings()), ElementsAre("settings.cut-off", "contract.none"));
}

TEST_F(SettingsCheckTest, ContractAndTypeAreThoseOfTheStoreAndNotOfTheStart) {
    Settings(); // stores what `state` has
    state.GMUContractVorm = 0;
    state.AcceptgiroType = 0;
    EXPECT_THAT(CheckSettings(state, memory.Services(), intent), IsEmpty());
}

TEST_F(SettingsCheckTest, WhatHasBeenMendedSinceTheStartAsksForAnotherStart) {
    state.GMUVerkeer = false;
    Set("GMUVerkeer", " 1"); // a blank is no "1"
    EXPECT_THAT(First(Settings(), "ocr.off").Wrong, HasSubstr("staat uit (GMUVerkeer is \" 1\")."));
    Set("GMUVerkeer", "1");
    const Finding finding = First(Settings(), "ocr.off");
    EXPECT_THAT(finding.Wrong, HasSubstr("het betalingsverkeer stond uit toen dit programma startte."));
    EXPECT_EQ(finding.Mend, "Het staat nu aan: start dit programma opnieuw.");
}

TEST_F(SettingsCheckTest, OfAnUnknownTypeItIsToldWhatIsPrintedAllTheSame) {
    state.AcceptgiroType = 0;
    EXPECT_THAT(First(Settings(), "formtype.none").Wrong,
                HasSubstr("Alleen de OCR-regel en het betalingskenmerk worden afgedrukt."));
    state.GMUContractVorm = 1;
    EXPECT_THAT(First(Settings(), "formtype.none").Wrong, HasSubstr("De formulieren blijven leeg."));
    EXPECT_THAT(Document(), IsEmpty());
    state.GMUContractVorm = 32;
    state.GMUVerkeer = false;
    EXPECT_THAT(First(Settings(), "formtype.none").Wrong, HasSubstr("De formulieren blijven leeg."));
}

TEST_F(SettingsCheckTest, EveryContractFormIsKnown) {
    for (const std::int16_t contract : Numbers{2, 31, 32, 33, 34}) {
        state.GMUContractVorm = contract;
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << contract;
    }
    for (const std::int16_t contract : Numbers{-1, 0, 3, 30, 35}) {
        state.GMUContractVorm = contract;
        EXPECT_THAT(Codes(Settings()), Contains("contract.none")) << contract;
    }
}

TEST_F(SettingsCheckTest, EveryFormTypeIsKnown) {
    for (const std::int16_t type : Numbers{1, 2, 3}) {
        state.AcceptgiroType = type;
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << type;
    }
    for (const std::int16_t type : Numbers{-1, 0, 4}) {
        state.AcceptgiroType = type;
        EXPECT_THAT(Codes(Settings()), Contains("formtype.none")) << type;
    }
}

TEST_F(SettingsCheckTest, UnderContractATheTrafficDoesNotMatter) {
    state.GMUContractVorm = 1;
    state.GMUVerkeer = false;
    EXPECT_THAT(Codes(Settings()), ElementsAre("ocr.contract-a"));
}

TEST_F(SettingsCheckTest, TheListOfNamesHasNothingOfTheSettings) {
    memory.registry.RemoveKey(SettingsPath);
    intent.Document = 2;
    intent.Forms = 1;
    EXPECT_THAT(Codes(Settings()), IsEmpty());
}

TEST_F(SettingsCheckTest, TheReportHasNoCreditorAndNoCount) {
    intent = {.Document = 3, .Forms = 1, .FormsAskedFor = 250, .Copies = 2};
    state.IncassantBegunstigde.clear();
    state.GMUVerkeer = false;
    state.GMUContractVorm = 0;
    EXPECT_THAT(Codes(Settings()), ElementsAre("contract.none"));
}

TEST_F(SettingsCheckTest, TheWorstComeFirstAndTheOthersStayInTheirOrder) {
    intent.Copies = 2;
    state.IncassantAdres.clear();
    state.IncassantWoonplaats.clear();
    state.GMUContractVorm = 0;
    EXPECT_THAT(Codes(Settings()),
                ElementsAre("contract.none", "creditor.no-town", "creditor.no-address", "count.copies"));
}

TEST_F(SettingsCheckTest, AnyNumberOfFormsIsTaken) {
    intent.FormsAskedFor = 0;
    for (const std::int32_t forms : {0, 1, 250}) {
        intent.Forms = forms;
        EXPECT_THAT(Codes(Settings()), IsEmpty()) << forms;
    }
    intent.Forms = 30000;
    EXPECT_THAT(Codes(Settings()), ElementsAre("count.no-names"));
}

} // namespace precheck
