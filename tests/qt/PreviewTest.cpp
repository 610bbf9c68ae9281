#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include "composition/PrintSurface.h"
#include "platform/forms/Session.h"
#include "platform/memory/MemoryPlatform.h"
#include "platform/modMsgHookProc.h"
#include "platform/qt/QtBitmaps.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Scale.h"
#include "preview/PrintPreview.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "qt/Window.h"
#include "wizard/AppState.h"

namespace {

/// The preview in its real window. Each page has its number and a black rule at a place of its own.
class PreviewTest : public testing::Test {
  protected:
    PreviewTest() {
        memory.InstallPrinter({.Name = "Proefprinter"});
        state.ListFontName = "Tahoma";
    }

    static constexpr double ruleDistance = 720; // twips

    /// Composes a document, and shows it until `user` has left the window.
    void Show(int pages, const std::function<void()>& user) {
        preview.OpenPreview(0);
        composition::PrintSurface& surface = *state.Surface;
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) {
                surface.Newpage();
            }
            surface.PrintLine("pagina " + std::to_string(page));
            for (int thickness = 0; thickness < 60; thickness += 5) {
                surface.Line(0, page * ruleDistance + thickness, 5000, page * ruleDistance + thickness, 0);
            }
        }
        surface.EndDoc();
        window::WhenShown("frmPrintPreview", [&] {
            user();
            preview.Window()->Unload();
        });
        preview.Show();
        preview.OpenPreview(1);
    }

    preview::frmPrintPreview& Form() { return *preview.Window(); }
    QWidget* Widget(const char* control) { return window::Find("frmPrintPreview", control); }
    QScrollBar* Bar() { return window::Find<QScrollBar>("frmPrintPreview", "VScroll"); }
    QString Panel(int number) {
        return window::Find<QLabel>("frmPrintPreview", QStringLiteral("StatusBar(%1)").arg(number))->text();
    }
    void Wheel(const QPoint& delta) {
        QWidget* top = window::Of("frmPrintPreview");
        QWheelEvent wheel(QPointF(50, 200), top->mapToGlobal(QPointF(50, 200)), {}, delta, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(top, &wheel);
        window::Settle();
    }

    /// The number of the page whose rule is on the screen, 0 if there is none.
    int PageOnScreen() {
        const QImage picture = Widget("pictCurrentPage")->grab().toImage();
        const double ratio = picture.devicePixelRatio();
        for (int page = 1; page <= 9; ++page) {
            const int x = platform::qt::ToDots(1000);
            const int y = platform::qt::ToDots(page * ruleDistance + 30);
            const QColor colour =
                picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
            if (colour.lightness() < 128) {
                return page;
            }
        }
        return 0;
    }

    platform::MemoryPlatform memory;
    platform::qt::QtDesktop desktop;
    platform::qt::QtBitmaps bitmaps;
    platform::Platform services{desktop,       memory.registry,  memory.locale,   memory.clock,
                                memory.random, memory.spooler,   memory.printers, memory.printer,
                                bitmaps,       desktop.Windows()};
    wizard::AppState state;
    forms::Session session{desktop};
    composition::PrinterSurface printer{memory.printer};
    preview::PrintPreview preview{session, services, state, printer};
};

TEST_F(PreviewTest, ShowsThePageThatWasDrawn) {
    Show(3, [this] {
        EXPECT_EQ(PageOnScreen(), 1);
        EXPECT_EQ(Panel(1), "Pagina: 1");
        EXPECT_EQ(Panel(2), "Totaal aantal pagina's : 3");
        window::Click(Widget("Toolbar(6)"));
        EXPECT_EQ(PageOnScreen(), 3);
        window::Click(Widget("Toolbar(4)"));
        EXPECT_EQ(PageOnScreen(), 2);
        EXPECT_EQ(Panel(1), "Pagina: 2");
    });
}

TEST_F(PreviewTest, ABitmapKeepsWhatItShowedWhenThePageIsDrawnAnew) {
    const auto page = bitmaps.CreatePage(1500, 1500);
    const auto dark = [](const platform::PageBitmap& bitmap) {
        const QImage& image = static_cast<const platform::qt::QtPageBitmap&>(bitmap).Image();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y).lightness() < 128 ? 1 : 0;
            }
        }
        return count;
    };
    const auto blank = page->Image();
    page->Drawing().DrawLine(0, 750, 1500, 750, 0);
    const auto ruled = page->Image();
    page->Cls();
    page->Drawing().DrawText(100, 100, "tekst", {"Tahoma", 8, false});
    const auto written = page->Image();
    EXPECT_EQ(dark(*blank), 0);
    EXPECT_GE(dark(*ruled), 90);
    EXPECT_GT(dark(*written), 10);
    EXPECT_NE(dark(*written), dark(*ruled));
    EXPECT_EQ(ruled->Width(), 1500);
}

TEST_F(PreviewTest, ATextOnThePageIsAsWideAsOnPaper) {
    const auto page = bitmaps.CreatePage(9000, 1500);
    const platform::FontSpec font{"Tahoma", 12, false};
    const std::string text(40, 'H');
    page->Drawing().DrawText(0, 0, text, font);
    const auto bitmap = page->Image();
    const QImage& image = static_cast<const platform::qt::QtPageBitmap&>(*bitmap).Image();
    int right = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).lightness() < 128) {
                right = std::max(right, x);
            }
        }
    }
    const double dotsPerTwip = image.width() / bitmap->Width();
    const double width = page->Drawing().MeasureText(text, font).Width;
    EXPECT_NEAR(right / dotsPerTwip, width, 60); // the last letter's own side bearing
}

TEST_F(PreviewTest, TheWheelScrollsAndSideTurnsDoNot) {
    Show(1, [this] {
        Wheel({0, -120});
        EXPECT_EQ(Bar()->value(), 15);
        Wheel({0, -120});
        Wheel({0, 120});
        EXPECT_EQ(Bar()->value(), 15);
        Wheel({120, 0});
        Wheel({-120, 0});
        EXPECT_EQ(Bar()->value(), 15);
    });
}

TEST_F(PreviewTest, KeysScrollAndTurnPages) {
    Show(2, [this] {
        window::Key(Qt::Key_Down);
        EXPECT_EQ(Bar()->value(), 10);
        window::Key(Qt::Key_End);
        EXPECT_EQ(Bar()->value(), 100);
        window::Key(Qt::Key_PageDown);
        EXPECT_EQ(PageOnScreen(), 2);
        EXPECT_EQ(Bar()->value(), 0);
        window::Key(Qt::Key_PageUp);
        EXPECT_EQ(PageOnScreen(), 1);
        window::Key(Qt::Key_Left);
        EXPECT_EQ(Form().HScroll.Value(), 90);
    });
}

TEST_F(PreviewTest, EscapeLeavesWithoutPrinting) {
    state.PrintAfterPreview = true;
    Show(1, [this] {
        window::Key(Qt::Key_Escape);
        EXPECT_EQ(window::Of("frmPrintPreview"), nullptr);
    });
    EXPECT_FALSE(state.PrintAfterPreview);
}

TEST_F(PreviewTest, TheBarMovesTheSheetWhenItIsLetGo) {
    Show(1, [this] {
        const int top = Widget("pictPageContainer")->y();
        Bar()->setSliderDown(true);
        Bar()->setSliderPosition(80);
        window::Settle();
        EXPECT_EQ(Widget("pictPageContainer")->y(), top);
        Bar()->setSliderDown(false);
        window::Settle();
        EXPECT_EQ(Form().VScroll.Value(), 80);
        EXPECT_LT(Widget("pictPageContainer")->y(), top);
        EXPECT_EQ(Widget("pictPageContainer")->y(), platform::qt::ToDots(Form().pictPageContainer.Top()));
    });
}

TEST_F(PreviewTest, TheMenuPrints) {
    Show(1, [this] {
        auto* bar = window::Find<QMenuBar>("frmPrintPreview", "SSActiveToolBars");
        ASSERT_EQ(bar->actions().size(), 1);
        EXPECT_EQ(bar->actions().front()->text(), "&Overzicht");
        auto* print = bar->findChild<QAction*>("ID_Afdrukken");
        ASSERT_NE(print, nullptr);
        print->trigger();
        window::Settle();
        EXPECT_EQ(window::Of("frmPrintPreview"), nullptr);
    });
    EXPECT_TRUE(state.PrintAfterPreview);
}

TEST_F(PreviewTest, ButtonsThatLeadNowhereAreOff) {
    Show(1, [this] {
        for (const char* name :
             {"Toolbar(3)", "Toolbar(4)", "Toolbar(5)", "Toolbar(6)", "cmdUp", "cmdDown"}) {
            EXPECT_FALSE(Widget(name)->isEnabled()) << name;
        }
        EXPECT_TRUE(Widget("Toolbar(1)")->isEnabled());
        EXPECT_EQ(Widget("Toolbar(1)")->toolTip(), "Afdrukken (Proefprinter)");
        EXPECT_EQ(Widget("Toolbar(8)")->accessibleName(), "Afdrukvoorbeeld sluiten");
    });
}

TEST_F(PreviewTest, TheArrowLightsUpUnderTheMouseAndTurnsThePage) {
    Show(2, [this] {
        QWidget* arrow = Widget("cmdDown");
        const QImage normal = arrow->grab().toImage();
        QTest::mouseMove(arrow->window()->windowHandle(),
                         arrow->mapTo(arrow->window(), arrow->rect().center()));
        window::Settle();
        EXPECT_TRUE(Form().cmdDown.blnOver());
        EXPECT_TRUE(Form().cmdDown.Timer.Enabled());
        window::Click(arrow);
        EXPECT_EQ(PageOnScreen(), 2);
        EXPECT_EQ(Form().cmdDown.iState(), platform::cmdButtonXP::LookDisabled);
        EXPECT_NE(arrow->grab().toImage(), normal);
    });
}

TEST_F(PreviewTest, AnotherSizePlacesTheBars) {
    Show(1, [this] {
        QWidget* top = window::Of("frmPrintPreview");
        const int before = Widget("pictVScroll")->x();
        top->resize(top->width() - 60, top->height() - 60);
        window::Settle();
        EXPECT_EQ(Widget("pictVScroll")->x(), before - 60);
        EXPECT_EQ(Widget("StatusBar")->geometry().bottom() + 1,
                  Widget("StatusBar")->parentWidget()->height());
    });
}

TEST_F(PreviewTest, ManyPreviewsLeaveNothingBehind) {
    const auto widgets = QApplication::allWidgets().size();
    const std::size_t windows = desktop.Windows().Count();
    for (int i = 0; i < 20; ++i) {
        Show(2, [this] { Form().Toolbar.UserClickButton(5); });
    }
    window::Settle();
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(desktop.Windows().Count(), windows);
    EXPECT_EQ(platform::modMsgHookProc::SlotsInUse(), 0);
    EXPECT_TRUE(session.OpenForms().empty());
}

} // namespace
