#include "printmanager/PrintLog.h"

#include <fstream>
#include <sstream>

#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;

namespace {

const std::string Start = "Start ---------------------------------------------------------------------";
const std::string End = "Einde ---------------------------------------------------------------------";

class PrintLogTest : public ManagerTest {
  protected:
    PrintLogTest() {
        memory.clock.Set(
            {.Year = 2026, .Month = 3, .Day = 5, .Hour = 9, .Minute = 3, .Second = 7, .Millisecond = 0});
    }

    bool HasLog() const { return std::filesystem::exists(folder.Path() / "printrap.log"); }

    std::string Bytes() const {
        std::ifstream file(folder.Path() / "printrap.log", std::ios::binary);
        std::ostringstream all;
        all << file.rdbuf();
        return all.str();
    }

    /// The messages, after a check of what stands before and behind them.
    std::vector<std::string> Lines() const {
        const std::string stamp = "05-mrt-2026 09:03:07 : ";
        std::vector<std::string> lines;
        std::istringstream all(Bytes());
        for (std::string line; std::getline(all, line);) {
            EXPECT_TRUE(line.starts_with(stamp)) << line;
            EXPECT_TRUE(line.ends_with('\r')) << line;
            lines.push_back(line.substr(stamp.size(), line.size() - stamp.size() - 1));
        }
        return lines;
    }

    void PrintWith(std::int32_t printerInit) {
        state.PrinterInit = printerInit;
        OpenAndPick();
        manager->cboPrinterSelect(1).SetListIndex(1);
        manager->cboPrinterSelect(2).SetListIndex(1);
        manager->PreparePrinter("Laser");
    }

    InOwnFolder folder;
};

TEST_F(PrintLogTest, LineIsAppendedInTheMachinesCodePage) {
    WriteLogLine(memory.Services(), "één");
    WriteLogLine(memory.Services(), "twee");
    EXPECT_EQ(Bytes(), "05-mrt-2026 09:03:07 : \xE9\xE9n\r\n05-mrt-2026 09:03:07 : twee\r\n");
    EXPECT_EQ(memory.desktop.Yields(), 2);
}

TEST_F(PrintLogTest, FileThatCannotBeOpenedLosesItsLineAlone) {
    std::filesystem::create_directory("printrap.log");
    WriteLogLine(memory.Services(), "x");
    EXPECT_EQ(memory.desktop.Yields(), 1);
}

TEST_F(PrintLogTest, NothingIsWrittenUpTo1001) {
    InstallTwo();
    for (const std::int32_t printerInit : {100, 1000, 1001}) {
        PrintWith(printerInit);
        EXPECT_FALSE(HasLog()) << printerInit;
        CloseAndForget();
    }
}

TEST_F(PrintLogTest, From1002TheWholePreparationIsTraced) {
    InstallTwo();
    PrintWith(1002);
    EXPECT_THAT(
        Lines(),
        ElementsAre(Start, "Afdrukken           : Acceptgiroformulieren op: Laser",
                    "Papierformaat       : Legal", "Papierlade          : Lade 1",
                    // first pass
                    "Printer gevonden -> Laser", "Init papierlade     : 15", "Init papierformaat  : 9",
                    "Papierformaat en papier lade zijn nu gezet.", "1e Printer.Refresh correct doorlopen",
                    "Na Printer.Refresh (1)", "Init papierlade     : 1", "Init papierformaat  : 5",
                    // second pass
                    "Printer gevonden -> Laser", "Init papierlade     : 1", "Init papierformaat  : 5",
                    "Papierformaat en papier lade zijn nu gezet.", "1e Printer.Refresh correct doorlopen",
                    "Na Printer.Refresh (1)", "Init papierlade     : 1", "Init papierformaat  : 5",
                    // the end
                    "Na Printer.Refresh (2)", "Init papierlade     : 1", "Init papierformaat  : 5",
                    "Printer staat klaar om te printen naar:", "Papierlade          : 1",
                    "Papierformaat       : 5", End));
}

TEST_F(PrintLogTest, Above2000AThirdPassIsTraced) {
    InstallTwo();
    PrintWith(2001);
    const std::vector<std::string> lines = Lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Printer gevonden -> Laser"), 3);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Na Printer.Refresh (1)"), 3);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Na Printer.Refresh (2)"), 1);
    EXPECT_EQ(lines.front(), Start);
    EXPECT_EQ(lines.back(), End);
    EXPECT_EQ(lines.size(), 35U);
}

TEST_F(PrintLogTest, TwoPreparationsLeaveTwoTraces) {
    InstallTwo();
    PrintWith(1002);
    manager->PreparePrinter("Laser");
    std::vector<std::string> lines = Lines();
    ASSERT_EQ(lines.size(), 54U);
    const std::vector<std::string> second(lines.begin() + 27, lines.end());
    lines.resize(27);
    EXPECT_EQ(lines.front(), Start);
    EXPECT_EQ(lines.back(), End);
    // The second begins where the first ended, with the paper and bin that are now the printer's own.
    lines[5] = "Init papierlade     : 1";
    lines[6] = "Init papierformaat  : 5";
    EXPECT_EQ(second, lines);
}

TEST_F(PrintLogTest, RunOf1002IsThisFileByteForByte) {
    InstallTwo();
    memory.printers.Find("Laser")->Papers[1].Name = "Legal, één zijde";
    state.DocumentTitle[1] = "Namenlijst €";
    AddCaller("frmCaller");
    OpenAndPick();
    manager->cboPrinterSelect(1).SetListIndex(1);
    manager->cboPrinterSelect(2).SetListIndex(1);
    state.PrinterInit = 1002;
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    const std::string pass[] = {"Papierformaat en papier lade zijn nu gezet.",
                                "1e Printer.Refresh correct doorlopen", "Na Printer.Refresh (1)",
                                "Init papierlade     : 1", "Init papierformaat  : 5"};
    std::vector<std::string> lines = {Start,
                                      "Afdrukken           : Namenlijst \x80 op: Laser",
                                      "Papierformaat       : Legal, \xE9\xE9n zijde",
                                      "Papierlade          : Lade 1",
                                      "Printer gevonden -> Laser",
                                      "Init papierlade     : 15",
                                      "Init papierformaat  : 9"};
    lines.insert(lines.end(), std::begin(pass), std::end(pass));
    lines.insert(lines.end(),
                 {"Printer gevonden -> Laser", "Init papierlade     : 1", "Init papierformaat  : 5"});
    lines.insert(lines.end(), std::begin(pass), std::end(pass));
    lines.insert(lines.end(), {"Na Printer.Refresh (2)", "Init papierlade     : 1", "Init papierformaat  : 5",
                               "Printer staat klaar om te printen naar:", "Papierlade          : 1",
                               "Papierformaat       : 5", End});
    std::string file;
    for (const std::string& line : lines) {
        file += "05-mrt-2026 09:03:07 : " + line + "\r\n";
    }
    EXPECT_EQ(Bytes(), file);
}

TEST_F(PrintLogTest, OldLinesStay) {
    std::ofstream(folder.Path() / "printrap.log", std::ios::binary) << "oud\r\n";
    WriteLogLine(memory.Services(), "nieuw");
    EXPECT_EQ(Bytes(), "oud\r\n05-mrt-2026 09:03:07 : nieuw\r\n");
}

TEST_F(PrintLogTest, LogThatCannotBeWrittenChangesNothingElse) {
    InstallTwo();
    AddCaller("frmCaller");
    state.PrinterInit = 1002;
    std::vector<std::string> traces[2];
    for (std::vector<std::string>& trace : traces) {
        OpenAndPick();
        trace = TraceOf([&] { manager->cmdPrint.UserClick(); });
        memory.printers.Find("Laser")->Defaults = {};
        memory.printer.Assign(0);
        state.CallerFormName = "frmCaller";
        Set("CurrentPrinter", "");
        std::filesystem::remove("printrap.log");
        std::filesystem::create_directory("printrap.log"); // for the second run
    }
    EXPECT_EQ(traces[0], traces[1]);
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_THAT(Messages(), testing::IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty("printrap.log"));
}

TEST_F(PrintLogTest, LoggingIsDecidedAtTheStartOfAPreparation) {
    InstallTwo();
    OpenAndPick();
    state.PrinterInit = 1002;
    memory.desktop.OnYield = [this] { state.PrinterInit = 100; };
    manager->PreparePrinter("Laser");
    EXPECT_EQ(Lines().back(), End);
    state.PrinterInit = 100;
    memory.desktop.OnYield = [this] { state.PrinterInit = 1002; };
    std::filesystem::remove("printrap.log");
    manager->PreparePrinter("Laser");
    memory.desktop.OnYield = nullptr;
    EXPECT_FALSE(HasLog());
}

TEST_F(PrintLogTest, FailedPreparationLeavesAStartWithoutEndAndTheNextOneFollows) {
    InstallTwo();
    PrintWith(1002);
    std::filesystem::remove("printrap.log");
    memory.recorder.Fail("PaperBin");
    manager->PreparePrinter("Laser");
    manager->PreparePrinter("Laser");
    const std::vector<std::string> lines = Lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), Start), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), End), 1);
    EXPECT_EQ(lines[7], Start); // behind the second line of the papers and bins
}

TEST_F(PrintLogTest, PrinterWithoutListsLeavesAStartWithoutEnd) {
    InstallTwo();
    Set("CurrentPrinter", "Laser");
    state.PrinterInit = 1002;
    OpenAndPick();
    manager->PreparePrinter("Laser");
    EXPECT_THAT(Lines(),
                ElementsAre(Start, "Afdrukken           : Acceptgiroformulieren op: Laser",
                            "Papierformaat       : ", "Papierlade          : ", "Printer gevonden -> Laser",
                            "Init papierlade     : 15", "Init papierformaat  : 9"));
}

TEST_F(PrintLogTest, UnknownPrinterLeavesOutWhatWasNotFound) {
    InstallTwo();
    state.PrinterInit = 1002;
    OpenAndPick();
    manager->PreparePrinter("Weg");
    const std::vector<std::string> lines = Lines();
    EXPECT_EQ(lines[1], "Afdrukken           : Acceptgiroformulieren op: Weg");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Printer gevonden -> Laser"), 0);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "1e Printer.Refresh correct doorlopen"), 0);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Na Printer.Refresh (1)"), 2);
}

TEST_F(PrintLogTest, FailureInALinesValueEndsThePreparation) {
    InstallTwo();
    state.PrinterInit = 1002;
    OpenAndPick();
    memory.recorder.Fail("DeviceName");
    manager->PreparePrinter("Laser");
    EXPECT_EQ(Lines().size(), 4U);
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrintLogTest, EveryLineYieldsOnce) {
    InstallTwo();
    state.PrinterInit = 1001;
    OpenAndPick();
    int before = memory.desktop.Yields();
    manager->PreparePrinter("Laser");
    const int silent = memory.desktop.Yields() - before;
    state.PrinterInit = 1002;
    before = memory.desktop.Yields();
    manager->PreparePrinter("Laser");
    // Five waits of one yield more, and 27 lines.
    EXPECT_EQ(memory.desktop.Yields() - before, silent + 5 + 27);
}

} // namespace
} // namespace printmanager
