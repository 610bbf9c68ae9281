#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

std::string Yields(int count) {
    return "yield*" + std::to_string(count);
}

const Lines Reload = {"caps 16",     "caps 2",     "caps 16",    "caps 3",     "caps 6",
                      "caps 6",      "caps 12",    "open Laser", "size",       "fetch",
                      "close Laser", "open Laser", "size",       "fetch",      "close Laser",
                      "open Laser",  "size",       "fetch",      "close Laser"};

/// One pass over the printer Laser with `wait` yields in each wait. `paper` is the stored one before the bin
/// is set.
Lines Pass(int wait, int yieldsAtEnd, const std::string& oldBin = "15") {
    return {"Printer=Laser",
            "store MatrixPrinter=0",
            "open Laser",
            "size",
            "fetch",
            "merge paper=5 bin=" + oldBin,
            "info size",
            "info",
            "set paper=5 bin=" + oldBin,
            "close Laser",
            Yields(21),
            "PaperSize=5",
            Yields(1),
            "open Laser",
            "size",
            "fetch",
            "merge paper=5 bin=1",
            "info size",
            "info",
            "set paper=5 bin=1",
            "close Laser",
            Yields(21),
            "PaperBin=1",
            Yields(1 + wait),
            "Printer=Laser",
            Yields(yieldsAtEnd)};
}

class PrepareTest : public ManagerTest {
  protected:
    PrepareTest() { InstallTwo(); }

    /// The user has chosen the second paper and the second bin of the printer Laser.
    void Choose() {
        OpenAndPick();
        manager->cboPrinterSelect(1).SetListIndex(1);
        manager->cboPrinterSelect(2).SetListIndex(1);
    }

    Lines Prepare(std::int32_t printerInit, const std::string& name = "Laser") {
        state.PrinterInit = printerInit;
        return TraceOf([&] { manager->PreparePrinter(name); });
    }

    memory::PrintQueue& Laser() { return *memory.printers.Find("Laser"); }
    memory::PrintQueue& Inkt() { return *memory.printers.Find("Inkt"); }

    InOwnFolder folder;
};

TEST_F(PrepareTest, EmptyNameDoesNothing) {
    Choose();
    EXPECT_THAT(Prepare(2001, ""), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists("printrap.log"));
}

TEST_F(PrepareTest, OnePassUpTo1000) {
    for (const int init : {100, 1000}) {
        Choose();
        EXPECT_EQ(Prepare(init), Pass(init, init)) << init;
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_FALSE(std::filesystem::exists("printrap.log"));
        CloseAndForget();
        Laser().Defaults = {};
    }
}

TEST_F(PrepareTest, TwoPassesAndNoLogAt1001) {
    Choose();
    EXPECT_EQ(Prepare(1001),
              Joined({Pass(1001, 1001), Reload, Pass(1001, 1001, "1"), {"Printer=Laser", Yields(1001)}}));
    EXPECT_FALSE(std::filesystem::exists("printrap.log"));
}

// With the log on, each line yields once: four lines at the start, three before the first write, one behind
// the writes, one and three at the refresh, three at the second refresh and four at the end.
Lines LoggedPass(int wait, const std::string& oldBin) {
    Lines lines = Pass(wait, 0, oldBin);
    lines.insert(lines.begin() + 1, Yields(1));
    lines.insert(lines.begin() + 3, Yields(2));
    lines[lines.size() - 3] = Yields(1 + 1 + wait + 1);
    lines.back() = Yields(3 + wait);
    return lines;
}

TEST_F(PrepareTest, TwoPassesAndLogFrom1002To2000) {
    for (const int init : {1002, 2000}) {
        Choose();
        EXPECT_EQ(Prepare(init), Joined({{Yields(4)},
                                         LoggedPass(init, "15"),
                                         Reload,
                                         LoggedPass(init, "1"),
                                         {"Printer=Laser", Yields(init + 3 + 4)}}))
            << init;
        EXPECT_TRUE(std::filesystem::exists("printrap.log"));
        CloseAndForget();
        Laser().Defaults = {};
    }
}

TEST_F(PrepareTest, ThreePassesAndOneWaitMoreAbove2000) {
    Choose();
    Lines second = LoggedPass(2001, "1");
    second.back() = Yields(3 + 2001 + 2001);
    EXPECT_EQ(Prepare(2001), Joined({{Yields(4)},
                                     LoggedPass(2001, "15"),
                                     Reload,
                                     second,
                                     Reload,
                                     LoggedPass(2001, "1"),
                                     {"Printer=Laser", Yields(2001 + 3 + 4)}}));
}

TEST_F(PrepareTest, LaterPassAppliesWhatTheDriverThenReports) {
    Laser().Fields = machine::DM_PAPERSIZE; // the driver takes no bin
    Choose();
    Prepare(1001);
    Lines sets;
    for (const std::string& line : Trace()) {
        if (line.starts_with("PaperBin=")) {
            sets.push_back(line);
        }
    }
    EXPECT_THAT(sets, ElementsAre("PaperBin=1", "PaperBin=15"));
}

TEST_F(PrepareTest, DriverWithoutBinBitIsLeftAloneAndTheBinSetOnThePrinter) {
    Laser().Fields = machine::DM_PAPERSIZE;
    Choose();
    Prepare(100);
    EXPECT_EQ(Laser().Defaults.PaperSize, 5);
    EXPECT_EQ(Laser().Defaults.DefaultSource, 15);
    EXPECT_THAT(Trace(), testing::Contains("PaperBin=1"));
}

TEST_F(PrepareTest, RefusedWritesLeaveThePrinterObjectSet) {
    Choose();
    memory.recorder.Fail("SetPrinterA", 2);
    Prepare(100);
    EXPECT_EQ(Laser().Defaults.PaperSize, 9);
    EXPECT_THAT(Trace(), testing::IsSupersetOf({"PaperSize=5", "PaperBin=1"}));
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, PrinterWithoutListsIsMadeCurrentAndMarkedAndLeftAlone) {
    Set("CurrentPrinter", "Inkt");
    OpenAndPick();
    manager->chkMatrixPrinter.UserClick();
    EXPECT_THAT(Prepare(100, "Inkt"), ElementsAre("Printer=Inkt", "store MatrixPrinter=1"));
    EXPECT_TRUE(state.MatrixPrinter);
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, MatrixMarkIsTakenBack) {
    state.MatrixPrinter = true;
    Choose();
    manager->chkMatrixPrinter.UserClick();
    Prepare(100);
    EXPECT_FALSE(state.MatrixPrinter);
    EXPECT_EQ(Stored("MatrixPrinter"), "0");
}

TEST_F(PrepareTest, EmptyBinComboEndsThePreparation) {
    Choose();
    manager->cboPrinterSelect(2).Clear();
    EXPECT_THAT(Prepare(100), ElementsAre("Printer=Laser", "store MatrixPrinter=0"));
}

TEST_F(PrepareTest, OtherNameThanInTheComboReloadsTheLists) {
    Choose();
    Prepare(100, "Inkt");
    const Lines lines = Trace();
    EXPECT_EQ(lines[2], "caps 16");
    EXPECT_EQ(lines[9], "open Inkt");
    EXPECT_EQ(Inkt().Defaults.PaperSize, 9);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "caps 16"), 2); // once, and twice asked in it
    EXPECT_EQ(memory.printer.DeviceName(), "Inkt");
}

TEST_F(PrepareTest, NameThatDiffersInCaseAndBlanksReloadsNothing) {
    Choose();
    EXPECT_THAT(Prepare(100, " LASER "), testing::Not(testing::Contains("caps 16")));
    EXPECT_THAT(Trace(), testing::Contains("PaperSize=5"));
    EXPECT_THAT(Trace(), testing::Not(testing::Contains("Printer=Laser")));
}

TEST_F(PrepareTest, PositionOfNoneEndsThePreparation) {
    Choose();
    manager->cboPrinterSelect(1).SetListIndex(-1);
    EXPECT_THAT(Prepare(100), ElementsAre("Printer=Laser", "store MatrixPrinter=0"));
    EXPECT_FALSE(manager->blnBusy);
    manager->cboPrinterSelect(1).SetListIndex(1);
    manager->cboPrinterSelect(2).SetListIndex(-1);
    EXPECT_THAT(Prepare(100), testing::Contains("PaperSize=5"));
    EXPECT_THAT(Trace(), testing::Not(testing::Contains("PaperBin=1")));
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, FailureOfThePrinterIsDropped) {
    Choose();
    for (const char* call : {"Printer", "PaperSize", "PaperBin", "Printers"}) {
        memory.recorder.Fail(call);
        Prepare(100);
        EXPECT_FALSE(manager->blnBusy) << call;
        EXPECT_TRUE(memory.desktop.Messages().empty());
    }
}

TEST_F(PrepareTest, BusyShieldsTheCommandsWhileItWorks) {
    Choose();
    bool busy = true;
    bool closed = false;
    memory.desktop.OnYield = [&] {
        busy = busy && manager->blnBusy;
        closed = closed || manager->UserClose();
    };
    Prepare(100);
    memory.desktop.OnYield = nullptr;
    EXPECT_TRUE(busy);
    EXPECT_FALSE(closed);
}

/// Numbers of the yields, from 1, at which `holds` does not hold.
class YieldsWithout {
  public:
    YieldsWithout(memory::MemoryDesktop& desktop, std::function<bool()> holds) : desktop_(desktop) {
        desktop_.OnYield = [this, holds = std::move(holds), number = 0]() mutable {
            ++number;
            if (!holds()) {
                all.push_back(number);
            }
        };
    }
    ~YieldsWithout() { desktop_.OnYield = nullptr; }
    YieldsWithout(const YieldsWithout&) = delete;
    YieldsWithout& operator=(const YieldsWithout&) = delete;

    std::vector<int> all;

  private:
    memory::MemoryDesktop& desktop_;
};

TEST_F(PrepareTest, FlagIsDownFromTheReloadForAnotherNameToTheEndOfThePass) {
    Choose();
    state.PrinterInit = 100;
    const YieldsWithout open(memory.desktop, [this] { return bool{manager->blnBusy}; });
    manager->PreparePrinter("Inkt");
    EXPECT_EQ(open.all.size(), 244U);
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, FlagIsDownInTheLinesAheadOfEachPass) {
    Choose();
    state.PrinterInit = 1002;
    const YieldsWithout open(memory.desktop, [this] { return bool{manager->blnBusy}; });
    manager->PreparePrinter("Laser");
    // Four lines at the start and three before the flag goes up; the reload takes it down, and three lines
    // follow.
    const int second = 7 + 44 + 2 * 1002 + 5 + 1;
    EXPECT_THAT(open.all, ElementsAre(1, 2, 3, 4, 5, 6, 7, second, second + 1, second + 2));
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, CloseThroughTheHoleEndsInAClosedForm) {
    AddCaller("frmCaller");
    Choose();
    memory.desktop.OnYield = [this] {
        if (!manager->blnBusy) {
            memory.desktop.OnYield = nullptr;
            EXPECT_TRUE(manager->UserClose());
        }
    };
    Prepare(100, "Inkt");
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_EQ(Inkt().Defaults.PaperSize, 9);
}

TEST_F(PrepareTest, ReloadThatFailsKeepsTheUsersChoiceAndTheFlag) {
    Choose();
    memory.desktop.OnYield = [this] {
        if (memory.desktop.Yields() == 1) {
            memory.recorder.Fail("DeviceCapabilitiesA");
        }
    };
    Prepare(1001);
    memory.desktop.OnYield = nullptr;
    Lines sets;
    for (const std::string& line : Trace()) {
        if (line.starts_with("Paper")) {
            sets.push_back(line);
        }
    }
    EXPECT_THAT(sets, ElementsAre("PaperSize=5", "PaperBin=1", "PaperSize=5", "PaperBin=1"));
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrepareTest, ReloadSelectsWhatTheDriverReportsNotWhatTheUserSaw) {
    Choose();
    memory.recorder.Fail("SetPrinterA", 2);
    Prepare(1001);
    EXPECT_EQ(manager->cboPrinterSelect(1).ListIndex(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(2).ListIndex(), 0);
    EXPECT_EQ(memory.printer.PaperSize(), 9);
    EXPECT_EQ(memory.printer.PaperBin(), 15);
}

struct YieldRow {
    std::int32_t PrinterInit;
    int Yields;
};

class YieldCountTest : public PrepareTest, public testing::WithParamInterface<YieldRow> {};

// A pass yields 21, 1, 21 and 1 times around its writes, and in two waits. 1001 and more wait once more at
// the end, 2001 and more also before the third pass. A line of the log yields once: 27 with two passes, 35
// with three.
TEST_P(YieldCountTest, IsWhatTheWaitsAddUpTo) {
    Choose();
    const int before = memory.desktop.Yields();
    Prepare(GetParam().PrinterInit);
    EXPECT_EQ(memory.desktop.Yields() - before, GetParam().Yields);
}

INSTANTIATE_TEST_SUITE_P(Values, YieldCountTest,
                         testing::Values(YieldRow{100, 244}, YieldRow{1000, 2044}, YieldRow{1001, 5093},
                                         YieldRow{1002, 5125}, YieldRow{2000, 10115}, YieldRow{2001, 16175}));

TEST_F(PrepareTest, NegativeWaitIsNone) {
    Choose();
    EXPECT_THAT(Prepare(-5).back(), "Printer=Laser");
}

} // namespace
} // namespace printmanager
