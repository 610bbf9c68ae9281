#include "memory/MemoryPrinter.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "memory/tests/Events.h"

namespace {

using memory::Event;
using memory::PrintQueue;
using testing::ElementsAre;
using testing::IsEmpty;

class MemoryPrinterTest : public testing::Test {
  protected:
    WatchedPlatform watched;
    memory::MemoryPrinter& printer = watched.memory.printer;
};

template <class Call>
int ErrorOf(Call call) {
    try {
        call();
    } catch (const base::RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST_F(MemoryPrinterTest, WithoutAPrinterEveryMemberFails) {
    EXPECT_EQ(watched.memory.printers.Count(), 0);
    EXPECT_EQ(ErrorOf([&] { printer.DeviceName(); }), base::ErrorPrinter);
    EXPECT_EQ(ErrorOf([&] { printer.SetOrientation(1); }), base::ErrorPrinter);
    EXPECT_EQ(ErrorOf([&] { printer.ScaleWidth(); }), base::ErrorPrinter);
    EXPECT_EQ(ErrorOf([&] { printer.ScaleLeft(); }), base::ErrorPrinter);
    EXPECT_EQ(ErrorOf([&] { printer.Copies(); }), base::ErrorPrinter);
    EXPECT_EQ(ErrorOf([&] { printer.Assign(0); }), base::ErrorSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([&] { watched.memory.printers.Item(0); }), base::ErrorSubscriptOutOfRange);
}

TEST_F(MemoryPrinterTest, TheFirstInstalledIsTheDefault) {
    watched.memory.InstallPrinter({.Name = "Laser"});
    watched.memory.InstallPrinter({.Name = "Matrix", .Port = "LPT2:"});
    EXPECT_EQ(printer.DeviceName(), "Laser");
    EXPECT_EQ(watched.memory.printers.Count(), 2);
    EXPECT_EQ(watched.memory.printers.Item(1).DeviceName, "Matrix");
    EXPECT_EQ(watched.memory.printers.Item(1).Port, "LPT2:");
    EXPECT_THAT(watched.events, IsEmpty());
}

TEST_F(MemoryPrinterTest, ADocumentThatIsGivenUpLeavesTheNextOneItsFirstPage) {
    watched.memory.InstallPrinter({.Name = "Laser"});
    printer.Page().DrawText(0, 0, "oud", {});
    printer.Page().NewPage();
    watched.events.clear();
    printer.Abandon();
    EXPECT_THAT(watched.events, IsEmpty());
    printer.Page().DrawText(0, 0, "nieuw", {});
    ASSERT_EQ(watched.events.size(), 1U);
    EXPECT_EQ(std::get<std::int64_t>(watched.events[0].Fields[1].Value), 1) << "page";
}

TEST_F(MemoryPrinterTest, MeasuresAreTwipsOfTheDeviceDots) {
    watched.memory.InstallPrinter({.Name = "Laser", .Offset = {100, 50}});
    EXPECT_DOUBLE_EQ(printer.Width(), 11904);
    EXPECT_DOUBLE_EQ(printer.Height(), 16838.4);
    EXPECT_DOUBLE_EQ(printer.ScaleWidth(), 11424);
    EXPECT_DOUBLE_EQ(printer.ScaleHeight(), 16358.4);
    EXPECT_EQ(printer.ScaleLeft(), 0);
    EXPECT_EQ(printer.ScaleTop(), 0);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsLogPixelsX), 600);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsLogPixelsY), 600);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 100);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsPhysicalOffsetY), 50);
}

TEST_F(MemoryPrinterTest, LandscapeTurnsTheMeasures) {
    watched.memory.InstallPrinter({.Name = "Laser", .Offset = {100, 50}});
    printer.SetOrientation(2);
    EXPECT_DOUBLE_EQ(printer.Width(), 16838.4);
    EXPECT_DOUBLE_EQ(printer.ScaleWidth(), 16358.4);
    EXPECT_DOUBLE_EQ(printer.ScaleHeight(), 11424);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsPhysicalOffsetX), 50);
    EXPECT_EQ(printer.GetDeviceCaps(machine::CapsPhysicalOffsetY), 100);
}

TEST_F(MemoryPrinterTest, AnAssignmentTakesTheStoredDefaultsAfresh) {
    PrintQueue& queue = watched.memory.InstallPrinter({.Name = "Laser", .Font = "Courier"});
    printer.SetPaperSize(5);
    printer.Drawing.CurrentX = 7;
    printer.Drawing.Font = {"Tahoma", 8, true};
    queue.Defaults.DefaultSource = 1;
    queue.Defaults.Copies = 3;
    EXPECT_EQ(printer.PaperBin(), 15) << "stored defaults do not reach the object by themselves";

    printer.Assign(0);
    EXPECT_EQ(printer.PaperSize(), 9);
    EXPECT_EQ(printer.PaperBin(), 1);
    EXPECT_EQ(printer.Copies(), 3);
    EXPECT_EQ(printer.Drawing.CurrentX, 0);
    EXPECT_EQ(printer.Drawing.Font, (machine::FontSpec{"Courier", 12, false}));
}

TEST_F(MemoryPrinterTest, WritingAPropertyLeavesTheStoredDefaults) {
    const PrintQueue& queue = watched.memory.InstallPrinter({.Name = "Laser"});
    printer.SetPaperSize(5);
    printer.SetPaperBin(1);
    printer.SetOrientation(2);
    EXPECT_EQ(queue.Defaults.PaperSize, 9);
    EXPECT_EQ(queue.Defaults.DefaultSource, 15);
    EXPECT_EQ(queue.Defaults.Orientation, 1);
    printer.Assign(0);
    const auto set = [](const char* property, std::int64_t value) {
        return Event{"set", {{"object", "Printer"}, {"property", property}, {"value", value}}};
    };
    EXPECT_THAT(
        watched.events,
        ElementsAre(set("PaperSize", 5), set("PaperBin", 1), set("Orientation", 2),
                    Event{"set", {{"object", "Printer"}, {"property", "Printer"}, {"value", "Laser"}}}));
}

TEST_F(MemoryPrinterTest, RefusesAnOrientationThatIsNone) {
    watched.memory.InstallPrinter({.Name = "Laser"});
    EXPECT_EQ(ErrorOf([&] { printer.SetOrientation(0); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(printer.Orientation(), 1);
    EXPECT_THAT(watched.events, IsEmpty());
}

TEST_F(MemoryPrinterTest, EachMemberCanBeMadeToFail) {
    watched.memory.InstallPrinter({.Name = "Laser"});
    const auto failing = [&](const char* call, auto member) {
        EXPECT_TRUE(watched.memory.recorder.Fail(call)) << call;
        return ErrorOf(member);
    };
    EXPECT_EQ(failing("Printer", [&] { printer.Assign(0); }), base::ErrorPrinter);
    EXPECT_EQ(failing("PaperSize", [&] { printer.SetPaperSize(5); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(failing("PaperBin", [&] { printer.SetPaperBin(1); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(failing("Orientation", [&] { printer.SetOrientation(2); }), base::ErrorInvalidPropertyValue);
    EXPECT_EQ(failing("ScaleWidth", [&] { printer.ScaleWidth(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ScaleHeight", [&] { printer.ScaleHeight(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ScaleLeft", [&] { printer.ScaleLeft(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ScaleTop", [&] { printer.ScaleTop(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("GetDeviceCaps", [&] { printer.GetDeviceCaps(88); }), base::ErrorPrinter);
    EXPECT_EQ(failing("Copies", [&] { printer.Copies(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ReadOrientation", [&] { printer.Orientation(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ReadPaperSize", [&] { printer.PaperSize(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("ReadPaperBin", [&] { printer.PaperBin(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("Width", [&] { printer.Width(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("Height", [&] { printer.Height(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("Item", [&] { watched.memory.printers.Item(0); }), base::ErrorPrinter);
    EXPECT_EQ(failing("DeviceName", [&] { printer.DeviceName(); }), base::ErrorPrinter);
    EXPECT_EQ(failing("Printers", [&] { watched.memory.printers.Count(); }), base::ErrorPrinter);
    EXPECT_THAT(watched.events, IsEmpty());
    EXPECT_FALSE(watched.memory.recorder.Fail("NoSuchCall"));
}

TEST_F(MemoryPrinterTest, ATestCanChooseTheCallThatFails) {
    watched.memory.InstallPrinter({.Name = "Laser"});
    int calls = 0;
    watched.memory.recorder.ShouldFail = [&](std::string_view call) {
        return call == "Copies" && ++calls == 2;
    };
    EXPECT_EQ(printer.Copies(), 1);
    EXPECT_EQ(ErrorOf([&] { printer.Copies(); }), base::ErrorPrinter);
    EXPECT_EQ(printer.Copies(), 1);
}

} // namespace
