#include <cstring>

#include <gtest/gtest.h>

#include "desktop/cups/CupsSpooler.h"
#include "desktop/cups/CupsStatus.h"
#include "desktop/cups/PaperTable.h"
#include "unit/desktop/cups/FakeQueue.h"

namespace desktop::cups {
namespace {

class SpoolerTest : public testing::Test {
  protected:
    SpoolerTest() {
        OfferTwoOfEach(*Queue);
        Own->QueueName = "PDF-bestand";
    }

    machine::PrinterHandle Open(const std::string& name = "Kantoor") {
        machine::PrinterHandle handle = 99;
        const bool opened = Spooler.OpenPrinterA(name, handle, {nullptr, nullptr, machine::PrinterAccessUse});
        EXPECT_EQ(opened, handle != 0);
        return handle;
    }

    machine::DEVMODE Mode(machine::PrinterHandle handle) {
        machine::DEVMODE mode{};
        EXPECT_EQ(Spooler.DocumentPropertiesA(handle, "Kantoor", &mode, nullptr, machine::DM_OUT_BUFFER), 1);
        return mode;
    }

    FakeQueue* Queue = new FakeQueue; // owned by the list
    std::shared_ptr<FakeQueue> Own = std::make_shared<FakeQueue>();
    PrintQueues Printers{[this] {
                             FoundQueues found;
                             found.Queues.emplace_back(Queue);
                             found.Default = 0;
                             return found;
                         },
                         Own};
    CupsSpooler Spooler{Printers};

    void SetUp() override { ASSERT_EQ(Printers.Count(), 2); }
};

TEST_F(SpoolerTest, OpensByNameAndClosesOnce) {
    const machine::PrinterHandle handle = Open();
    EXPECT_NE(handle, 0U);
    EXPECT_NE(Open("PDF-bestand"), 0U);
    EXPECT_EQ(Open("kantoor"), 0U);
    EXPECT_EQ(Open(""), 0U);
    EXPECT_TRUE(Spooler.ClosePrinter(handle));
    EXPECT_FALSE(Spooler.ClosePrinter(handle));
    Queue->IsReachable = false;
    EXPECT_EQ(Open(), 0U);
}

TEST_F(SpoolerTest, AnOpenPrinterThatIsGoneFails) {
    const machine::PrinterHandle handle = Open();
    Queue->QueueName = "Elders";
    machine::DEVMODE mode{};
    EXPECT_LT(Spooler.DocumentPropertiesA(handle, "Kantoor", &mode, nullptr, machine::DM_OUT_BUFFER), 0);
    EXPECT_TRUE(Spooler.ClosePrinter(handle));
}

TEST_F(SpoolerTest, CountsNoPapersOfAPrinterThatCannotBeAsked) {
    Queue->IsReachable = false;
    EXPECT_EQ(Spooler.DeviceCapabilitiesA("Kantoor", "", machine::DC_PAPERNAMES, nullptr), -1);
    EXPECT_EQ(Spooler.DeviceCapabilitiesA("Kantoor", "", machine::DC_BINS, nullptr), -1);
}

TEST_F(SpoolerTest, FindsANameOfAnyLetters) {
    for (const char* name : {"Büro", "Privé-A4", "Принтер", "印刷"}) {
        Queue->QueueName = name;
        EXPECT_NE(Open(Spooler.Encode(name)), 0U) << name;
        EXPECT_EQ(Spooler.DeviceCapabilitiesA(Spooler.Encode(name), "", machine::DC_PAPERS, nullptr), 2)
            << name;
        EXPECT_EQ(Spooler.Decode(Spooler.Encode(name)), name);
    }
}

TEST_F(SpoolerTest, TellsWhatIsWrongWithTheStoredDefaults) {
    EXPECT_EQ(Spooler.Trouble("Kantoor"), "");
    Queue->TroubleText = "lpoptions is niet te lezen";
    EXPECT_EQ(Spooler.Trouble("Kantoor"), "lpoptions is niet te lezen");
    EXPECT_EQ(Spooler.Trouble("Elders"), "");
}

TEST_F(SpoolerTest, OpensAgainAfterAFailedCountOrOpen) {
    Queue->IsReachable = false;
    EXPECT_EQ(Spooler.DeviceCapabilitiesA("Kantoor", "", machine::DC_PAPERNAMES, nullptr), -1);
    EXPECT_EQ(Open(), 0U);
    Queue->IsReachable = true;
    EXPECT_NE(Open(), 0U);
}

TEST_F(SpoolerTest, TellsTheSettingsAndWhatIsOffered) {
    const machine::PrinterHandle handle = Open();
    EXPECT_EQ(Spooler.DocumentPropertiesA(handle, "Kantoor", nullptr, nullptr, 0), 124);
    machine::DEVMODE mode = Mode(handle);
    EXPECT_STREQ(mode.dmDeviceName, "Kantoor");
    EXPECT_EQ(mode.dmSize, 124);
    EXPECT_EQ(mode.dmFields, static_cast<std::uint32_t>(machine::DM_ORIENTATION | machine::DM_PAPERSIZE |
                                                        machine::DM_DEFAULTSOURCE));
    EXPECT_EQ(mode.dmOrientation, 1);
    EXPECT_EQ(mode.dmPaperSize, 9);
    EXPECT_EQ(mode.dmDefaultSource, 1);
    EXPECT_EQ(mode.dmCopies, 3);
    Queue->BinList.clear();
    mode = Mode(handle);
    EXPECT_EQ(mode.dmFields, static_cast<std::uint32_t>(machine::DM_ORIENTATION | machine::DM_PAPERSIZE));
}

TEST_F(SpoolerTest, FailsWithAHandleThatIsNotOpen) {
    machine::DEVMODE mode{};
    std::uint32_t needed = 7;
    EXPECT_LT(Spooler.DocumentPropertiesA(77, "Kantoor", &mode, nullptr, 0), 0);
    EXPECT_FALSE(Spooler.GetPrinterA(77, 2, nullptr, 0, needed));
    EXPECT_EQ(needed, 0U);
    machine::PRINTER_INFO_2 info{};
    EXPECT_FALSE(Spooler.SetPrinterA(77, 2, &info, 0));
    EXPECT_FALSE(Spooler.ClosePrinter(77));
}

TEST_F(SpoolerTest, MakesChangedSettingsValid) {
    const machine::PrinterHandle handle = Open();
    machine::DEVMODE mode = Mode(handle);
    mode.dmPaperSize = 300;
    mode.dmDefaultSource = 14; // not there
    mode.dmOrientation = 9;    // no orientation
    EXPECT_EQ(Spooler.DocumentPropertiesA(handle, "Kantoor", &mode, &mode,
                                          machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER),
              1);
    EXPECT_EQ(mode.dmPaperSize, 300);
    EXPECT_EQ(mode.dmDefaultSource, 1);
    EXPECT_EQ(mode.dmOrientation, 1);
    EXPECT_EQ(Mode(handle).dmPaperSize, 9); // nothing is stored by that
    EXPECT_LT(Spooler.DocumentPropertiesA(handle, "Kantoor", &mode, nullptr,
                                          machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER),
              0);
    EXPECT_LT(Spooler.DocumentPropertiesA(handle, "Kantoor", nullptr, nullptr, machine::DM_OUT_BUFFER), 0);
}

TEST_F(SpoolerTest, StoresDefaultsAndReadsThemBack) {
    const machine::PrinterHandle handle = Open();
    machine::DEVMODE mode = Mode(handle);
    mode.dmPaperSize = 300;
    mode.dmDefaultSource = 256;
    mode.dmOrientation = 2;
    machine::PRINTER_INFO_2 info{};
    info.pDevMode = &mode;
    EXPECT_TRUE(Spooler.SetPrinterA(handle, 2, &info, 0));
    EXPECT_EQ(Mode(handle).dmPaperSize, 300);
    EXPECT_EQ(Mode(handle).dmDefaultSource, 256);
    EXPECT_EQ(Mode(handle).dmOrientation, 2);
    mode.dmFields = 0; // a field that is not named stays
    mode.dmPaperSize = 9;
    EXPECT_TRUE(Spooler.SetPrinterA(handle, 2, &info, 0));
    EXPECT_EQ(Mode(handle).dmPaperSize, 300);

    info.pDevMode = nullptr;
    EXPECT_FALSE(Spooler.SetPrinterA(handle, 2, &info, 0));
    EXPECT_FALSE(Spooler.SetPrinterA(handle, 2, nullptr, 0));
    EXPECT_FALSE(Spooler.SetPrinterA(handle, 1, &info, 0));
    EXPECT_FALSE(Spooler.SetPrinterA(handle, 2, &info, 1));
}

TEST_F(SpoolerTest, TellsNamePortCommentAndStatus) {
    const machine::PrinterHandle handle = Open();
    std::uint32_t needed = 0;
    EXPECT_FALSE(Spooler.GetPrinterA(handle, 2, nullptr, 0, needed));
    ASSERT_GT(needed, sizeof(machine::PRINTER_INFO_2));
    std::vector<char> buffer(needed);
    EXPECT_FALSE(Spooler.GetPrinterA(handle, 2, buffer.data(), needed - 1, needed));
    ASSERT_TRUE(Spooler.GetPrinterA(handle, 2, buffer.data(), needed, needed));
    machine::PRINTER_INFO_2 info;
    std::memcpy(&info, buffer.data(), sizeof info);
    EXPECT_STREQ(info.pPrinterName, "Kantoor");
    EXPECT_STREQ(info.pPortName, "ipp://printer.example/ipp/print");
    EXPECT_STREQ(info.pComment, "Kamer 1, \xE2\x82\xAC 5 \xE6\xBC\xA2");
    EXPECT_STREQ(info.pDriverName, "Driver");
    EXPECT_EQ(info.Status, 16U);
    machine::DEVMODE mode;
    std::memcpy(&mode, info.pDevMode, sizeof mode);
    EXPECT_EQ(mode.dmPaperSize, 9);
    EXPECT_FALSE(Spooler.GetPrinterA(handle, 1, buffer.data(), needed, needed));
}

TEST_F(SpoolerTest, ListsPapersAndBinsWithNamesThatAreClosed) {
    const auto ask = [this](std::uint16_t capability, void* output) {
        return Spooler.DeviceCapabilitiesA("Kantoor", "", capability, output);
    };
    ASSERT_EQ(ask(machine::DC_PAPERS, nullptr), 2);
    std::int16_t ids[2] = {};
    EXPECT_EQ(ask(machine::DC_PAPERS, ids), 2);
    EXPECT_EQ(ids[0], 9);
    EXPECT_EQ(ids[1], 300);
    std::int32_t sizes[4] = {};
    EXPECT_EQ(ask(machine::DC_PAPERSIZE, sizes), 2);
    EXPECT_EQ(sizes[0], 2100);
    EXPECT_EQ(sizes[1], 2970);
    EXPECT_EQ(sizes[2], 100);
    EXPECT_EQ(sizes[3], 200);
    char papers[2][64];
    EXPECT_EQ(ask(machine::DC_PAPERNAMES, papers), 2);
    EXPECT_STREQ(papers[0], "A4");
    EXPECT_EQ(std::string(papers[1]), std::string(63, 'n'));
    EXPECT_EQ(ask(machine::DC_BINS, ids), 2);
    EXPECT_EQ(ids[1], 256);
    char bins[2][24];
    EXPECT_EQ(ask(machine::DC_BINNAMES, bins), 2);
    EXPECT_STREQ(bins[0], "Bovenste lade");
    EXPECT_EQ(std::string(bins[1]), std::string(23, 'b'));
    EXPECT_EQ(ask(1, nullptr), -1);
    EXPECT_EQ(Spooler.DeviceCapabilitiesA("Elders", "", machine::DC_PAPERS, nullptr), -1);
}

TEST(StatusBitsTest, MapsStateAndReasons) {
    EXPECT_EQ(StatusBits("3", "none", "true"), 0U);
    EXPECT_EQ(StatusBits("", "", ""), 0U);
    EXPECT_EQ(StatusBits("5", "paused", "true"), 1U);
    EXPECT_EQ(StatusBits("4", "none", "true"), 1024U);
    EXPECT_EQ(StatusBits("3", "media-empty-error,offline-report", "true"), 16U | 128U);
    EXPECT_EQ(StatusBits("3", "media-jam", "false"), 8U | 4096U);
    EXPECT_EQ(StatusBits("3", "something-new-error", "true"), 2U);
    EXPECT_EQ(StatusBits("3", "something-new-warning,,,", "true"), 0U);
    EXPECT_EQ(StatusBits("3", "toner-low-warning,door-open-error", "true"), 131072U | 4194304U);
}

TEST(PaperTableTest, KnowsTheCodesOfWindows) {
    EXPECT_EQ(PaperCode("iso_a4_210x297mm"), 9);
    EXPECT_EQ(PaperCode("na_legal_8.5x14in"), 5);
    EXPECT_EQ(PaperCode("iso_dl_110x220mm"), 27);
    EXPECT_EQ(PaperCode("custom_1_1x1mm"), 0);
    EXPECT_EQ(BinCode("Upper"), 1);
    EXPECT_EQ(BinCode("AUTO"), 7);
    EXPECT_EQ(BinCode("Tray1"), 0);
}

} // namespace
} // namespace desktop::cups
