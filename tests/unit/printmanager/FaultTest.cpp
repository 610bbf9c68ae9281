#include <new>

#include "ManagerFixture.h"

namespace printmanager {

namespace {

/// A user who prints from the preview, changes printer, looks at the details, prints and closes, while one
/// call of the machine fails: the manager must always come to its end.
class FaultTest : public ManagerTest, public testing::WithParamInterface<const char*> {
  protected:
    void UseIt() {
        OpenAndPick();
        manager->tmrSetPaperSize.Tick();
        manager->cmdDetails.UserClick();
        manager->cboPrinterSelect(1).UserPick(1);
        manager->cmdPrintVoorbeeld.UserClick();
        manager->cboPrinterSelect(0).UserPick(1);
        manager->cmdDetails.UserClick();
        manager->cmdDetails.UserClick();
        manager->cmdPrint.UserClick();
    }

    InOwnFolder folder;
};

TEST_P(FaultTest, EndsInAFormThatIsClosedOrCloses) {
    InstallTwo();
    AddCaller("frmCaller");
    OnCall = [this](bool preview) {
        state.PrintAfterPreview = preview;
        memory.printer.ScaleWidth();
    };
    for (int failures = 1; failures <= 24; ++failures) {
        SCOPED_TRACE(failures);
        state.CallerFormName = "frmCaller";
        state.PrinterInit = failures % 8 == 0 ? 1002 : 1;
        memory.registry.SetText(SettingsPath, "CurrentPrinter", failures % 3 == 0 ? "Laser" : "");
        ASSERT_TRUE(memory.recorder.Fail(GetParam(), failures));
        UseIt();
        memory.recorder.Fail(GetParam(), 0);
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->UserClose());
        EXPECT_FALSE(manager->Loaded());
        EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
    }
}

/// What no handler knows: the desktop tells it and goes on.
class StrangeFailureTest : public ManagerTest {};

TEST_F(StrangeFailureTest, InAPrintLeavesAFormThatCloses) {
    InstallTwo();
    AddCaller("frmCaller");
    OpenAndPick();
    OnCall = [](bool) { throw std::bad_alloc(); };
    EXPECT_THROW(manager->cmdPrint.UserClick(), std::bad_alloc);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(StrangeFailureTest, InAChangeOfPrinterLeavesAFormThatCloses) {
    InstallTwo();
    AddCaller("frmCaller");
    OpenAndPick();
    memory.desktop.OnYield = [] { throw std::bad_alloc(); };
    EXPECT_THROW(manager->cboPrinterSelect(0).UserPick(1), std::bad_alloc);
    memory.desktop.OnYield = nullptr;
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

INSTANTIATE_TEST_SUITE_P(Calls, FaultTest,
                         testing::Values("OpenPrinterA", "ClosePrinter", "DocumentPropertiesA", "GetPrinterA",
                                         "SetPrinterA", "DeviceCapabilitiesA", "RegOpenKeyA",
                                         "RegQueryValueExA", "RegSetValueExA", "Printer", "Orientation",
                                         "PaperSize", "PaperBin", "Copies", "ScaleWidth", "GetDeviceCaps",
                                         "DeviceName", "Printers", "MeasureText"));

} // namespace
} // namespace printmanager
