#include "WizardFixture.h"

namespace wizard {
namespace {

class FailingStartTest : public WizardTest, public testing::WithParamInterface<const char*> {};

// Whichever call of the machine fails while the program starts, its first page stands there with what could
// be read, and says nothing about it.
TEST_P(FailingStartTest, GoesOnWithTheNextStep) {
    Set("IncassantBegunstigde", "Naam");
    Set("GMUFontName", "OCR-B");
    InstallPrinter();
    ASSERT_TRUE(memory.recorder.Fail(GetParam(), 2));
    Start();
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_EQ(form->UserText(70).Text(), "Naam");
    EXPECT_EQ(form->lblOCRFont.Caption(), "OCR-B");
    EXPECT_TRUE(MessageTexts().empty());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_LT(memory.recorder.Left(GetParam()), 2) << "no call failed";
}

INSTANTIATE_TEST_SUITE_P(Calls, FailingStartTest,
                         testing::Values("Printers", "ReadOrientation", "MeasureText", "ScaleWidth",
                                         "ScaleHeight", "GetDeviceCaps", "GetLocaleInfoA", "RegCloseKey",
                                         "RegSetValueExA"));

TEST_F(WizardTest, StartsWithoutGivingThePrinterAnOrientation) {
    InstallPrinter();
    int set = 0;
    memory.recorder.Sink = [&](const memory::Event& event) { set += event.Kind == "set" ? 1 : 0; };
    Start();
    EXPECT_EQ(set, 0);
}

} // namespace
} // namespace wizard
