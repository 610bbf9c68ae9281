// A preview as a user meets it in the whole program: the wizard, the print manager and the preview are real
// windows, and every step is a press of a key or of the mouse.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "printmanager/frmPrintManager.h"
#include "unit/desktop/qt/PaintedPage.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

class PreviewProgramTest : public testing::Test {
  protected:
    PreviewProgramTest() {
        program.Set("AcceptgiroType", "1"); // three forms on a sheet
        program.memory.recorder.Sink = [this](const memory::Event& event) {
            if (event.Kind == "end") {
                ended.push_back(std::get<std::string>(event.Fields.front().Value));
            }
        };
    }

    /// Goes through the wizard for so many forms, previews them, plays what `user` does, and comes back to
    /// the print manager, where `after` is played.
    void Show(
        int forms, const std::function<void()>& user, const std::function<void()>& after = [] {}) {
        program.Start();
        window::Settle();
        for (const char* control : {"Verder", "optProcedure(1)", "Verder"}) {
            QWidget* widget = window::Find("frmMain", control);
            window::Click(widget, {10, widget->height() / 2});
        }
        program.form.UserText(0).SetText(std::to_string(forms));
        bool seen = false;
        window::WhenShown(Manager, [&] {
            auto* list = window::Find<QListWidget>(Manager, "lstAfdrukken");
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(0)).center());
            window::Settle();
            window::WhenShown(Preview, [&] {
                seen = true;
                user();
                if (QWidget* left = window::Of(Preview)) {
                    ADD_FAILURE() << "the preview is still there";
                    left->close();
                }
            });
            window::Click(window::Find(Manager, "cmdPrintVoorbeeld"));
            after();
            EXPECT_TRUE(window::Of(Manager)->close());
        });
        window::Click(window::Find("frmMain", "cmdPrinten"));
        EXPECT_TRUE(seen);
        EXPECT_TRUE(program.form.Visible());
    }

    template <class FormType>
    FormType& Open(const std::string& name) {
        for (forms::Form* form : program.session.OpenForms()) {
            if (form->Name() == name) {
                return dynamic_cast<FormType&>(*form);
            }
        }
        throw std::runtime_error(name + " is not open");
    }
    preview::frmPrintPreview& Form() { return Open<preview::frmPrintPreview>(Preview); }

    static QWidget* Widget(const char* control) { return window::Find(Preview, control); }
    static QScrollBar* Bar(const char* name) { return window::Find<QScrollBar>(Preview, name); }
    static void Click(const char* control) { window::Click(Widget(control)); }
    static void Leave() { window::Key(Qt::Key_Escape); }

    static std::string Panel(int number) {
        return window::Find<QLabel>(Preview, QStringLiteral("StatusBar(%1)").arg(number))
            ->text()
            .toStdString();
    }
    /// The page that the panel names; the sheet shows the bitmap of just that page.
    int Page() {
        const std::string text = Panel(1);
        const int page = std::stoi(text.substr(text.rfind(' ')));
        const auto& ghost = Open<preview::frmPrintPreviewGhost>("frmPrintPreviewGhost");
        const QImage bitmap = Painted(*ghost.ThisPage.at(static_cast<std::int16_t>(page)).Picture);
        const QRect corner(QPoint(0, 0), bitmap.size() / 2);
        EXPECT_EQ(Widget("pictCurrentPage")->grab().toImage().convertToFormat(bitmap.format()).copy(corner),
                  bitmap.copy(corner))
            << "another page is on the sheet";
        return page;
    }

    static void Wheel(int delta) { window::Wheel(Widget("pictCurrentPage"), {0, delta}); }

    /// Where a part of a scroll bar is.
    static QPoint PartOf(const QScrollBar* bar, QStyle::SubControl part) {
        QStyleOptionSlider look;
        look.initFrom(bar);
        look.orientation = bar->orientation();
        look.minimum = bar->minimum();
        look.maximum = bar->maximum();
        look.singleStep = bar->singleStep();
        look.pageStep = bar->pageStep();
        look.sliderPosition = bar->sliderPosition();
        look.sliderValue = bar->value();
        look.subControls = QStyle::SC_All;
        if (bar->orientation() == Qt::Horizontal) {
            look.state |= QStyle::State_Horizontal;
        }
        return bar->style()->subControlRect(QStyle::CC_ScrollBar, &look, part, bar).center();
    }

    /// Opens the menu with the mouse and chooses a line with it.
    static void ChooseFromTheMenu(const char* id) {
        auto* bar = window::Find<QMenuBar>(Preview, "SSActiveToolBars");
        window::Click(bar, bar->actionGeometry(bar->actions().front()).center());
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* line : menu->actions()) {
            if (line->objectName() == id) {
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(line).center());
                window::Settle();
                return;
            }
        }
        FAIL() << id;
    }

    Program program;
    window::MessageBoxes boxes;
    /// The documents that went to the printer.
    std::vector<std::string> ended;
};

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PreviewProgramTest, OfEightyFourPagesFortyAreOfferedWithAMessage) {
    Show(250, [this] {
        ASSERT_EQ(boxes.All().size(), 1U);
        EXPECT_EQ(boxes.All()[0].Text, "Er zijn meer dan 40 pagina's gevonden, in het afdrukvoorbeeld worden "
                                       "maximaal 40 pagina's getoond.");
        EXPECT_EQ(boxes.All()[0].Title, "Drukkeuring acceptgiro's");
        EXPECT_EQ(Panel(2), "Totaal aantal pagina's : 40");
        EXPECT_EQ(Page(), 1);
        Click("Toolbar(6)");
        EXPECT_EQ(Page(), 40);
        EXPECT_FALSE(Widget("Toolbar(5)")->isEnabled());
        EXPECT_EQ(Form().cmdDown.iState(), forms::cmdButtonXP::LookDisabled);
        for (int page = 39; page > 0; --page) {
            Click("cmdUp");
            EXPECT_EQ(Page(), page);
        }
        EXPECT_EQ(Form().cmdUp.iState(), forms::cmdButtonXP::LookDisabled);
        Leave();
    });
    EXPECT_THAT(ended, IsEmpty());
}

TEST_F(PreviewProgramTest, PagesTurnByToolbarArrowsAndKeys) {
    Show(7, [this] {
        EXPECT_EQ(Panel(2), "Totaal aantal pagina's : 3");
        struct Step {
            const char* control;
            int page;
        };
        for (const Step& step : {Step{"Toolbar(5)", 2},
                                 {"Toolbar(3)", 1},
                                 {"Toolbar(6)", 3},
                                 {"Toolbar(4)", 2},
                                 {"cmdDown", 3},
                                 {"cmdUp", 2},
                                 {"cmdUp", 1}}) {
            Click(step.control);
            EXPECT_EQ(Page(), step.page) << step.control;
        }
        for (const int expected : {25, 50, 75, 100}) {
            window::Key(Qt::Key_PageDown);
            EXPECT_EQ(Bar("VScroll")->value(), expected);
        }
        EXPECT_EQ(Page(), 1);
        window::Key(Qt::Key_PageDown);
        EXPECT_EQ(Page(), 2);
        EXPECT_EQ(Bar("VScroll")->value(), 0);
        window::Key(Qt::Key_PageUp);
        EXPECT_EQ(Page(), 1);
        Leave();
    });
}

TEST_F(PreviewProgramTest, TheSheetScrollsByKeyWheelAndBar) {
    Show(7, [this] {
        const QWidget* sheet = Widget("pictPageContainer");
        const int top = sheet->y();
        const int left = sheet->x();
        window::Key(Qt::Key_Down);
        EXPECT_EQ(Bar("VScroll")->value(), 10);
        EXPECT_LT(sheet->y(), top);
        window::Key(Qt::Key_Up);
        EXPECT_EQ(sheet->y(), top);
        window::Key(Qt::Key_Right);
        EXPECT_NE(sheet->x(), left);
        window::Key(Qt::Key_End);
        EXPECT_EQ(Bar("VScroll")->value(), 100);
        EXPECT_EQ(Bar("HScroll")->value(), 100);
        window::Key(Qt::Key_Home);
        EXPECT_EQ(sheet->y(), top);

        for (const int expected : {15, 30, 45, 60, 75, 90, 100, 100}) {
            Wheel(-120);
            EXPECT_EQ(Bar("VScroll")->value(), expected);
        }
        Wheel(120);
        EXPECT_EQ(Bar("VScroll")->value(), 85);
        window::Key(Qt::Key_Home);

        QScrollBar* bar = Bar("VScroll");
        window::Click(bar, PartOf(bar, QStyle::SC_ScrollBarAddLine));
        EXPECT_EQ(bar->value(), 15);
        window::Click(bar, PartOf(bar, QStyle::SC_ScrollBarAddPage));
        EXPECT_EQ(bar->value(), 65);
        window::Click(bar, PartOf(bar, QStyle::SC_ScrollBarSubPage));
        EXPECT_EQ(bar->value(), 15);
        window::Click(bar, PartOf(bar, QStyle::SC_ScrollBarSubLine));
        EXPECT_EQ(bar->value(), 0);
        EXPECT_EQ(sheet->y(), top);
        EXPECT_EQ(Page(), 1) << "none of this turns the page";
        Leave();
    });
}

TEST_F(PreviewProgramTest, TheThumbMovesTheSheetWhenTheMouseLetsItGo) {
    Show(1, [this] {
        QScrollBar* bar = Bar("VScroll");
        const QWidget* sheet = Widget("pictPageContainer");
        const int top = sheet->y();
        const QPoint thumb = PartOf(bar, QStyle::SC_ScrollBarSlider);
        QTest::mousePress(bar, Qt::LeftButton, {}, thumb);
        QTest::mouseMove(bar, thumb + QPoint(0, bar->height() / 3));
        window::Settle();
        EXPECT_GT(bar->sliderPosition(), 0);
        EXPECT_EQ(sheet->y(), top);
        QTest::mouseRelease(bar, Qt::LeftButton, {}, thumb + QPoint(0, bar->height() / 3));
        window::Settle();
        EXPECT_GT(bar->value(), 0);
        EXPECT_EQ(Form().VScroll.Value(), bar->value());
        EXPECT_LT(sheet->y(), top);
        Leave();
    });
}

TEST_F(PreviewProgramTest, TheHorizontalBarShowsForASheetThatIsTooWide) {
    program.memory.printers.Queue(0).Sheet = {14032, 9920}; // a sheet of A3 on its side
    program.memory.printers.Queue(0).Printable = {13832, 9720};
    Show(1, [] {
        QScrollBar* bar = Bar("HScroll");
        ASSERT_TRUE(bar->isVisible());
        const int left = Widget("pictPageContainer")->x();
        window::Click(bar, PartOf(bar, QStyle::SC_ScrollBarAddLine));
        EXPECT_EQ(bar->value(), 15);
        EXPECT_LT(Widget("pictPageContainer")->x(), left);
        Leave();
    });
}

/// A way out of the preview, and whether it prints.
struct WayOut {
    const char* name;
    std::function<void()> leave;
    bool prints;

    friend void PrintTo(const WayOut& way, std::ostream* out) { *out << way.name; }
};

class PreviewWayOutTest : public PreviewProgramTest, public testing::WithParamInterface<WayOut> {
  public:
    static void Menu(const char* id) { ChooseFromTheMenu(id); }
};

TEST_P(PreviewWayOutTest, LeavesTheManagerOpenAndReady) {
    Show(
        4, [] { GetParam().leave(); },
        [this] {
            auto& manager = Open<printmanager::frmPrintManager>(Manager);
            EXPECT_TRUE(manager.Visible());
            EXPECT_FALSE(manager.blnBusy);
            EXPECT_TRUE(window::Find(Manager, "cmdPrint")->isEnabled());
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        });
    EXPECT_EQ(bool(program.state.PrintAfterPreview), GetParam().prints);
    if (GetParam().prints) {
        EXPECT_THAT(ended, ElementsAre("printer"));
    } else {
        EXPECT_THAT(ended, IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    WaysOut, PreviewWayOutTest,
    testing::Values(WayOut{"ToolbarPrint", [] { window::Click(window::Find(Preview, "Toolbar(1)")); }, true},
                    WayOut{"ToolbarClose", [] { window::Click(window::Find(Preview, "Toolbar(8)")); }, false},
                    WayOut{"MenuPrint", [] { PreviewWayOutTest::Menu("ID_Afdrukken"); }, true},
                    WayOut{"MenuClose", [] { PreviewWayOutTest::Menu("ID_Sluiten"); }, false},
                    WayOut{"Escape", [] { window::Key(Qt::Key_Escape); }, false},
                    WayOut{"CloseBox", [] { window::Of(Preview)->close(); }, false}),
    [](const auto& row) { return row.param.name; });

TEST_F(PreviewProgramTest, TheAccessKeyOpensTheMenu) {
    Show(1, [] {
        window::Key(Qt::Key_O, Qt::AltModifier);
        ASSERT_TRUE(window::WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
        window::Settle();
        EXPECT_EQ(window::Of(Preview), nullptr);
    });
}

TEST_F(PreviewProgramTest, AfterThePreviewTheManagerPreviewsAgain) {
    Show(
        4, [] { window::Key(Qt::Key_Escape); },
        [this] {
            bool again = false;
            window::WhenShown(Preview, [&] {
                again = true;
                EXPECT_EQ(Page(), 1);
                Click("Toolbar(1)");
            });
            window::Click(window::Find(Manager, "cmdPrintVoorbeeld"));
            EXPECT_TRUE(again);
        });
    EXPECT_THAT(ended, ElementsAre("printer"));
}

} // namespace
