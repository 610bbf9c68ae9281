#include <new>

#include "PreviewFixture.h"

namespace preview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PreviewTest, OpeningMakesTheHiddenPageTheSurface) {
    InstallPrinter();
    Open();
    EXPECT_EQ(state.Surface, &Ghost().Surface());
    EXPECT_EQ(Surface().Font(), "Tahoma");
    EXPECT_EQ(Surface().FontSize(), 8);
    EXPECT_EQ(state.LineHeight, 192) << "measured on the page: 24 twips for each of 8 points";
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass);
    Close();
}

TEST_F(PreviewTest, OpeningOpensThePrinterFirst) {
    InstallPrinter();
    state.PageWidth = 11424;
    state.PageHeight = 16358;
    Open();
    EXPECT_EQ(state.SurfaceWidth, 11424);
    EXPECT_EQ(state.SurfaceHeight, 16358);
    EXPECT_EQ(memory.printer.Drawing.Font.Size, 8);
    EXPECT_EQ(memory.printer.Drawing.Font.Name, "Printer") << "the printer keeps its own font";
    Close();
}

TEST_F(PreviewTest, OneThatBreaksOffGoesWithItsFormsThoughItsClosingFailsToo) {
    InstallPrinter();
    {
        PrintPreview broken(session, memory.Services(), state, printer);
        broken.OpenPreview(0);
        memory.desktop.OnYield = [] { throw std::bad_alloc(); };
    }
    memory.desktop.OnYield = nullptr;
    EXPECT_THAT(session.OpenForms(), IsEmpty());
    EXPECT_EQ(state.Surface, nullptr);
}

TEST_F(PreviewTest, TheFormsAreLoadedAndHidden) {
    InstallPrinter();
    Open();
    EXPECT_THAT(session.OpenForms(), ElementsAre(&Ghost(), &Window()));
    EXPECT_FALSE(Ghost().Visible());
    EXPECT_FALSE(Window().Visible());
    EXPECT_EQ(Ghost().Caption(), "Preview Ghost");
    EXPECT_EQ(Window().Caption(), "Afdrukvoorbeeld");
    Close();
}

TEST_F(PreviewTest, ClosingTakesBothFormsAndTheSurface) {
    InstallPrinter();
    Open();
    Close();
    EXPECT_EQ(preview.Ghost(), nullptr);
    EXPECT_EQ(preview.Window(), nullptr);
    EXPECT_EQ(state.Surface, nullptr);
    EXPECT_THAT(session.OpenForms(), IsEmpty());
}

TEST_F(PreviewTest, ClosingWithoutAPreviewIsNoHarm) {
    Close();
    preview.Show();
    EXPECT_EQ(state.Surface, nullptr);
}

TEST_F(PreviewTest, AnotherFaseDoesNothing) {
    InstallPrinter();
    preview.OpenPreview(2);
    preview.OpenPreview(-1);
    EXPECT_EQ(preview.Ghost(), nullptr);
    Open();
    preview.OpenPreview(2);
    EXPECT_NE(preview.Ghost(), nullptr);
    Close();
}

TEST_F(PreviewTest, OpeningTwiceKeepsThePage) {
    InstallPrinter();
    Open();
    Surface().Print("een");
    auto* before = &Ghost();
    Open();
    EXPECT_EQ(&Ghost(), before);
    EXPECT_EQ(Ghost().Page(), 1);
    Close();
}

TEST_F(PreviewTest, APreviewThatIsNeverClosedLeavesNoSurface) {
    InstallPrinter();
    {
        PrintPreview passing(session, memory.Services(), state, printer);
        passing.OpenPreview(0);
        EXPECT_NE(state.Surface, nullptr);
    }
    EXPECT_EQ(state.Surface, nullptr);
    EXPECT_THAT(session.OpenForms(), IsEmpty());
}

TEST_F(PreviewTest, WithoutAPrinterThereIsAnErrorAndNoCrash) {
    EXPECT_THROW(Open(), base::RuntimeError);
    EXPECT_THROW(Surface().Print("een"), base::RuntimeError);
    EXPECT_THROW(Surface().EndDoc(), base::RuntimeError);
    Surface().Newpage();
    EXPECT_THROW(preview.Show(), base::RuntimeError);
    Close();
    EXPECT_EQ(state.Surface, nullptr);
    EXPECT_THAT(session.OpenForms(), IsEmpty());
    EXPECT_EQ(memory.bitmaps.Alive(), 0U);
}

TEST_F(PreviewTest, APreviewThatFailsEarlyDoesNotPrintByTheWishOfTheOneBefore) {
    InstallPrinter();
    Show(1, [this] { Window().Toolbar.UserClickButton(1); });
    ASSERT_TRUE(state.PrintAfterPreview);
    memory.recorder.Fail("ScaleWidth", 1000);
    EXPECT_THROW(Open(), base::RuntimeError);
    EXPECT_FALSE(state.PrintAfterPreview);
    Close();
    memory.recorder.Fail("ScaleWidth", 0);
}

// Every call of the machine fails in turn, once or for good: the preview may be poor, but it opens and
// closes.
TEST_F(PreviewTest, AFailingCallCostsNoMoreThanThePreview) {
    InstallPrinter();
    for (const char* call :
         {"MeasureText", "DrawText", "NewPage", "EndDocument", "CreatePage", "Image", "ScaleLeft", "ScaleTop",
          "ScaleWidth", "ScaleHeight", "DeviceName", "Printers", "CreatePeer"}) {
        for (const int times : {1, 2, 3, 1000}) {
            SCOPED_TRACE(std::string(call) + " " + std::to_string(times));
            ASSERT_TRUE(memory.recorder.Fail(call, times));
            const auto attempt = [](const auto& step) {
                try {
                    step();
                } catch (const base::RuntimeError&) {
                }
            };
            attempt([&] { Open(); });
            attempt([&] { Compose(3); });
            attempt([&] { preview.Show(); });
            attempt([&] { Close(); });
            EXPECT_LT(memory.recorder.Left(call), times) << "no call failed";
            EXPECT_EQ(state.Surface, nullptr);
            EXPECT_THAT(session.OpenForms(), IsEmpty());
            memory.recorder.Fail(call, 0);
        }
    }
    EXPECT_EQ(memory.bitmaps.Alive(), 0U);
    EXPECT_EQ(forms::modMsgHookProc::SlotsInUse(), 0);
    EXPECT_EQ(memory.desktop.Windows().Count(), 0U);
}

TEST_F(PreviewTest, AThousandPreviewsLeaveNothingBehind) {
    InstallPrinter();
    for (int i = 0; i < 1000; ++i) {
        Show(2, [this] {
            memory.desktop.PointAt(&Window().cmdDown);
            Window().cmdDown.UserMouseMove();
            Window().cmdDown.Timer.Tick();
            memory.desktop.Windows().SendWheel(Window().hWnd(), -120);
            Window().UserClose();
        });
        events.clear();
    }
    EXPECT_THAT(session.OpenForms(), IsEmpty());
    EXPECT_EQ(memory.desktop.Windows().Count(), 0U);
    EXPECT_EQ(forms::modMsgHookProc::SlotsInUse(), 0);
    EXPECT_EQ(memory.bitmaps.Alive(), 0U);
}

} // namespace
} // namespace preview
