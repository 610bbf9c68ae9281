#include "WizardFixture.h"

namespace wizard {
namespace {

class WizardFlowTest : public WizardTest {};

TEST_F(WizardFlowTest, LeavesPage0WithAnEmptyAccount) {
    Start().Verder.UserClick();
    EXPECT_EQ(form->Page, 1);
    EXPECT_EQ(VisiblePage(), 1);
    EXPECT_TRUE(form->Terug.Enabled());
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(WizardFlowTest, CopiesTheCreditor) {
    Start();
    Type(70, " Naam ");
    Type(71, "Adres 1");
    Type(72, " 12 34 ab");
    Type(73, "Plaats");
    Type(74, "nl13abna0500000018");
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 1);
    EXPECT_EQ(state.IncassantBegunstigde, " Naam ");
    EXPECT_EQ(state.IncassantAdres, "Adres 1");
    EXPECT_EQ(state.IncassantPostCode, "1234AB");
    EXPECT_EQ(state.IncassantWoonplaats, "Plaats");
    EXPECT_EQ(state.IncassantBankGiro, "NL13ABNA0500000018");
}

TEST_F(WizardFlowTest, StaysOnPage0WithAWrongAccountAndHasCopiedTheRest) {
    Start();
    Type(70, "Naam");
    Type(71, "Straat 1");
    Type(72, "9999zz");
    Type(73, "Plaats");
    // Straight into the box, so that only the button's own check sees it.
    form->UserText(74).SetText("123456780");
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 0);
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{WrongAccount});
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, forms::MessageIcon::Information);
    EXPECT_EQ(form->UserText(74).Text(), "");
    EXPECT_EQ(form->ActiveControl(), &form->UserText(74));
    EXPECT_EQ(state.IncassantBegunstigde, "Naam");
    EXPECT_EQ(state.IncassantAdres, "Straat 1");
    EXPECT_EQ(state.IncassantPostCode, "9999ZZ");
    EXPECT_EQ(state.IncassantWoonplaats, "Plaats");
    EXPECT_EQ(state.IncassantBankGiro, "");
    EXPECT_FALSE(form->Terug.Enabled());
}

TEST_F(WizardFlowTest, AsksForAProcedure) {
    Start().Verder.UserClick();
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 1);
    EXPECT_EQ(memory.desktop.Messages(),
              Information("U heeft nog geen keuze gemaakt omtrent de te volgen procedure."));
}

TEST_F(WizardFlowTest, AsksForTheSizeOfTheBatch) {
    Start().Verder.UserClick();
    form->optProcedure(0).UserClick();
    form->Verder.UserClick();
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 2);
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{
                                  "U heeft nog geen keuze gemaakt omtrent de omvang van de testpartij."});
}

TEST_F(WizardFlowTest, ShortProcedureSkipsPage2) {
    Start().Verder.UserClick();
    form->optProcedure(1).UserClick();
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 3);
    EXPECT_EQ(VisiblePage(), 3);
    EXPECT_EQ(form->UserText(0).Text(), "5");
    EXPECT_FALSE(form->Verder.Enabled());

    Type(0, "7");
    form->Terug.UserClick();
    EXPECT_EQ(form->Page, 1);
    EXPECT_TRUE(form->Verder.Enabled());
    EXPECT_EQ(form->UserText(0).Text(), "7");
    form->Verder.UserClick();
    EXPECT_EQ(form->UserText(0).Text(), "5");
}

TEST_F(WizardFlowTest, HelpIsTheHandbooksSectionOfThePage) {
    Start().UserHelp();
    GoToPrinting();
    form->UserHelp();
    form->Terug.UserClick();
    form->UserHelp();
    form->Terug.UserClick();
    form->UserHelp();
    EXPECT_EQ(memory.desktop.HandbookSections(),
              (std::vector<std::string>{"bladzijde-1-uw-gegevens", "bladzijde-4-afdrukken",
                                        "bladzijde-3-de-omvang", "bladzijde-2-de-procedure"}));
}

class BatchSizesTest : public WizardTest, public testing::WithParamInterface<std::pair<int, const char*>> {};

TEST_P(BatchSizesTest, GeneralProcedure) {
    Start();
    GoToPrinting(GetParam().first);
    EXPECT_EQ(form->Page, 3);
    EXPECT_EQ(form->UserText(0).Text(), GetParam().second);
    form->Terug.UserClick();
    EXPECT_EQ(form->Page, 2);
    EXPECT_TRUE(form->Terug.Enabled());
    EXPECT_TRUE(form->optTestpartij(GetParam().first).Value());
}

INSTANTIATE_TEST_SUITE_P(Cases, BatchSizesTest,
                         testing::Values(std::pair{0, "250"}, std::pair{1, "250"}, std::pair{2, "100"}));

TEST_F(WizardFlowTest, WhatIsTypedOnTheLastPageReplacesTheCount) {
    Start();
    for (const int size : {0, 2}) {
        GoToPrinting(size);
        ASSERT_EQ(form->ActiveControl(), &form->UserText(0));
        EXPECT_EQ(form->UserText(0).SelStart(), 0);
        EXPECT_EQ(form->UserText(0).SelLength(), 3);
        form->UserKey('7');
        EXPECT_EQ(form->UserText(0).Text(), "7");
        form->Terug.UserClick();
        form->Terug.UserClick();
        form->Terug.UserClick();
    }
}

TEST_F(WizardFlowTest, ShowsTheNewPageBeforeItHidesTheOldOne) {
    Start();
    std::vector<int> visible;
    memory.desktop.OnControlChanged = [&](const forms::Control& control, forms::Aspect aspect) {
        if (control.Name() == "WizardPanel" && aspect == forms::Aspect::Visible) {
            visible.push_back(control.Visible() ? control.Index() : -1);
        }
    };
    form->Verder.UserClick();
    form->Terug.UserClick();
    EXPECT_EQ(visible, (std::vector{1, -1, 0, -1}));
}

TEST_F(WizardFlowTest, ChangesFromTheGeneralToTheShortProcedure) {
    Start();
    GoToPrinting(0);
    form->Terug.UserClick();
    form->Terug.UserClick();
    EXPECT_EQ(form->Page, 1);
    form->optProcedure(1).UserClick();
    EXPECT_FALSE(form->optProcedure(0).Value());
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 3);
    EXPECT_EQ(form->UserText(0).Text(), "5");
    form->Terug.UserClick();
    EXPECT_EQ(form->Page, 1);
}

TEST_F(WizardFlowTest, DisablesTerugOnThePageItStartsOn) {
    Start().Verder.UserClick();
    form->Terug.UserClick();
    EXPECT_EQ(form->Page, 0);
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_FALSE(form->Terug.Enabled());
    EXPECT_TRUE(form->Verder.Enabled());
    EXPECT_EQ(form->ActiveControl(), &form->Verder) << "the button beside it, not the one that closes";
}

TEST_F(WizardFlowTest, ClosesWithItsButtonAndWithEscape) {
    Start().Cancel.UserClick();
    EXPECT_FALSE(form->Loaded());
    EXPECT_TRUE(session.OpenForms().empty());

    Start().UserKey(forms::key::Escape);
    EXPECT_FALSE(form->Loaded());
}

TEST_F(WizardFlowTest, StaysWhileThePrintManagerIsOpen) {
    Start();
    state.PrintManagerOpen = true;
    form->Cancel.UserClick();
    EXPECT_TRUE(form->Visible());
    EXPECT_FALSE(form->UserClose());
    state.PrintManagerOpen = false;
    EXPECT_TRUE(form->UserClose());
}

TEST_F(WizardFlowTest, WritesNothingOnClosing) {
    Start();
    Type(70, "Gewijzigd");
    int writes = 0;
    memory.registry.OnWrite = [&](const std::string&, const std::string&, const std::string&, bool) {
        ++writes;
    };
    form->Cancel.UserClick();
    EXPECT_FALSE(form->Loaded());
    EXPECT_EQ(writes, 0);
}

TEST_F(WizardFlowTest, EnterGoesForwardAndOnTheLastPagePrints) {
    Start();
    form->UserKey(forms::key::Enter);
    EXPECT_EQ(form->Page, 1);
    form->optProcedure(1).SetValue(true);
    form->UserKey(forms::key::Enter);
    EXPECT_EQ(form->Page, 3);
    EXPECT_EQ(form->ActiveControl(), &form->UserText(0));
    form->UserText(0).SetText("0");
    form->UserKey(forms::key::Enter);
    EXPECT_EQ(MessageTexts().size(), 1U);
}

} // namespace
} // namespace wizard
