#include "ManagerFixture.h"

namespace printmanager {

using testing::IsEmpty;

namespace {

precheck::Finding FindingAt(precheck::Spot spot, precheck::Gravity gravity, const std::string& wrong) {
    precheck::Finding finding;
    finding.Spot = spot;
    finding.Gravity = gravity;
    finding.Wrong = wrong;
    return finding;
}

class PrecheckTest : public ManagerTest {
  protected:
    PrecheckTest() {
        InstallTwo();
        AddCaller("frmCaller").OnNakijken = [this](const Choice& choice) {
            choices.push_back(choice);
            return found;
        };
    }

    bool IsMarked(int number) { return manager->pictMelding(number).Visible(); }
    std::string Tip(int number) { return manager->pictMelding(number).ToolTipText(); }
    void Tick() { manager->tmrVoorcontrole->Tick(); }

    std::vector<Choice> choices;
    precheck::Findings found;
};

TEST_F(PrecheckTest, NothingIsAskedBeforeADocumentIsChosen) {
    Open();
    Tick();
    EXPECT_THAT(choices, IsEmpty());
}

TEST_F(PrecheckTest, AsksForTheWholeChoiceOnce) {
    OpenAndPick(1);
    manager->cmdDetails.UserClick();
    manager->cboPrinterSelect(0).UserPick(1);
    manager->cboPrinterSelect(1).UserPick(1);
    manager->cboPrinterSelect(3).UserPick(1);
    manager->UserText(0).SetText("3");
    Tick();
    Tick();
    ASSERT_EQ(choices.size(), 1U) << "the timer ticks once for all that was chosen";
    EXPECT_EQ(choices[0].iMethod, 2);
    EXPECT_EQ(choices[0].num_copies, 3);
    EXPECT_EQ(choices[0].Printer, 1);
    EXPECT_EQ(choices[0].Paper, 5);
    EXPECT_EQ(choices[0].Orientation, machine::Landscape);
}

TEST_F(PrecheckTest, APrinterWithoutListsHasNoPaperAndNoOrientation) {
    Set("CurrentPrinter", "Laser");
    OpenAndPick();
    Tick();
    ASSERT_EQ(choices.size(), 1U);
    EXPECT_EQ(choices[0].Printer, 0);
    EXPECT_EQ(choices[0].Paper, 0);
    EXPECT_EQ(choices[0].Orientation, 0) << "the run leaves it as it is";
}

TEST_F(PrecheckTest, AWideDocumentLiesDown) {
    state.DocumentTitle[2] = "Lijst Landscape";
    OpenAndPick(1);
    Tick();
    ASSERT_EQ(choices.size(), 1U);
    EXPECT_EQ(choices[0].Orientation, machine::Landscape);
}

TEST_F(PrecheckTest, TellsBesideTheBoxWhatIsWrongThere) {
    found = {FindingAt(precheck::Spot::Papers, precheck::Gravity::Spoils, "Te klein."),
             FindingAt(precheck::Spot::Papers, precheck::Gravity::LookAt, "Krap."),
             FindingAt(precheck::Spot::Copies, precheck::Gravity::LookAt, "Twee keer."),
             FindingAt(precheck::Spot::CreditorName, precheck::Gravity::Spoils, "Elders.")};
    OpenAndPick();
    manager->cmdDetails.UserClick();
    Tick();
    EXPECT_FALSE(IsMarked(0));
    EXPECT_TRUE(IsMarked(1));
    EXPECT_EQ(manager->pictMelding(1).Picture(), "message-critical");
    EXPECT_EQ(Tip(1), "Te klein. (en nog 1 punt)");
    EXPECT_FALSE(IsMarked(2));
    EXPECT_TRUE(IsMarked(3));
    EXPECT_EQ(manager->pictMelding(3).Picture(), "message-exclamation");
    found.clear();
    manager->lstAfdrukken.UserPick(1);
    Tick();
    EXPECT_FALSE(IsMarked(1));
    EXPECT_FALSE(IsMarked(3));
}

TEST_F(PrecheckTest, WithTheDetailsClosedThePrinterSpeaksForPaperAndBin) {
    found = {FindingAt(precheck::Spot::Bins, precheck::Gravity::LookAt, "Andere lade."),
             FindingAt(precheck::Spot::Printer, precheck::Gravity::LookAt, "Pauze.")};
    OpenAndPick();
    Tick();
    EXPECT_EQ(Tip(0), "Andere lade. (en nog 1 punt)");
    manager->cmdDetails.UserClick();
    Tick();
    EXPECT_EQ(Tip(0), "Pauze.");
    EXPECT_EQ(Tip(2), "Andere lade.");
}

TEST_F(PrecheckTest, WithNothingWrongNoMarkHasAWindow) {
    OpenAndPick();
    manager->cmdDetails.UserClick();
    Tick();
    for (const auto& [number, mark] : manager->pictMelding) {
        EXPECT_FALSE(mark->IsMirrored()) << number;
    }
}

TEST_F(PrecheckTest, TheSpoolerAndThePrinterHearNothingOfIt) {
    OpenAndPick();
    EXPECT_THAT(TraceOf([&] { Tick(); }), IsEmpty());
    EXPECT_EQ(choices.size(), 1U);
}

TEST_F(PrecheckTest, RunsNeitherDuringAJobNorWhileTheFormCloses) {
    OpenAndPick();
    OnCall = [this](bool) { Tick(); };
    manager->cmdPrintVoorbeeld.UserClick();
    EXPECT_THAT(choices, IsEmpty());
    Tick();
    EXPECT_EQ(choices.size(), 1U) << "it comes again after the job";
    manager->lstAfdrukken.UserPick(1);
    manager->blnClosing = true;
    Tick();
    manager->blnClosing = false;
    EXPECT_EQ(choices.size(), 1U);
}

TEST_F(PrecheckTest, AFailureTellsNothing) {
    callers.back()->OnNakijken = [](const Choice&) -> precheck::Findings {
        throw base::RuntimeError(base::ErrorPrinter, "Printer error");
    };
    OpenAndPick();
    Tick();
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_FALSE(IsMarked(0));
}

TEST_F(PrecheckTest, ACopyCountThatIsNoNumberCounts0) {
    OpenAndPick();
    manager->UserText(0).SetText("");
    Tick();
    ASSERT_EQ(choices.size(), 1U);
    EXPECT_EQ(choices[0].num_copies, 0);
}

} // namespace
} // namespace printmanager
