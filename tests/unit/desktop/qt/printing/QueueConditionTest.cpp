#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/cups/CupsMedia.h"
#include "desktop/cups/CupsServer.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "unit/desktop/cups/FakeQueue.h"
#include "unit/desktop/qt/printing/PrintServer.h"

namespace desktop::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t Paused = 0x1;
constexpr std::uint32_t NotAvailable = 0x1000;

/// Each sheet that the queue offers, both ways up, beside what a document on it is measured with.
void ExpectSheetsAsMeasured(QtPrinters& printers, int index) {
    QtPrinter printer(printers, [](const std::string& text) { ADD_FAILURE() << text; });
    printer.Assign(index);
    std::set<std::int16_t> papers;
    for (const cups::Paper& paper : printers.Queue(index).Papers()) {
        papers.insert(paper.Id);
    }
    for (const std::int16_t paper : papers) {
        for (const std::int16_t orientation : {machine::Portrait, machine::Landscape}) {
            SCOPED_TRACE(std::to_string(paper) + " way " + std::to_string(orientation));
            const std::optional<machine::SheetArea> sheet = printers.SheetOf(index, paper, orientation);
            ASSERT_TRUE(sheet);
            printer.SetPaperSize(paper);
            printer.SetOrientation(orientation);
            constexpr double twipsPerDot = 2.4;
            const double left = printer.GetDeviceCaps(machine::CapsPhysicalOffsetX) * twipsPerDot;
            const double top = printer.GetDeviceCaps(machine::CapsPhysicalOffsetY) * twipsPerDot;
            EXPECT_EQ(sheet->Width, printer.Width());
            EXPECT_EQ(sheet->Height, printer.Height());
            EXPECT_NEAR(sheet->Left, left, 1e-6);
            EXPECT_NEAR(sheet->Top, top, 1e-6);
            EXPECT_NEAR(sheet->Right - sheet->Left, printer.ScaleWidth(), 1e-6);
            EXPECT_NEAR(sheet->Bottom - sheet->Top, printer.ScaleHeight(), 1e-6);
        }
    }
}

TEST(QueueSheetTest, OfThePdfPrinterIsTheOneThatIsDrawnOn) {
    QtPrinters printers(std::make_unique<PdfPrinter>(), [] { return cups::FoundQueues{}; });
    ExpectSheetsAsMeasured(printers, 0);
    const machine::PrinterCondition condition = printers.Condition(0);
    EXPECT_EQ(condition.Name, "PDF-bestand");
    EXPECT_TRUE(condition.Reachable);
    EXPECT_EQ(condition.Status, 0U);
    EXPECT_EQ(condition.DotsPerInch, 600);
    EXPECT_THAT(condition.Imposed, IsEmpty());
}

/// Drivers that this machine happens to have, a few of each maker.
std::vector<std::string> InstalledDrivers() {
    constexpr int mostOfAFolder = 5;
    std::vector<std::string> files;
    for (const char* const place : {"/usr/share/ppd", "/usr/share/cups/model"}) {
        std::error_code none;
        std::map<std::string, int> taken;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place, none)) {
            if (entry.path().extension() == ".ppd" &&
                taken[entry.path().parent_path().string()]++ < mostOfAFolder) {
                files.push_back(entry.path().string());
            }
        }
    }
    return files;
}

TEST(QueueSheetTest, OfRealDriversIsTheOneThatIsDrawnOn) {
    const std::vector<std::string> drivers = InstalledDrivers();
    if (drivers.empty()) {
        GTEST_SKIP() << "no printer drivers are installed";
    }
    for (const std::string& driver : drivers) {
        SCOPED_TRACE(driver);
        const std::unique_ptr<ipp_t, cups::FreeIpp> nothing(ippNew());
        auto queue = std::make_unique<cups::FakeQueue>();
        queue->PaperList = cups::MediaOfQueue(nothing.get(), driver).Papers;
        if (queue->PaperList.front().StandIn) {
            continue; // a file that nobody can read
        }
        cups::FoundQueues found;
        found.Answered = true;
        found.Queues.push_back(std::move(queue));
        QtPrinters printers(std::make_unique<PdfPrinter>(), [&found] { return std::move(found); });
        ExpectSheetsAsMeasured(printers, 0);
    }
}

class QueueConditionTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!Server.IsUp()) {
            GTEST_SKIP() << "no print server can be started here";
        }
    }

    int IndexOf(const std::string& name) {
        int index = 0;
        while (index < Printers.Count() && Printers.Item(index).DeviceName != name) {
            ++index;
        }
        return index;
    }
    machine::PrinterCondition Condition(const std::string& name = "Kantoor") {
        return Printers.Condition(IndexOf(name));
    }
    void AskAnew(const std::string& name = "Kantoor") { Printers.Find(name)->ReachableNow(); }

    PrintServer Server{{Driverless, ::Raw}};
    QtPrinters Printers;
};

TEST_F(QueueConditionTest, SheetsAreThoseThatAreDrawnOn) {
    for (const char* queue : {"Kantoor", "Driverloos"}) {
        AskAnew(queue);
        ExpectSheetsAsMeasured(Printers, IndexOf(queue));
    }
}

TEST_F(QueueConditionTest, ASheetIsKnownOnceTheQueueHasBeenAskedAlsoInTheNextList) {
    EXPECT_FALSE(Printers.SheetOf(IndexOf("Kantoor"), 9, machine::Portrait));
    AskAnew();
    EXPECT_TRUE(Printers.SheetOf(IndexOf("Kantoor"), 9, machine::Portrait));
    Printers.Refresh();
    EXPECT_TRUE(Printers.SheetOf(IndexOf("Kantoor"), 9, machine::Portrait));
}

TEST_F(QueueConditionTest, ARawQueueKnowsNoSheet) {
    AskAnew("Kaal");
    EXPECT_FALSE(Printers.SheetOf(IndexOf("Kaal"), 9, machine::Portrait));
    EXPECT_EQ(Condition("Kaal").DotsPerInch, 0);
}

TEST_F(QueueConditionTest, TheListTellsAtOnceWhetherAQueueIsReady) {
    EXPECT_EQ(Condition().Name, "Kantoor");
    EXPECT_TRUE(Condition().Reachable);
    EXPECT_EQ(Condition().Status, 0U);
    ASSERT_TRUE(Server.Run("cupsdisable", {"Kantoor"}));
    ASSERT_TRUE(Server.Run("cupsreject", {"Kantoor"}));
    EXPECT_EQ(Condition().Status, 0U) << "nobody is asked";
    Printers.Refresh();
    EXPECT_EQ(Condition().Status, Paused | NotAvailable);
}

TEST_F(QueueConditionTest, TellsWhatTheServerHasToldLast) {
    AskAnew();
    Server.Stop();
    EXPECT_TRUE(Condition().Reachable) << "nobody is asked";
    AskAnew();
    EXPECT_FALSE(Condition().Reachable);
    EXPECT_EQ(Condition().Status, 0U);
    EXPECT_FALSE(Condition("Driverloos").Reachable) << "it is on the same server";
    EXPECT_TRUE(Condition("PDF-bestand").Reachable);
    Server.Start();
    AskAnew();
    EXPECT_TRUE(Condition().Reachable);
    EXPECT_TRUE(Condition("Driverloos").Reachable);
}

TEST_F(QueueConditionTest, TellsTheResolutionAndWhatIsSetForEveryDocument) {
    QByteArray ppd = Server.Read("kantoor.ppd");
    ppd.replace("*DefaultFont:", "*DefaultResolution: 360x180dpi\n*DefaultFont:");
    ppd.replace(
        "*DefaultFont:",
        "*OpenUI *RIWatermark/Stempel: PickOne\n*DefaultRIWatermark: Off\n*RIWatermark Off/Uit: \"\"\n"
        "*RIWatermark On/Aan: \"\"\n*CloseUI: *RIWatermark\n*DefaultFont:");
    Server.Write("stempel.ppd", ppd);
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/stempel.ppd"}));
    AskAnew();
    EXPECT_EQ(Condition().DotsPerInch, 180);
    EXPECT_THAT(Condition().Imposed, IsEmpty());
    ASSERT_TRUE(Server.Run("lpoptions",
                           {"-p", "Kantoor", "-o", "RIWatermark=On", "-o", "sides=two-sided-long-edge"}));
    EXPECT_THAT(Condition().Imposed, ElementsAre("Stempel: Aan"));
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-o", "RIWatermark=On"}));
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Kantoor", "-r", "RIWatermark"}));
    AskAnew();
    EXPECT_THAT(Condition().Imposed, ElementsAre("Stempel: Aan")) << "by the server";
}

} // namespace
} // namespace desktop::qt
