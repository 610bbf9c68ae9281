#include "desktop/cups/PrintQueues.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "unit/desktop/cups/FakeQueue.h"

namespace desktop::cups {
namespace {

class PrintQueuesTest : public testing::Test {
  protected:
    PrintQueuesTest() { Own->QueueName = "Eigen"; }

    FoundQueues Find() const {
        FoundQueues found;
        for (const char* name : Names) {
            auto queue = std::make_unique<FakeQueue>();
            queue->QueueName = name;
            found.Queues.push_back(std::move(queue));
        }
        found.Default = Default;
        found.Answered = Answers;
        return found;
    }

    std::vector<const char*> Names = {"Kantoor", "Archief"};
    int Default = -1;
    bool Answers = true;
    std::shared_ptr<FakeQueue> Own = std::make_shared<FakeQueue>();
    PrintQueues Printers{[this] { return Find(); }, Own};
};

TEST_F(PrintQueuesTest, HasTheDesktopsOwnPrinterLast) {
    ASSERT_EQ(Printers.Count(), 3);
    EXPECT_EQ(Printers.Item(0).DeviceName, "Kantoor");
    EXPECT_EQ(Printers.Item(1).Port, "ipp://printer.example/ipp/print");
    EXPECT_EQ(Printers.Item(2).DeviceName, "Eigen");
    EXPECT_EQ(Printers.Share(2), Own);
    EXPECT_EQ(Printers.Find("Eigen"), Own.get());
    EXPECT_EQ(Printers.Find("kantoor"), nullptr);
}

TEST_F(PrintQueuesTest, TellsTheSheetOfAPaperAsItIsDrawnOn) {
    Paper paper = NewPaper(300, "Strook", 5000, 9000);
    paper.Left = 100;
    paper.Top = 200;
    paper.Right = 300;
    paper.Bottom = 400;
    Own->PaperList = {NewPaper(9, "A4", 11906, 16838), paper};
    const std::optional<machine::SheetArea> upright = Printers.SheetOf(2, 300, machine::Portrait);
    ASSERT_TRUE(upright);
    EXPECT_EQ(upright->Width, 5000);
    EXPECT_EQ(upright->Height, 9000);
    EXPECT_EQ(upright->Left, 100);
    EXPECT_EQ(upright->Top, 200);
    EXPECT_EQ(upright->Right, 4700);
    EXPECT_EQ(upright->Bottom, 8600);
    const std::optional<machine::SheetArea> onItsSide = Printers.SheetOf(2, 300, machine::Landscape);
    ASSERT_TRUE(onItsSide);
    EXPECT_EQ(onItsSide->Width, 9000);
    EXPECT_EQ(onItsSide->Height, 5000);
    EXPECT_EQ(onItsSide->Left, 400); // its foot
    EXPECT_EQ(onItsSide->Top, 100);
    EXPECT_EQ(onItsSide->Right, 8800);
    EXPECT_EQ(onItsSide->Bottom, 4700);
}

TEST_F(PrintQueuesTest, TellsNoSheetWhereNobodyKnowsIt) {
    Paper standIn = NewPaper(9, "A4", 11906, 16838);
    standIn.StandIn = true;
    Own->PaperList = {standIn};
    EXPECT_FALSE(Printers.SheetOf(2, 9, machine::Portrait));
    EXPECT_FALSE(Printers.SheetOf(2, 300, machine::Portrait));
    EXPECT_FALSE(Printers.SheetOf(0, 9, machine::Portrait));
    EXPECT_THROW(Printers.SheetOf(3, 9, machine::Portrait), base::RuntimeError);
    EXPECT_THROW(Printers.SheetOf(-1, 9, machine::Portrait), base::RuntimeError);
}

TEST_F(PrintQueuesTest, TellsTheConditionOfEach) {
    EXPECT_EQ(Printers.Condition(1).Name, "Archief");
    EXPECT_EQ(Printers.Condition(2).Name, "Eigen");
    EXPECT_THROW(Printers.Condition(3), base::RuntimeError);
}

TEST_F(PrintQueuesTest, TakesItsOwnForTheDefaultWhereTheUserHasNone) {
    EXPECT_EQ(Printers.DefaultIndex(), 2);
    Default = 1;
    Printers.Refresh();
    EXPECT_EQ(Printers.DefaultIndex(), 1);
    Default = 2; // no queue's place
    Printers.Refresh();
    EXPECT_EQ(Printers.DefaultIndex(), 2);
}

TEST_F(PrintQueuesTest, StaysAsItWasWhereTheServerDoesNotAnswer) {
    ASSERT_EQ(Printers.Count(), 3);
    Names = {};
    Answers = false;
    Printers.Refresh();
    EXPECT_EQ(Printers.Count(), 3);
    Answers = true;
    Printers.Refresh();
    EXPECT_EQ(Printers.Count(), 1);
}

TEST_F(PrintQueuesTest, FailsBeyondItsEnd) {
    for (const int index : {-1, 3}) {
        try {
            Printers.Queue(index);
            ADD_FAILURE() << index;
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.Number(), base::ErrorSubscriptOutOfRange);
            EXPECT_EQ(error.Description(), "Deze printer bestaat niet.");
        }
    }
}

} // namespace
} // namespace desktop::cups
