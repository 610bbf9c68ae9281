#include "memory/MemorySpooler.h"

#include <cstring>
#include <vector>

#include <gmock/gmock.h>

#include "base/Text.h"
#include "memory/tests/Events.h"

namespace {

using namespace memory;

class MemorySpoolerTest : public testing::Test {
  protected:
    machine::PrinterHandle Open(const std::string& name = "Laser") {
        machine::PrinterHandle handle = 0;
        spooler.OpenPrinterA(name, handle, {nullptr, nullptr, machine::PrinterAccessUse});
        return handle;
    }

    machine::DEVMODE Present(machine::PrinterHandle handle) {
        std::vector<char> buffer(ModeSize());
        EXPECT_EQ(
            spooler.DocumentPropertiesA(handle, "Laser", buffer.data(), nullptr, machine::DM_OUT_BUFFER), 1);
        machine::DEVMODE mode;
        std::memcpy(&mode, buffer.data(), sizeof mode);
        return mode;
    }

    static std::size_t ModeSize() { return sizeof(machine::DEVMODE) + MemorySpooler::DriverExtra; }

    WatchedPlatform watched;
    MemorySpooler& spooler = watched.memory.spooler;
    PrintQueue& queue =
        watched.memory.InstallPrinter({.Name = "Laser", .Port = "USB1", .Comment = "Kamer één", .Status = 5});
};

TEST_F(MemorySpoolerTest, OpensByNameAndCloses) {
    machine::PrinterHandle handle = 99;
    EXPECT_FALSE(spooler.OpenPrinterA("Nobody", handle, {nullptr, nullptr, machine::PrinterAccessUse}));
    EXPECT_EQ(handle, 0U);
    handle = Open();
    EXPECT_NE(handle, 0U);
    EXPECT_EQ(spooler.OpenHandles(), 1U);
    EXPECT_TRUE(spooler.ClosePrinter(handle));
    EXPECT_FALSE(spooler.ClosePrinter(handle));
    EXPECT_EQ(spooler.OpenHandles(), 0U);
}

TEST_F(MemorySpoolerTest, NamesComeInTheCodePage) {
    watched.memory.InstallPrinter({.Name = "Zoë"});
    EXPECT_NE(Open(base::text::ToCodePage("Zoë")), 0U);
    EXPECT_EQ(FieldOf(watched.events.back(), "printer"), FieldOf({"", {{"printer", "Zoë"}}}, "printer"));
}

TEST_F(MemorySpoolerTest, GivesTheStoredSettings) {
    queue.Defaults = {.Orientation = 2, .PaperSize = 5, .DefaultSource = 1, .Copies = 3};
    const machine::PrinterHandle handle = Open();
    EXPECT_EQ(spooler.DocumentPropertiesA(handle, "Laser", nullptr, nullptr, 0),
              static_cast<std::int32_t>(ModeSize()));
    const machine::DEVMODE mode = Present(handle);
    EXPECT_STREQ(mode.dmDeviceName, "Laser");
    EXPECT_EQ(mode.dmSize, sizeof(machine::DEVMODE));
    EXPECT_EQ(mode.dmDriverExtra, MemorySpooler::DriverExtra);
    EXPECT_EQ(mode.dmFields, 0x303U);
    EXPECT_EQ(mode.dmOrientation, 2);
    EXPECT_EQ(mode.dmPaperSize, 5);
    EXPECT_EQ(mode.dmDefaultSource, 1);
    EXPECT_EQ(mode.dmCopies, 3);
}

TEST_F(MemorySpoolerTest, TheDriverMakesSettingsValid) {
    const machine::PrinterHandle handle = Open();
    std::vector<char> buffer(ModeSize());
    machine::DEVMODE mode = Present(handle);
    mode.dmPaperSize = 5;
    mode.dmDefaultSource = 77; // no such bin
    std::memcpy(buffer.data(), &mode, sizeof mode);
    EXPECT_EQ(spooler.DocumentPropertiesA(handle, "Laser", buffer.data(), buffer.data(),
                                          machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER),
              1);
    std::memcpy(&mode, buffer.data(), sizeof mode);
    EXPECT_EQ(mode.dmPaperSize, 5);
    EXPECT_EQ(mode.dmDefaultSource, 15);
    EXPECT_EQ(queue.Defaults.PaperSize, 9) << "nothing is stored yet";
}

TEST_F(MemorySpoolerTest, FillsAPrinterInfoOfTheSizeThatItTold) {
    const machine::PrinterHandle handle = Open();
    std::uint32_t needed = 0;
    EXPECT_FALSE(spooler.GetPrinterA(handle, 2, nullptr, 0, needed));
    ASSERT_GT(needed, sizeof(machine::PRINTER_INFO_2));
    std::vector<char> buffer(needed);
    std::uint32_t again = 0;
    EXPECT_FALSE(spooler.GetPrinterA(handle, 2, buffer.data(), needed - 1, again));
    ASSERT_TRUE(spooler.GetPrinterA(handle, 2, buffer.data(), needed, again));
    EXPECT_EQ(again, needed);
    machine::PRINTER_INFO_2 info;
    std::memcpy(&info, buffer.data(), sizeof info);
    EXPECT_STREQ(info.pPrinterName, "Laser");
    EXPECT_STREQ(info.pPortName, "USB1");
    EXPECT_EQ(base::text::FromCodePage(info.pComment), "Kamer één");
    EXPECT_EQ(info.Status, 5U);
    EXPECT_EQ(info.pDevMode->dmPaperSize, 9);
    EXPECT_GE(static_cast<void*>(info.pDevMode), static_cast<void*>(buffer.data()));
    EXPECT_FALSE(spooler.GetPrinterA(handle, 1, buffer.data(), needed, again)) << "level 2 alone";
}

TEST_F(MemorySpoolerTest, StoresDefaultsOfTheOfferedFields) {
    queue.Fields = machine::DM_PAPERSIZE;
    const machine::PrinterHandle handle = Open();
    machine::DEVMODE mode = Present(handle);
    mode.dmFields = machine::DM_PAPERSIZE | machine::DM_DEFAULTSOURCE;
    mode.dmPaperSize = 5;
    mode.dmDefaultSource = 1;
    machine::PRINTER_INFO_2 info{};
    info.pDevMode = &mode;
    EXPECT_TRUE(spooler.SetPrinterA(handle, 2, &info, 0));
    EXPECT_EQ(queue.Defaults.PaperSize, 5);
    EXPECT_EQ(queue.Defaults.DefaultSource, 15) << "the driver does not offer bins";

    mode.dmPaperSize = 9;
    watched.memory.recorder.Fail("SetPrinterA");
    EXPECT_FALSE(spooler.SetPrinterA(handle, 2, &info, 0));
    EXPECT_EQ(queue.Defaults.PaperSize, 5);
    EXPECT_FALSE(spooler.SetPrinterA(handle, 2, nullptr, 0));
    EXPECT_FALSE(spooler.SetPrinterA(handle, 2, &info, 1)) << "no command but 0";
}

TEST_F(MemorySpoolerTest, ListsPapersAndBins) {
    const std::string fullName(64, 'x');
    queue.Papers.push_back({77, 100, 200, fullName});
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_PAPERNAMES, nullptr), 3);
    std::vector<std::int16_t> ids(3);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_PAPERS, ids.data()), 3);
    EXPECT_THAT(ids, testing::ElementsAre(9, 5, 77));
    std::vector<std::int32_t> sizes(6);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_PAPERSIZE, sizes.data()), 3);
    EXPECT_THAT(sizes, testing::ElementsAre(2100, 2970, 2159, 3556, 100, 200));
    std::vector<char> names(std::size_t{3} * 64);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_PAPERNAMES, names.data()), 3);
    EXPECT_STREQ(names.data(), "A4");
    EXPECT_EQ(std::string(&names[128], 64), fullName) << "a name that fills its field has no NUL";

    std::vector<std::int16_t> bins(2);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_BINS, bins.data()), 2);
    EXPECT_THAT(bins, testing::ElementsAre(15, 1));
    std::vector<char> binNames(std::size_t{2} * 24);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_BINNAMES, binNames.data()), 2);
    EXPECT_STREQ(&binNames[24], "Lade 1");
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", 99, nullptr), -1);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Nobody", "USB1", machine::DC_PAPERS, nullptr), -1);
}

TEST_F(MemorySpoolerTest, AnUnreachablePrinterAnswersNothing) {
    const machine::PrinterHandle handle = Open();
    queue.Reachable = false;
    EXPECT_EQ(Open(), 0U);
    EXPECT_EQ(spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_PAPERS, nullptr), -1);
    EXPECT_LT(spooler.DocumentPropertiesA(handle, "Laser", nullptr, nullptr, 0), 0);
    std::uint32_t needed = 1;
    EXPECT_FALSE(spooler.GetPrinterA(handle, 2, nullptr, 0, needed));
    EXPECT_EQ(needed, 0U);
}

TEST_F(MemorySpoolerTest, AWrongHandleIsRefused) {
    std::uint32_t needed = 0;
    EXPECT_FALSE(spooler.GetPrinterA(42, 2, nullptr, 0, needed));
    EXPECT_LT(spooler.DocumentPropertiesA(42, "Laser", nullptr, nullptr, 0), 0);
    EXPECT_FALSE(spooler.SetPrinterA(42, 2, nullptr, 0));
    EXPECT_FALSE(spooler.ClosePrinter(42));
}

TEST_F(MemorySpoolerTest, RecordsEachCallWithItsNumbersAndResult) {
    const machine::PrinterHandle handle = Open();
    spooler.DocumentPropertiesA(handle, "Laser", nullptr, nullptr, 0);
    spooler.DeviceCapabilitiesA("Laser", "USB1", machine::DC_BINS, nullptr);
    watched.memory.recorder.Fail("ClosePrinter");
    spooler.ClosePrinter(handle);
    EXPECT_THAT(
        watched.events,
        testing::ElementsAre(
            Event{"spooler",
                  {{"call", "OpenPrinterA"},
                   {"printer", "Laser"},
                   {"access", 983048},
                   {"handle", 1},
                   {"result", true}}},
            Event{"spooler",
                  {{"call", "DocumentPropertiesA"},
                   {"printer", "Laser"},
                   {"handle", 1},
                   {"mode", 0},
                   {"result", 156}}},
            Event{"spooler",
                  {{"call", "DeviceCapabilitiesA"},
                   {"printer", "Laser"},
                   {"port", "USB1"},
                   {"capability", 6},
                   {"result", 2}}},
            Event{"spooler",
                  {{"call", "ClosePrinter"}, {"printer", "Laser"}, {"handle", 1}, {"result", false}}}));
}

} // namespace
