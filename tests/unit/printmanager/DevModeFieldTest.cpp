#include "printmanager/DevModeField.h"

#include "ManagerFixture.h"
#include "StubSpooler.h"

namespace printmanager {

using testing::ElementsAre;

namespace {

class DevModeFieldTest : public ManagerTest {
  protected:
    DevModeFieldTest() { Install("Laser"); }

    std::int16_t Get(std::int32_t selector) { return GetDevModeField(memory.spooler, "Laser", selector); }
    std::int16_t Put(std::int32_t selector, std::int16_t value) {
        return SetDevModeField(memory.Services(), "Laser", selector, value);
    }
    memory::PrintQueue& Laser() { return *memory.printers.Find("Laser"); }
};

TEST_F(DevModeFieldTest, ReadsTheStoredDefaults) {
    Laser().Defaults = {.Orientation = 2, .PaperSize = 5, .DefaultSource = 1, .Copies = 3};
    EXPECT_EQ(Get(machine::DM_ORIENTATION), 2);
    EXPECT_EQ(Get(machine::DM_PAPERSIZE), 5);
    EXPECT_EQ(Get(machine::DM_DEFAULTSOURCE), 1);
    EXPECT_EQ(Get(machine::DM_COPIES), 3);
}

TEST_F(DevModeFieldTest, ReadingIsOneOpenSizeFetchAndClose) {
    EXPECT_THAT(TraceOf([&] { Get(machine::DM_PAPERSIZE); }),
                ElementsAre("open Laser", "size", "fetch", "close Laser"));
}

TEST_F(DevModeFieldTest, PrinterIsOpenedForItsDefaultsAlone) {
    TraceOf([&] { Get(machine::DM_PAPERSIZE); });
    EXPECT_EQ(FieldText(events.front(), "access"), "983048");
}

TEST_F(DevModeFieldTest, UnknownSelectorReadsAsZero) {
    EXPECT_EQ(Get(3), 0);
    EXPECT_EQ(Get(4096), 0);
}

TEST_F(DevModeFieldTest, ReadingGivesZeroWithoutAConnection) {
    Laser().Reachable = false;
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Get(machine::DM_PAPERSIZE), 0); }), ElementsAre("open Laser"));
}

TEST_F(DevModeFieldTest, ReadingGivesZeroAndClosesWhereTheDriverFails) {
    memory.recorder.Fail("DocumentPropertiesA");
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Get(machine::DM_PAPERSIZE), 0); }),
                ElementsAre("open Laser", "size", "close Laser"));
    EXPECT_EQ(memory.spooler.OpenHandles(), 0U);
}

TEST_F(DevModeFieldTest, WritingIsMergedStoredAndFollowedByTwentyYields) {
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Put(machine::DM_PAPERSIZE, 5), 0); }),
                ElementsAre("open Laser", "size", "fetch", "merge paper=5 bin=15", "info size", "info",
                            "set paper=5 bin=15", "close Laser", "yield*20"));
    EXPECT_EQ(Laser().Defaults.PaperSize, 5);
}

TEST_F(DevModeFieldTest, CallsCarryTheSpoolersOwnNumbers) {
    TraceOf([&] { Put(machine::DM_PAPERSIZE, 5); }, "spooler");
    std::vector<std::string> numbers;
    for (const memory::Event& event : events) {
        const std::string call = FieldText(event, "call");
        numbers.push_back(call == "DocumentPropertiesA" ? "mode " + FieldText(event, "mode")
                          : call == "GetPrinterA" || call == "SetPrinterA"
                              ? "level " + FieldText(event, "level") + " command " +
                                    FieldText(event, "command")
                              : call);
    }
    EXPECT_THAT(numbers, ElementsAre("OpenPrinterA", "mode 0", "mode 2", "mode 10", "level 2 command ?",
                                     "level 2 command ?", "level 2 command 0", "ClosePrinter"));
}

TEST_F(DevModeFieldTest, FieldThatTheDriverDoesNotOfferIsLeftAlone) {
    Laser().Fields = machine::DM_PAPERSIZE;
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Put(machine::DM_DEFAULTSOURCE, 1), 0); }),
                ElementsAre("open Laser", "size", "fetch", "merge paper=9 bin=15", "info size", "info",
                            "set paper=9 bin=15", "close Laser", "yield*20"));
    EXPECT_EQ(Laser().Defaults.DefaultSource, 15);
}

TEST_F(DevModeFieldTest, CopiesAreReadAndNeverWritten) {
    EXPECT_EQ(Put(machine::DM_COPIES, 7), 0);
    EXPECT_EQ(Laser().Defaults.Copies, 1);
}

TEST_F(DevModeFieldTest, WritingWithoutAConnectionIsNoFailureAndNeverYields) {
    Laser().Reachable = false;
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Put(machine::DM_PAPERSIZE, 5), 0); }), ElementsAre("open Laser"));
}

TEST_F(DevModeFieldTest, RefusedWriteIsMinusOne) {
    memory.recorder.Fail("SetPrinterA");
    EXPECT_EQ(Put(machine::DM_PAPERSIZE, 5), -1);
    EXPECT_EQ(Laser().Defaults.PaperSize, 9);
    EXPECT_EQ(memory.spooler.OpenHandles(), 0U);
}

TEST_F(DevModeFieldTest, WritingStopsWhereTheSpoolerKnowsNoData) {
    memory.recorder.Fail("GetPrinterA");
    EXPECT_THAT(TraceOf([&] { EXPECT_EQ(Put(machine::DM_PAPERSIZE, 5), 0); }),
                ElementsAre("open Laser", "size", "fetch", "merge paper=5 bin=15", "info size", "close Laser",
                            "yield*20"));
}

// What no decent driver does.

class StubbedDevModeTest : public ManagerTest {
  protected:
    StubSpooler stub;
    machine::Platform services = WithSpooler(memory.Services(), stub);

    std::int16_t Put(std::int16_t value) {
        return SetDevModeField(services, "Laser", machine::DM_PAPERSIZE, value);
    }
};

TEST_F(StubbedDevModeTest, OpenWithoutAHandleIsNoConnection) {
    stub.Handle = 0;
    EXPECT_EQ(GetDevModeField(stub, "Laser", machine::DM_PAPERSIZE), 0);
    EXPECT_EQ(Put(5), 0);
    EXPECT_EQ(memory.desktop.Yields(), 0);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "open"));
}

TEST_F(StubbedDevModeTest, NegativeSizeEndsTheWriteWithYields) {
    stub.DevModeSize = -1;
    EXPECT_EQ(Put(5), 0);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "close"));
    EXPECT_EQ(memory.desktop.Yields(), 20);
}

TEST_F(StubbedDevModeTest, HugeSizeIsAnErrorThatClosesAndYields) {
    stub.DevModeSize = 0x7FFFFFFF;
    EXPECT_EQ(GetDevModeField(stub, "Laser", machine::DM_PAPERSIZE), 0);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "close"));
    stub.Calls.clear();
    EXPECT_EQ(Put(5), -1);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "close"));
    EXPECT_EQ(memory.desktop.Yields(), 20);
}

TEST_F(StubbedDevModeTest, SizeOfZeroStillHasRoomForTheRecord) {
    stub.DevModeSize = 0;
    stub.Mode.dmPaperSize = 8;
    EXPECT_EQ(GetDevModeField(stub, "Laser", machine::DM_PAPERSIZE), 8);
}

TEST_F(StubbedDevModeTest, FailedFetchIsSkippedAndTheEmptyBufferGoesToTheDriver) {
    stub.FetchResult = -1;
    EXPECT_EQ(GetDevModeField(stub, "Laser", machine::DM_PAPERSIZE), 0);
    stub.Calls.clear();
    EXPECT_EQ(Put(5), 0);
    EXPECT_THAT(stub.Calls,
                ElementsAre("open", "size", "fetch", "merge", "info size", "info", "set", "close"));
    EXPECT_EQ(stub.Merged.dmPaperSize, 0);
}

TEST_F(StubbedDevModeTest, FailedMergeEndsTheWrite) {
    stub.MergeResult = -1;
    EXPECT_EQ(Put(5), 0);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "fetch", "merge", "close"));
    EXPECT_EQ(memory.desktop.Yields(), 20);
}

TEST_F(StubbedDevModeTest, HugeSizeOfThePrintersDataIsAnError) {
    stub.InfoSize = 0xFFFFFFFFU;
    EXPECT_EQ(Put(5), -1);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "fetch", "merge", "info size", "close"));
}

TEST_F(StubbedDevModeTest, SmallSizeOfThePrintersDataStillHasRoomForTheRecord) {
    stub.InfoSize = 1;
    EXPECT_EQ(Put(5), 0);
}

TEST_F(StubbedDevModeTest, FailedReadOfThePrintersDataWritesNothing) {
    stub.InfoResult = false;
    EXPECT_EQ(Put(5), 0);
    EXPECT_THAT(stub.Calls, ElementsAre("open", "size", "fetch", "merge", "info size", "info", "close"));
}

TEST_F(StubbedDevModeTest, WriteCarriesTheMergedSettingsAndNoSecurity) {
    stub.Info.pSecurityDescriptor = &stub;
    EXPECT_EQ(Put(5), 0);
    EXPECT_EQ(stub.Written.pSecurityDescriptor, nullptr);
    EXPECT_EQ(stub.WrittenMode.dmPaperSize, 5);
}

TEST_F(StubbedDevModeTest, DriverMayFill128BytesMoreThanItReports) {
    stub.BytesTooMany = 128;
    stub.Mode.dmPaperSize = 8;
    EXPECT_EQ(GetDevModeField(stub, "Laser", machine::DM_PAPERSIZE), 8);
    EXPECT_EQ(Put(5), 0);
    EXPECT_EQ(stub.WrittenMode.dmPaperSize, 5);
}

TEST_F(StubbedDevModeTest, DriverMergesInOneBuffer) {
    Put(5);
    EXPECT_TRUE(stub.MergedInPlace);
    EXPECT_EQ(stub.Merged.dmPaperSize, 5);
}

struct SelectorRow {
    std::int32_t Selector;
    std::int16_t machine::DEVMODE::*Member;
    bool Writable;
};

class SelectorTest : public StubbedDevModeTest, public testing::WithParamInterface<SelectorRow> {};

TEST_P(SelectorTest, NamesItsField) {
    const SelectorRow& row = GetParam();
    stub.Mode.dmFields = 0xFFFFFFFFU;
    stub.Mode.*(row.Member) = 11;
    EXPECT_EQ(GetDevModeField(stub, "Laser", row.Selector), 11);
    SetDevModeField(services, "Laser", row.Selector, 12);
    EXPECT_EQ(stub.WrittenMode.*(row.Member), row.Writable ? 12 : 11);
}

INSTANTIATE_TEST_SUITE_P(Fields, SelectorTest,
                         testing::Values(SelectorRow{1, &machine::DEVMODE::dmOrientation, true},
                                         SelectorRow{2, &machine::DEVMODE::dmPaperSize, true},
                                         SelectorRow{4, &machine::DEVMODE::dmPaperLength, true},
                                         SelectorRow{8, &machine::DEVMODE::dmPaperWidth, true},
                                         SelectorRow{16, &machine::DEVMODE::dmScale, false},
                                         SelectorRow{256, &machine::DEVMODE::dmCopies, false},
                                         SelectorRow{512, &machine::DEVMODE::dmDefaultSource, true},
                                         SelectorRow{1024, &machine::DEVMODE::dmPrintQuality, true},
                                         SelectorRow{2048, &machine::DEVMODE::dmColor, true},
                                         SelectorRow{-32768, &machine::DEVMODE::dmCollate, false}));

} // namespace
} // namespace printmanager
