// Queues that tell no bins, or nothing of what they have.
#include <gmock/gmock.h>

#include "print/queues/QueuesFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BareQueuesTest : public QueuesTest {
  protected:
    BareQueuesTest() : QueuesTest({OneTray, Raw}) {}

    /// Opens the manager on a queue, and does what it then takes to print on its third paper or its only one.
    void PrintOn(const std::string& queue, const std::vector<std::string>& papers, const std::string& paper) {
        StartProgram();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(0, queue);
            EXPECT_FALSE(Program->Manager().blnNoConnection);
            EXPECT_EQ(Label(6), queue);
            EXPECT_EQ(Entries(1), papers);
            EXPECT_THAT(Entries(2), ElementsAre("Automatisch"));
            Program->Pick(1, paper);
            Program->Print(NameList);
        });
        EXPECT_THAT(Messages(), IsEmpty());
        Program.reset();
        EXPECT_FALSE(HasUserFile());
    }

    std::uint32_t Fields(const std::string& queue) {
        machine::PrinterHandle handle = 0;
        EXPECT_TRUE(Program->Spooler.OpenPrinterA(queue, handle, {}));
        machine::DEVMODE mode{};
        Program->Spooler.DocumentPropertiesA(handle, queue, &mode, nullptr, machine::DM_OUT_BUFFER);
        Program->Spooler.ClosePrinter(handle);
        return mode.dmFields;
    }
};

TEST_F(BareQueuesTest, AQueueWithoutBinsHasTheAutomaticOneAndIsToldNoTray) {
    PrintOn(OneTray.Name.toStdString(), {"A4 blanco", "A4 zonder rand", "US Legal", "Acceptgiro 3 op 1"},
            "US Legal");
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["PageSize"], "Legal");
    EXPECT_FALSE(job->Options.contains("InputSlot"));
    EXPECT_FALSE(job->Options.contains("media-source"));
}

TEST_F(BareQueuesTest, ARawQueueHasItsDefaultSheetAndIsToldNoPaper) {
    PrintOn(Raw.Name.toStdString(), {"A4"}, "A4");
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    for (const char* option : {"PageSize", "media", "InputSlot", "media-source"}) {
        EXPECT_FALSE(job->Options.contains(option)) << option;
    }
}

TEST_F(BareQueuesTest, OfferNothingThatCouldBeStored) {
    StartProgram();
    EXPECT_EQ(Fields(OneTray.Name.toStdString()),
              static_cast<std::uint32_t>(machine::DM_ORIENTATION | machine::DM_PAPERSIZE));
    EXPECT_EQ(Fields(Raw.Name.toStdString()), static_cast<std::uint32_t>(machine::DM_ORIENTATION));
}

} // namespace
