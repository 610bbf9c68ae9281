#include "precheck/CurrentPrinter.h"

#include "PrecheckTest.h"

namespace precheck {

namespace {

memory::PrintQueue Queue(const std::string& name, std::int16_t paper) {
    memory::PrintQueue queue;
    queue.Name = name;
    queue.Defaults.PaperSize = paper;
    return queue;
}

} // namespace

class CurrentPrinterTest : public PrecheckTest {
  protected:
    std::optional<ChosenPrinter> Current() { return CurrentPrinter(state, memory.Services()); }
};

TEST_F(CurrentPrinterTest, WithoutPrintersThereIsNone) {
    EXPECT_FALSE(Current());
}

TEST_F(CurrentPrinterTest, ItIsTheDefaultWithItsOwnPaper) {
    memory.InstallPrinter(Queue("Laser", 5));
    memory.InstallPrinter(Queue("Inkt", 9));
    const auto chosen = Current();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->Condition.Name, "Laser");
    ASSERT_TRUE(chosen->Sheet);
    EXPECT_NEAR(ToMillimetres(chosen->Sheet->Height), 355.6, 0.01);
}

TEST_F(CurrentPrinterTest, TheOneThatTheUserChoseLastGoesBefore) {
    memory.InstallPrinter(Queue("Laser", 5));
    memory.InstallPrinter(Queue("Inkt", 9));
    Set("CurrentPrinter", "Inkt");
    const auto chosen = Current();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->Condition.Name, "Inkt");
    EXPECT_FALSE(chosen->Sheet) << "nobody has told its paper yet";
}

TEST_F(CurrentPrinterTest, OneThatIsGoneGivesWayToTheDefault) {
    memory.InstallPrinter(Queue("Laser", 9));
    Set("CurrentPrinter", "Weg");
    ASSERT_TRUE(Current());
    EXPECT_EQ(Current()->Condition.Name, "Laser");
}

TEST_F(CurrentPrinterTest, TheSheetLiesAsItDoesByItself) {
    memory::PrintQueue lying = Queue("Laser", 9);
    lying.Defaults.Orientation = machine::Landscape;
    memory.InstallPrinter(lying);
    memory.InstallPrinter(Queue("Inkt", 9));
    ASSERT_TRUE(Current() && Current()->Sheet);
    EXPECT_GT(Current()->Sheet->Width, Current()->Sheet->Height);
    const auto width = [&](int index, std::int16_t orientation) {
        const auto sheet = ChooseForRun(state, memory.Services(), index, 9, orientation).Sheet;
        return sheet ? ToMillimetres(sheet->Width) : 0;
    };
    EXPECT_NEAR(width(0, 0), 297, 0.5);
    EXPECT_NEAR(width(0, machine::Portrait), 210, 0.5);
    EXPECT_NEAR(width(1, 0), 210, 0.5) << "of another than the current one nobody has told it";
    memory.recorder.Fail("ReadOrientation");
    EXPECT_NEAR(width(0, 0), 210, 0.5);
}

TEST_F(CurrentPrinterTest, APrinterThatCannotTellItsPaperIsStillToldOf) {
    memory.InstallPrinter(Queue("Laser", 9));
    memory.recorder.Fail("ReadPaperSize");
    const auto chosen = Current();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->Condition.Name, "Laser");
    EXPECT_FALSE(chosen->Sheet);
}

} // namespace precheck
