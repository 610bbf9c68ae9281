#include <cmath>
#include <new>

#include <QAccessible>
#include <QHelpEvent>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTest>
#include <QToolTip>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "composition/CalibrationReport.h"
#include "desktop/qt/PictureWidget.h"
#include "unit/desktop/qt/PaintedPage.h"
#include "unit/desktop/qt/PreviewFixture.h"

namespace {

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
    const auto dark = [](const machine::PageBitmap& bitmap) {
        const QImage image = Painted(bitmap);
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
    const machine::FontSpec font{"Tahoma", 12, false};
    const std::string text(40, 'H');
    page->Drawing().DrawText(0, 0, text, font);
    const auto bitmap = page->Image();
    const QImage image = Painted(*bitmap);
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

TEST_F(PreviewTest, TheSampleOfTheReportShowsInAnotherFontWhereItsOwnIsMissing) {
    state.GMUFontName = "Bestaat Niet";
    const auto ink = [this](const char* size) {
        state.GMUFontSize = size;
        preview.OpenPreview(0);
        composition::PrintCalibrationReport(state, memory.locale);
        state.Surface->EndDoc();
        const QImage page = Painted(Bitmap(1));
        int dark = 0;
        for (int y = 0; y < page.height(); ++y) {
            for (int x = 0; x < page.width(); ++x) {
                dark += page.pixelColor(x, y).lightness() < 128 ? 1 : 0;
            }
        }
        preview.OpenPreview(1);
        return dark;
    };
    EXPECT_GT(ink("30"), ink("1") + 1000) << "the sample is there to be judged";
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
        Wheel({0, 60});
        Wheel({120, 0});
        Wheel({0, 60});
        EXPECT_EQ(Bar()->value(), 0) << "a turn to the side takes nothing back";
    });
}

TEST_F(PreviewTest, SmallPartsOfATurnMakeANotch) {
    Show(1, [this] {
        for (int part = 0; part < 7; ++part) {
            Wheel({0, -15});
        }
        EXPECT_EQ(Bar()->value(), 0);
        Wheel({0, -15});
        EXPECT_EQ(Bar()->value(), 15);
        Wheel({0, -105});
        Wheel({0, 15});
        Wheel({0, -105});
        EXPECT_EQ(Bar()->value(), 15) << "another way begins anew";
        Wheel({0, -1000000});
        EXPECT_EQ(Bar()->value(), 30) << "only the way counts";
    });
}

TEST_F(PreviewTest, TheWheelScrollsWhereverThePointerIs) {
    Show(1, [this] {
        int expected = 0;
        for (const char* name : {"pictCurrentPage", "VScroll", "cmdDown", "Toolbar(1)", "StatusBar"}) {
            window::Wheel(Widget(name), {0, -120});
            expected += 15;
            EXPECT_EQ(Bar()->value(), expected) << name;
        }
    });
}

TEST_F(PreviewTest, CtrlDoesNotChangeAKey) {
    Show(1, [this] {
        window::Key(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(Bar()->value(), 100);
        window::Key(Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(Bar()->value(), 0);
        window::Key(Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(Bar()->value(), 0);
    });
}

TEST_F(PreviewTest, ThePageIsOnTheScreenDotForDot) {
    Show(2, [this] {
        for (const int page : {1, 2}) {
            const QImage seen = Widget("pictCurrentPage")->grab().toImage();
            const QImage drawn = Painted(Bitmap(page), seen.devicePixelRatio());
            const QSize both = seen.size().boundedTo(drawn.size());
            EXPECT_NEAR(both.width(), drawn.width(), 1);
            EXPECT_EQ(both.height(), drawn.height());
            const QRect area(QPoint(0, 0), both);
            EXPECT_EQ(seen.copy(area).convertToFormat(drawn.format()), drawn.copy(area));
            window::Key(Qt::Key_End);
            window::Key(Qt::Key_PageDown);
        }
    });
}

// Where the desktop has screens of several densities.
TEST_F(PreviewTest, ThePageIsAsSharpOnEachScreenAsIfItWereDrawnThere) {
    if (QGuiApplication::screens().size() < 2) {
        GTEST_SKIP() << "there is one screen alone";
    }
    Show(1, [this] {
        QWindow* window = window::Of("frmPrintPreview")->windowHandle();
        QList<QScreen*> visits = QGuiApplication::screens();
        visits.push_back(visits.front());
        for (QScreen* screen : visits) {
            window->setScreen(screen);
            window->setGeometry(QRect(screen->geometry().topLeft(), window->size()));
            window::Settle();
            ASSERT_EQ(Widget("pictCurrentPage")->devicePixelRatio(), screen->devicePixelRatio());
            const QImage drawn = Painted(Bitmap(1), screen->devicePixelRatio());
            const QImage seen = Widget("pictCurrentPage")->grab().toImage().convertToFormat(drawn.format());
            const QRect area(QPoint(0, 0), seen.size().boundedTo(drawn.size()));
            EXPECT_GE(area.height(), drawn.height() - 1);
            EXPECT_EQ(seen.copy(area), drawn.copy(area)) << screen->name().toStdString();
        }
    });
}

TEST_F(PreviewTest, BesideThePageTheBoxHasItsOwnColour) {
    Show(1, [this] {
        Form().pictCurrentPage.SetBackColor(forms::colour::Rgb(0, 128, 0));
        window::Settle();
        const QImage seen = Widget("pictCurrentPage")->grab().toImage();
        const QImage drawn = Painted(Bitmap(1), seen.devicePixelRatio());
        ASSERT_GT(seen.height(), drawn.height() + 2);
        EXPECT_EQ(seen.pixelColor(5, drawn.height() - 2), QColor(Qt::white));
        for (int y = drawn.height() + 2; y < seen.height(); ++y) {
            EXPECT_EQ(seen.pixelColor(5, y), QColor(0, 128, 0)) << y;
        }
    });
}

TEST_F(PreviewTest, TheBarsTouchTheEdgesOfTheWindow) {
    Show(1, [this] {
        const QWidget* top = window::Of("frmPrintPreview");
        const QWidget* bar = Widget("VScroll");
        const auto right = [top](const QWidget* widget) {
            return widget->mapTo(top, widget->rect().topRight()).x() + 1;
        };
        EXPECT_NEAR(right(Widget("pictVScroll")), top->width(), 1);
        EXPECT_NEAR(right(bar), top->width(), 2);
        const QWidget* menu = Widget("SSActiveToolBars");
        EXPECT_EQ(menu->height(), menu->sizeHint().height());
        EXPECT_LE(menu->geometry().bottom(), Widget("ToolbarContainer")->mapTo(top, QPoint(0, 0)).y());
    });
}

TEST_F(PreviewTest, ASheetOfNoUsableSizeIsAnErrorAndNoCrash) {
    for (const double size : {0.0, -15.0, 1e300, std::nan("")}) {
        EXPECT_THROW(bitmaps.CreatePage(size, 1500), base::RuntimeError) << size;
        EXPECT_THROW(bitmaps.CreatePage(1500, size), base::RuntimeError) << size;
    }
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
    Show(1, [] {
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
        EXPECT_EQ(Widget("pictPageContainer")->y(), desktop::qt::ToDots(Form().pictPageContainer.Top()));
    });
}

TEST_F(PreviewTest, TheMenuPrints) {
    Show(1, [] {
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
        for (const char* name : {"Toolbar(3)", "Toolbar(4)", "Toolbar(5)", "Toolbar(6)"}) {
            EXPECT_FALSE(Widget(name)->isEnabled()) << name;
        }
        EXPECT_TRUE(Widget("Toolbar(1)")->isEnabled());
        EXPECT_EQ(Widget("Toolbar(1)")->toolTip(), "Afdrukken (Proefprinter)");
        EXPECT_EQ(Widget("Toolbar(8)")->accessibleName(), "Afdrukvoorbeeld sluiten");
        EXPECT_EQ(Widget("Toolbar(8)")->toolTip(), "");
    });
}

TEST_F(PreviewTest, AnArrowThatLeadsNowhereTellsWhatItIsForAllTheSame) {
    Show(1, [this] {
        const std::pair<const char*, const char*> arrows[] = {{"cmdUp", " Vorige pagina... "},
                                                              {"cmdDown", " Volgende pagina... "}};
        for (const auto& [name, toolTip] : arrows) {
            QWidget* arrow = Widget(name);
            EXPECT_TRUE(arrow->isEnabled()) << "the toolkit shows no tooltip of a widget that is not";
            QHelpEvent help(QEvent::ToolTip, arrow->rect().center(),
                            arrow->mapToGlobal(arrow->rect().center()));
            QApplication::sendEvent(arrow, &help);
            EXPECT_TRUE(QToolTip::isVisible());
            EXPECT_EQ(QToolTip::text(), QString(toolTip)) << name;
            QToolTip::hideText();
            EXPECT_TRUE(QAccessible::queryAccessibleInterface(arrow)->state().disabled) << name;
            window::PointAt(arrow);
            window::Click(arrow);
            QAccessible::queryAccessibleInterface(arrow)->actionInterface()->doAction(
                QAccessibleActionInterface::pressAction());
        }
        EXPECT_EQ(Form().cmdUp.iState(), forms::cmdButtonXP::LookDisabled);
        EXPECT_FALSE(Form().cmdUp.Timer.Enabled());
        EXPECT_EQ(Panel(1), "Pagina: 1");
    });
}

TEST_F(PreviewTest, TheArrowLightsUpUnderTheMouseAndTurnsThePage) {
    Show(2, [this] {
        QWidget* arrow = Widget("cmdDown");
        const QImage normal = arrow->grab().toImage();
        window::PointAt(arrow);
        EXPECT_TRUE(Form().cmdDown.blnOver());
        EXPECT_TRUE(Form().cmdDown.Timer.Enabled());
        EXPECT_TRUE(
            window::WaitFor([this] { return Form().cmdDown.iState() == forms::cmdButtonXP::LookHot; }));
        EXPECT_NE(arrow->grab().toImage(), normal);
        window::Click(arrow);
        EXPECT_EQ(PageOnScreen(), 2);
        EXPECT_EQ(Form().cmdDown.iState(), forms::cmdButtonXP::LookDisabled);
        EXPECT_NE(arrow->grab().toImage(), normal);
    });
}

TEST_F(PreviewTest, TheArrowIsItselfAgainWhenThePointerHasLeft) {
    Show(2, [this] {
        QWidget* arrow = Widget("cmdDown");
        const QImage normal = arrow->grab().toImage();
        const auto looks = [this](std::int16_t look) {
            return window::WaitFor([this, look] { return Form().cmdDown.iState() == look; });
        };
        window::PointAt(arrow);
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookHot));
        window::PointAt(Widget("Toolbar(1)"));
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookNormal));
        EXPECT_FALSE(Form().cmdDown.Timer.Enabled());
        EXPECT_EQ(arrow->grab().toImage(), normal);
    });
}

TEST_F(PreviewTest, AnyButtonOfTheMouseHoldsAnArrowAndTheLeftOneWorksIt) {
    Show(2, [this] {
        QWidget* arrow = Widget("cmdDown");
        for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
            QTest::mousePress(arrow, other);
            EXPECT_TRUE(Form().cmdDown.blnMouseDown());
            QTest::mouseRelease(arrow, other);
            EXPECT_FALSE(Form().cmdDown.blnMouseDown());
            QTest::mouseDClick(arrow, other);
            QTest::mouseRelease(
                arrow, other); // a double click leaves the button down, also for the tests after this
        }
        EXPECT_EQ(PageOnScreen(), 1);
        QTest::mousePress(arrow, Qt::LeftButton);
        QTest::mouseRelease(arrow, Qt::RightButton);
        EXPECT_EQ(PageOnScreen(), 1);
        QTest::mouseRelease(arrow, Qt::LeftButton);
        EXPECT_EQ(PageOnScreen(), 2);
    });
}

TEST_F(PreviewTest, AnArrowThatThePointerLeavesWithTheButtonHeldWaitsForTheRelease) {
    Show(2, [this] {
        QWidget* arrow = Widget("cmdDown");
        const auto looks = [this](std::int16_t look) {
            return window::WaitFor([this, look] { return Form().cmdDown.iState() == look; });
        };
        window::PointAt(arrow);
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookHot));
        const QImage hot = arrow->grab().toImage();
        QTest::mousePress(arrow, Qt::LeftButton);
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookDown));
        EXPECT_NE(arrow->grab().toImage(), hot);
        window::PointAt(Widget("Toolbar(1)"));
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookHot));
        EXPECT_EQ(arrow->grab().toImage(), hot);
        EXPECT_TRUE(Form().cmdDown.Timer.Enabled());
        QTest::mouseRelease(arrow, Qt::LeftButton, {}, {-40, -40});
        EXPECT_TRUE(looks(forms::cmdButtonXP::LookNormal));
        EXPECT_FALSE(Form().cmdDown.Timer.Enabled());
        EXPECT_EQ(PageOnScreen(), 1);
    });
}

TEST_F(PreviewTest, ADoubleClickOnAnArrowIsAnEventOfItsOwn) {
    Show(3, [this] {
        int clicks = 0;
        int doubles = 0;
        Form().cmdDown.Click = [&clicks] { ++clicks; };
        Form().cmdDown.DblClick = [&doubles] { ++doubles; };
        QWidget* arrow = Widget("cmdDown");
        QTest::mouseClick(arrow, Qt::LeftButton);
        QTest::mouseDClick(arrow, Qt::LeftButton);
        QTest::mouseRelease(arrow, Qt::LeftButton);
        EXPECT_EQ(clicks, 1);
        EXPECT_EQ(doubles, 1);
        EXPECT_FALSE(Form().cmdDown.blnMouseDown());
        EXPECT_FALSE(Form().cmdDown.Timer.Enabled());
    });
}

/// Pages whose first picture after the next yield finds no memory.
class ShortBitmaps final : public machine::Bitmaps {
  public:
    bool Short = false;

    std::unique_ptr<machine::OffscreenPage> CreatePage(double width, double height) override {
        return std::make_unique<Page>(bitmaps_.CreatePage(width, height), Short);
    }

  private:
    class Page final : public machine::OffscreenPage {
      public:
        Page(std::unique_ptr<machine::OffscreenPage> page, bool& isShort)
            : page_(std::move(page)), short_(isShort) {}
        machine::Canvas& Drawing() override { return page_->Drawing(); }
        std::shared_ptr<const machine::PageBitmap> Image() override {
            if (std::exchange(short_, false)) {
                throw std::bad_alloc();
            }
            return page_->Image();
        }
        void Cls() override { page_->Cls(); }
        void Discard() override { page_->Discard(); }

      private:
        std::unique_ptr<machine::OffscreenPage> page_;
        bool& short_;
    };

    desktop::qt::QtBitmaps bitmaps_;
};

TEST_F(PreviewTest, OutOfMemoryInAPageBreakCostsNoPreview) {
    ShortBitmaps shortBitmaps;
    machine::Platform machine{desktop,       memory.registry,   memory.locale,   memory.clock,
                              memory.random, memory.spooler,    memory.printers, memory.printer,
                              shortBitmaps,  desktop.Windows(), memory.fonts};
    preview::PrintPreview another(session, machine, state, printer);
    window::MessageBoxes boxes;
    another.OpenPreview(0);
    state.Surface->PrintLine("pagina 1");
    shortBitmaps.Short = true;
    EXPECT_NO_THROW(state.Surface->Newpage());
    EXPECT_FALSE(shortBitmaps.Short);
    state.Surface->Newpage();
    state.Surface->EndDoc();
    window::WhenShown("frmPrintPreview", [&] {
        EXPECT_EQ(Panel(2), "Totaal aantal pagina's : 3");
        another.Window()->Unload();
    });
    another.Show();
    another.OpenPreview(1);
    EXPECT_TRUE(boxes.All().empty());
}

TEST_F(PreviewTest, ItsPageIsAskedForItsBoundsAndMayOutgrowTheScreen) {
    Compose(1);
    const machine::WindowHandle page = Ghost().hWnd();
    forms::MsgHook watcher(desktop.Windows());
    int asked = 0;
    watcher.After = [&](auto&, auto&, auto&) { ++asked; };
    watcher.Hook(page, {machine::WM_GETMINMAXINFO});
    Ghost().Resize(60000, 50000);
    EXPECT_EQ(asked, 1);
    const QSize size = QWidget::find(static_cast<WId>(page))->size();
    EXPECT_EQ(size, QSize(desktop::qt::ToDots(60000), desktop::qt::ToDots(50000 - forms::TitleBarHeight)));
    Ghost().Resize(1e6, 1e6);
    EXPECT_EQ(Ghost().Width(), Ghost().lMaxTrackX * 15.0);
    EXPECT_EQ(Ghost().Height(), Ghost().lMaxTrackY * 15.0);
    watcher.Unhook();
    preview.OpenPreview(1);
}

TEST_F(PreviewTest, AMenuOfTheFirstDesignHasNoBarOfItsOwn) {
    Show(1, [] {
        EXPECT_EQ(window::Of("frmPrintPreview")->findChildren<QMenuBar*>().size(), 1);
        EXPECT_EQ(window::Of("frmPrintPreview")->findChild<QWidget*>("mnu1"), nullptr);
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

// The plate behind a hot or a pressed arrow ends with a whole dot, at each density that a desktop offers.
TEST_F(PreviewTest, TheArrowsHaveFourLooksWithSharpEdges) {
    for (const int side : {16, 24, 32, 48}) {
        for (const int first : {1, 5}) {
            std::vector<QImage> looks;
            for (int number = first; number < first + 4; ++number) {
                QSvgRenderer renderer(
                    desktop::qt::PictureFile(QStringLiteral("imgResourceSmall-%1").arg(number)));
                QImage look(side, side, QImage::Format_ARGB32);
                look.fill(Qt::transparent);
                QPainter painter(&look);
                renderer.render(&painter);
                painter.end();
                EXPECT_THAT(looks, testing::Not(testing::Contains(look))) << number;
                const bool hasPlate = number >= first + forms::cmdButtonXP::LookHot;
                for (const QPoint& edge : {QPoint(0, side / 2), QPoint(side - 1, side / 2),
                                           QPoint(side / 2, 0), QPoint(side / 2, side - 1)}) {
                    EXPECT_EQ(look.pixelColor(edge).alpha(), hasPlate ? 255 : 0) << number << " at " << side;
                }
                looks.push_back(look);
            }
        }
    }
}

} // namespace
