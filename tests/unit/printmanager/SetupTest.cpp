#include "ManagerFixture.h"
#include "printmanager/frmPrintManagerSetup.h"

namespace printmanager {

namespace {

constexpr const char* NoValue = "Er is nog geen initialisatiewaarde ingegeven.";
constexpr const char* ValueSet = "De initialisatiewaarde is ingesteld.";

class SetupTest : public ManagerTest {
  protected:
    frmPrintManagerSetup& OpenSetup() {
        setup = std::make_unique<frmPrintManagerSetup>(session, memory.Services(), state);
        setup->Show();
        return *setup;
    }
    void Accept(const std::string& text) {
        setup->UserText(0).SetText(text);
        setup->cmdOK.UserClick();
    }

    std::unique_ptr<frmPrintManagerSetup> setup;
};

TEST_F(SetupTest, ShowsThePresentValueTwice) {
    state.PrinterInit = 1234;
    OpenSetup();
    EXPECT_EQ(setup->UserText(0).Text(), "1234");
    EXPECT_EQ(setup->UserText(1).Text(), "1234");
    EXPECT_EQ(setup->UserText(1).BackColor(), forms::colour::ButtonFace);
    EXPECT_EQ(setup->Caption(), "Printer initialisatie");
    EXPECT_EQ(setup->Label2.Caption(), "Wanneer uw printer eventuele lade wijzigingen c.q. papierformaat "
                                       "wijzigingen niet correct verwerkt dan "
                                       "kunt u hier de initialisatietijd wijzigen.");
}

TEST_F(SetupTest, HelpIsTheHandbooksSectionOfTheForm) {
    OpenSetup().UserHelp();
    EXPECT_THAT(memory.desktop.HandbookSections(), testing::ElementsAre("printer-initialisatie"));
}

TEST_F(SetupTest, ArrowsKeepToTheirLimits) {
    OpenSetup();
    setup->UserText(0).SetText("3");
    setup->UpDown.UserStep(-1);
    EXPECT_EQ(setup->UserText(0).Text(), "10");
    setup->UserText(0).SetText("999999");
    setup->UpDown.UserStep(1);
    EXPECT_EQ(setup->UserText(0).Text(), "999999");
    setup->UpDown.UserStep(-1);
    EXPECT_EQ(setup->UserText(0).Text(), "999998");
}

TEST_F(SetupTest, CancelKeepsTheValue) {
    OpenSetup();
    setup->UserText(0).SetText("5000");
    setup->UserKey(forms::key::Escape);
    EXPECT_FALSE(setup->Loaded());
    EXPECT_EQ(state.PrinterInit, 100);
    EXPECT_EQ(Stored("PrinterInit"), "(missing)");
}

class RefusedValueTest : public SetupTest, public testing::WithParamInterface<const char*> {};

TEST_P(RefusedValueTest, KeepsTheFormOpen) {
    OpenSetup();
    Accept(GetParam());
    ASSERT_EQ(memory.desktop.Messages().size(), 1U);
    EXPECT_EQ(memory.desktop.Messages()[0],
              (memory::ShownMessage{NoValue, forms::MessageIcon::Information, Title}));
    EXPECT_TRUE(setup->Visible());
    EXPECT_EQ(state.PrinterInit, 100);
    EXPECT_EQ(Stored("PrinterInit"), "(missing)");
}

INSTANTIATE_TEST_SUITE_P(Texts, RefusedValueTest, testing::Values("", "0", "-5", "abc", "0,9", " "));

struct ValueRow {
    const char* Text;
    const char* Stored;
    std::int32_t Value;
};

class AcceptedValueTest : public SetupTest, public testing::WithParamInterface<ValueRow> {};

TEST_P(AcceptedValueTest, IsStoredAndSet) {
    OpenSetup();
    Accept(GetParam().Text);
    ASSERT_EQ(memory.desktop.Messages().size(), 1U);
    EXPECT_EQ(memory.desktop.Messages()[0],
              (memory::ShownMessage{ValueSet, forms::MessageIcon::Information, Title}));
    EXPECT_FALSE(setup->Loaded());
    EXPECT_EQ(state.PrinterInit, GetParam().Value);
    EXPECT_EQ(Stored("PrinterInit"), GetParam().Stored);
}

INSTANTIATE_TEST_SUITE_P(Texts, AcceptedValueTest,
                         testing::Values(ValueRow{"1200x", "1200", 1200}, ValueRow{"1002", "1002", 1002},
                                         ValueRow{" 007", "7", 7}, ValueRow{"1500.5", "1500.5", 1500},
                                         ValueRow{"1501.5", "1501.5", 1502}, ValueRow{"0.25", "0.25", 0},
                                         ValueRow{"2000000", "2000000", 2000000}, ValueRow{"3,7", "3", 3}));

TEST_F(SetupTest, ValueBeyondTheFieldIsAnErrorAndTheFormStays) {
    OpenSetup();
    events.clear();
    Accept("9999999999");
    // The text is stored before the field turns out to be too small for it.
    EXPECT_THAT(Trace(), testing::ElementsAre("store PrinterInit=9999999999", "error 6"));
    EXPECT_EQ(Stored("PrinterInit"), "9999999999");
    EXPECT_TRUE(setup->Visible());
    EXPECT_EQ(state.PrinterInit, 100);
    EXPECT_TRUE(setup->UserClose());
}

TEST_F(SetupTest, StepsOfAcceptingStandInOrder) {
    OpenSetup();
    setup->UserText(0).SetText("1002");
    EXPECT_THAT(TraceOf([&] { setup->cmdOK.UserClick(); }),
                testing::ElementsAre("store PrinterInit=1002", "message", "unload frmPrintManagerSetup"));
}

TEST_F(SetupTest, EscapeAndEnterAreItsButtons) {
    OpenSetup();
    EXPECT_TRUE(setup->cmdOK.Default());
    EXPECT_TRUE(setup->cmdClose.Cancel());
    EXPECT_EQ(setup->cmdOK.Caption(), "OK");
    EXPECT_EQ(setup->cmdClose.Caption(), "&Annuleren");
    EXPECT_EQ(setup->Label1.Caption(), "Printer initialisatie");
    EXPECT_EQ(setup->Label3.Caption(), "Huidige initialisatietijd:");
    EXPECT_EQ(setup->Label4.Caption(), "Nieuwe initialisatietijd:");
}

TEST_F(SetupTest, StoredValueIsReadByNobody) {
    Set("PrinterInit", "1500");
    OpenSetup();
    EXPECT_EQ(setup->UserText(0).Text(), "100");
    InstallTwo();
    Open();
    EXPECT_EQ(state.PrinterInit, 100);
}

TEST_F(SetupTest, WithoutASettingsKeyTheFieldIsSetAllTheSame) {
    memory.registry.RemoveKey(SettingsPath);
    OpenSetup();
    Accept("1002");
    EXPECT_EQ(state.PrinterInit, 1002);
}

TEST_F(SetupTest, ButtonOfTheManagerOnlyTurnsTheHourglassOff) {
    InstallTwo();
    OpenAndPick();
    session.Desktop().HourglassOn();
    manager->cmdSetup.Press();
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass); // it is never enabled
    manager->cmdSetup.SetEnabled(true);
    manager->cmdSetup.Press();
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_EQ(session.OpenForms().size(), 1U);
}

} // namespace
} // namespace printmanager
