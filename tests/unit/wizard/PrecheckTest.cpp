#include <gmock/gmock.h>

#include "WizardFixture.h"
#include "wizard/Voorcontrole.h"

namespace wizard {
namespace {

/// Settings and a printer with which nothing is found.
class PrecheckTest : public WizardTest {
  protected:
    PrecheckTest() {
        memory.fonts.Describe("OCR-B", {.WidthPerPoint = 14.4});
        for (const auto& [name, value] : {std::pair("AcceptgiroType", "1"),
                                          {"GMUContractVorm", "31"},
                                          {"GMUVerkeer", "1"},
                                          {"GMUFontName", "OCR-B"},
                                          {"GMUFontSize", "10"},
                                          {"IncassantAfdrukken", "1"},
                                          {"IncassantBegunstigde", "Wijkorkest De Lijster"},
                                          {"IncassantAdres", "Dorpsstraat 12"},
                                          {"IncassantPostCode", "1234AB"},
                                          {"IncassantWoonplaats", "Zandwijk"},
                                          {"IncassantBankGiro", "NL13ABNA0500000018"}}) {
            Set(name, value);
        }
        memory::PrintQueue queue;
        queue.Name = "Laser";
        queue.Papers = {{9, 2100, 3048, "Acceptgiro"}};
        queue.Sheet = {4960, 7200};
        queue.Printable = {4960, 7200};
        queue.Offset = {0, 0};
        memory.InstallPrinter(queue);
    }

    Voorcontrole& Controle() { return form->Controle(); }
    bool LineShows() { return Controle().cmdVoorcontrole.Visible(); }
    void Tick() { Controle().tmrVoorcontrole.Tick(); }
    void GoToShortPrinting() {
        form->Verder.UserClick();
        form->optProcedure(1).UserClick();
        form->Verder.UserClick();
    }
};

TEST_F(PrecheckTest, WithNothingWrongNothingHasAWindow) {
    Start();
    GoToShortPrinting();
    Tick();
    for (const auto& [number, mark] : Controle().pictMelding) {
        EXPECT_FALSE(mark->IsMirrored()) << number;
    }
    EXPECT_FALSE(Controle().pictVoorcontrole.IsMirrored());
    EXPECT_FALSE(Controle().cmdVoorcontrole.IsMirrored());
}

TEST_F(PrecheckTest, WhatIsQuickIsToldAtOnceAndTheRestSoon) {
    Set("GMUContractVorm", "9");
    Set("OCRTop0", "20,00");
    Start();
    GoToShortPrinting();
    EXPECT_EQ(Controle().cmdVoorcontrole.Caption(), "V&oorcontrole: 1 punt vraagt uw aandacht");
    Tick();
    EXPECT_THAT(Controle().cmdVoorcontrole.Caption(), testing::EndsWith("punten vragen uw aandacht"));
    EXPECT_FALSE(Controle().tmrVoorcontrole.Enabled()) << "it ticks once";
}

// Enter moves no focus, so no box has been left on the way.
TEST_F(PrecheckTest, WhoComesBackToTheFirstPageFindsTheMarksOfWhatStandsThere) {
    Set("IncassantBegunstigde", "");
    Start();
    EXPECT_TRUE(Controle().pictMelding(70).Visible());
    form->UserText(70).SetText("Jansen");
    form->Verder.OnClick();
    form->Terug.OnClick();
    EXPECT_FALSE(Controle().pictMelding(70).Visible());
}

TEST_F(PrecheckTest, ARefusedAccountLeavesTheMarkOfAnEmptyOne) {
    Start();
    form->UserText(74).SetText("123456780");
    form->Verder.OnClick();
    EXPECT_EQ(form->UserText(74).Text(), "");
    EXPECT_THAT(Controle().pictMelding(74).ToolTipText(), testing::HasSubstr("is leeg"));
}

TEST_F(PrecheckTest, TheFieldsFollowTheUserWhenTheFocusLeavesThem) {
    Set("IncassantWoonplaats", "");
    Start();
    EXPECT_TRUE(Controle().pictMelding(73).Visible());
    Type(73, "Zandwijk");
    EXPECT_TRUE(Controle().pictMelding(73).Visible());
    form->MoveFocus(form->UserText(70));
    EXPECT_FALSE(Controle().pictMelding(73).Visible());
    EXPECT_TRUE(state.IncassantWoonplaats.empty()) << "it is taken over when the user goes on";
}

TEST_F(PrecheckTest, AnotherCountIsLookedAtSoon) {
    Start();
    GoToShortPrinting();
    Tick();
    ASSERT_FALSE(LineShows());
    form->UserText(0).SetText("4");
    EXPECT_FALSE(LineShows());
    Tick();
    EXPECT_TRUE(LineShows());
    form->UpDown.UserStep(1);
    Tick();
    EXPECT_FALSE(LineShows());
}

TEST_F(PrecheckTest, IsDoneAnewWhenThePageComesBack) {
    Set("GMUContractVorm", "9");
    Start();
    GoToShortPrinting();
    ASSERT_TRUE(LineShows());
    form->Terug.UserClick();
    Set("GMUContractVorm", "31");
    form->Verder.UserClick();
    EXPECT_FALSE(LineShows());
}

TEST_F(PrecheckTest, IsDoneAnewAfterThePrintManagerAndNotWhileItIsOpen) {
    Start();
    GoToShortPrinting();
    Tick();
    memory.desktop.OnModal = [this](forms::Form&) {
        Set("GMUContractVorm", "9");
        form->UserText(0).SetText("4");
        EXPECT_FALSE(Controle().tmrVoorcontrole.Enabled());
        Tick();
        EXPECT_FALSE(LineShows());
        return false;
    };
    form->cmdPrinten.UserClick();
    EXPECT_TRUE(LineShows());
}

TEST_F(PrecheckTest, ThePrinterIsTheOneThatWasStored) {
    memory::PrintQueue paused;
    paused.Name = "Inkt";
    paused.Status = 1;
    memory.InstallPrinter(paused);
    Start();
    GoToShortPrinting();
    Tick();
    EXPECT_FALSE(LineShows());
    Set("CurrentPrinter", "Inkt");
    form->UserText(0).SetText("6");
    Tick();
    EXPECT_TRUE(LineShows());
}

TEST_F(PrecheckTest, FailuresOfTheMachineAreNotTold) {
    Start();
    memory.recorder.ShouldFail = [](std::string_view) { return true; };
    GoToShortPrinting();
    Tick();
    EXPECT_THAT(MessageTexts(), testing::IsEmpty());
}

TEST_F(PrecheckTest, TheDrawOfChanceGoesOnAsIfNothingHadBeenComposed) {
    Start();
    memory.random.Seed(7);
    const double expected = memory.random.Rnd();
    memory.random.Seed(7);
    GoToShortPrinting();
    Tick();
    EXPECT_EQ(memory.random.Rnd(), expected);
}

} // namespace
} // namespace wizard
