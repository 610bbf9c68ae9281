// What the windows look like under the themes that a desktop may have: texts can be read, the focus is seen,
// and what is disabled looks it.
#include "unit/desktop/qt/Look.h"

#include <cmath>
#include <memory>
#include <set>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/qt/ThemedPicture.h"
#include "forms/Contrast.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "stories/demo/Palettes.h"
#include "unit/desktop/qt/Clipping.h"
#include "unit/desktop/qt/PreviewFixture.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

using testing::IsEmpty;

constexpr const char* Themes[] = {"light", "dark", "contrast", "mixed"};

/// While it lives the desktop has this theme.
class Theme {
  public:
    explicit Theme(const char* name) { QApplication::setPalette(DesktopPalette(name)); }
    ~Theme() { QApplication::setPalette(QApplication::style()->standardPalette()); }
    Theme(const Theme&) = delete;
    Theme& operator=(const Theme&) = delete;
};

class LookTest : public testing::TestWithParam<const char*> {
  protected:
    LookTest() : theme_(GetParam()) {
        program.Set("GMUFontName", "OCR-B");
        program.Set("GMUContractVorm", "34");
        program.Set("IncassantBegunstigde", "Stichting Voorbeeld");
        program.Set("IncassantPostCode", "1234AB");
        program.Set("IncassantBankGiro", "NL13ABNA0500000018");
    }

    void Start() {
        program.Start();
        window::Settle();
    }
    static void LeaveBoxes(const char* form) {
        // A text that is selected has colours of its own, which are the theme's.
        for (auto* box : window::Of(form)->findChildren<QLineEdit*>()) {
            box->deselect();
        }
    }
    void ExpectReadable(const char* form) {
        LeaveBoxes(form);
        EXPECT_THAT(window::Unreadable(form), IsEmpty());
    }
    void GoToPage(int wanted) {
        constexpr const char* way[] = {"Verder", "optProcedure(0)", "Verder", "optTestpartij(0)", "Verder"};
        for (const char* control : way) {
            if (program.form.Page == wanted) {
                return;
            }
            QWidget* widget = window::Find(Wizard, control);
            window::Click(widget, {10, widget->height() / 2});
        }
    }
    printmanager::frmPrintManager& OpenManager() {
        program.state.DocumentTitle[1] = "Acceptgiroformulieren voor de drukkeuring";
        program.state.DocumentTitle[2] = "Namenlijst";
        manager_ =
            std::make_unique<printmanager::frmPrintManager>(program.session, program.services, program.state);
        manager_->Show();
        window::Settle();
        return *manager_;
    }
    printmanager::frmPrintManagerSetup& OpenSetup() {
        setup_ = std::make_unique<printmanager::frmPrintManagerSetup>(program.session, program.services,
                                                                      program.state);
        setup_->Show();
        window::Settle();
        return *setup_;
    }

    /// Goes through the controls of a window with the Tab key; each looks clearly different while it has the
    /// focus. How many there are.
    int ExpectFocusSeen(const char* form) {
        std::set<const QWidget*> visited;
        QImage before = window::PictureOf(form);
        const QWidget* first = QApplication::focusWidget();
        for (const QWidget* left = first; visited.insert(left).second;) {
            window::Key(Qt::Key_Tab);
            const QImage after = window::PictureOf(form);
            const QWidget* entered = QApplication::focusWidget();
            EXPECT_NE(entered, left);
            // More than the caret alone, in dots of any density.
            const double density = after.devicePixelRatio();
            const double least = 2 * entered->fontMetrics().height() * density;
            EXPECT_GT(window::Differing(entered, before, after), least)
                << entered->objectName().toStdString();
            left = entered;
            before = after;
        }
        return static_cast<int>(visited.size());
    }

    Program program;
    window::MessageBoxes boxes;

  private:
    Theme theme_;
    std::unique_ptr<printmanager::frmPrintManager> manager_;
    std::unique_ptr<printmanager::frmPrintManagerSetup> setup_;
};

TEST_P(LookTest, EveryPageOfTheWizardCanBeRead) {
    Start();
    for (int page = 0; page <= 3; ++page) {
        GoToPage(page);
        ASSERT_EQ(program.form.Page, page);
        EXPECT_GT(window::PaintedTexts(Wizard).size(), 7U);
        ExpectReadable(Wizard);
    }
}

TEST_P(LookTest, TheManagerAndItsDetailsCanBeRead) {
    OpenManager();
    ExpectReadable(Manager);
    window::Click(window::Find(Manager, "cmdDetails"));
    ASSERT_TRUE(window::Find(Manager, "pictDetails")->isVisible());
    EXPECT_GT(window::PaintedTexts(Manager).size(), 20U);
    ExpectReadable(Manager);
}

TEST_P(LookTest, ThePanelOfTheSortCanBeRead) {
    OpenManager().pictFakeForm.SetVisible(true);
    window::Settle();
    ExpectReadable(Manager);
}

TEST_P(LookTest, TheSetupOfTheManagerCanBeRead) {
    OpenSetup();
    ExpectReadable(SetupForm);
}

TEST_P(LookTest, AThemeThatChangesIsFollowed) {
    Start();
    QApplication::setPalette(DesktopPalette(GetParam() == std::string("dark") ? "light" : "dark"));
    window::Settle();
    ExpectReadable(Wizard);
}

TEST_P(LookTest, WhatIsDisabledLooksItAndCanBeMadeOut) {
    Start();
    QWidget* button = window::Find(Wizard, "Terug");
    const auto ink = [&] {
        for (const window::PaintedText& text : window::PaintedTexts(Wizard)) {
            if (text.Widget == button) {
                return text.Ink;
            }
        }
        return QColor();
    };
    ASSERT_FALSE(button->isEnabled());
    const QColor disabled = ink();
    GoToPage(1);
    ASSERT_TRUE(button->isEnabled());
    EXPECT_GE(window::ContrastOf(disabled, ink()), 1.5);
}

TEST_P(LookTest, TheFocusIsSeenOnEveryControlOfTheWizard) {
    Start();
    EXPECT_GE(ExpectFocusSeen(Wizard), 7);
    GoToPage(1);
    EXPECT_GE(ExpectFocusSeen(Wizard), 4);
    GoToPage(3);
    EXPECT_GE(ExpectFocusSeen(Wizard), 4);
}

TEST_P(LookTest, TheFocusIsSeenOnEveryControlOfTheManager) {
    OpenManager();
    window::Click(window::Find(Manager, "cmdDetails"));
    EXPECT_GE(ExpectFocusSeen(Manager), 8);
}

// An option that is off is known by its mark alone, and a box by its frame.
TEST_P(LookTest, MarksAndFramesAreSeen) {
    Start();
    const auto seen = [](const char* control, const QRect& area) {
        const QImage picture = window::PictureOf(Wizard);
        const QWidget* widget = window::Find(Wizard, control);
        const double density = picture.devicePixelRatio();
        const QPoint start = widget->mapTo(widget->window(), area.topLeft());
        const QRect dots((QPointF(start) * density).toPoint(), area.size() * density);
        const QColor background = picture.pixelColor(dots.left() - 2, dots.top() - 2);
        double most = 1;
        for (int y = dots.top(); y <= dots.bottom(); ++y) {
            for (int x = dots.left(); x <= dots.right(); ++x) {
                most = std::max(most, window::ContrastOf(picture.pixelColor(x, y), background));
            }
        }
        return most;
    };
    EXPECT_GE(seen("UserText(72)", {0, 0, 4, window::Find(Wizard, "UserText(72)")->height()}), 1.5);
    GoToPage(1);
    EXPECT_GE(seen("optProcedure(1)", {0, 0, 14, window::Find(Wizard, "optProcedure(1)")->height()}), 1.5);
}

TEST_P(LookTest, TheNoteBesideTheAccountKeepsItsHue) {
    Start();
    int notes = 0;
    for (const window::PaintedText& text : window::PaintedTexts(Wizard)) {
        if (text.Ink.saturation() > 40 && text.Ink.red() > text.Ink.blue() &&
            text.Ink.red() > text.Ink.green() + 20) {
            ++notes;
        }
    }
    EXPECT_GE(notes, 1);
}

TEST_P(LookTest, ThePictureOfTheHeadingIsDrawnForTheDotsOfTheScreen) {
    Start();
    const QWidget* logo = window::Find(Wizard, "pictLogo");
    const QImage window = window::PictureOf(Wizard);
    const double density = window.devicePixelRatio();
    const QPoint start = (QPointF(logo->mapTo(logo->window(), QPoint(0, 0))) * density).toPoint();
    const QImage shown = window.copy(QRect(start, logo->size() * density));
    QImage drawn(shown.size(), QImage::Format_RGB32);
    const QColor background = logo->palette().color(QPalette::Window);
    drawn.fill(background);
    QPainter painter(&drawn);
    QSvgRenderer renderer(desktop::qt::ThemedPicture("wizard", background));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    painter.scale(density, density);
    renderer.render(&painter, QRectF(QPointF(0, 0), logo->size()));
    painter.end();
    int others = 0;
    int marks = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QColor one = drawn.pixelColor(x, y);
            const QColor other = shown.pixelColor(x, y);
            const int apart =
                std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                          std::abs(one.blue() - other.blue())});
            others += apart > 8 ? 1 : 0;
            marks += one != background ? 1 : 0;
        }
    }
    EXPECT_GT(marks, drawn.width() * drawn.height() / 4);
    EXPECT_EQ(others, 0);
}

// Dot for dot what the toolkit's own icon of the file is, for which it loads a plugin.
TEST(WindowIconTest, IsThePictureOfTheProgram) {
    const QIcon ours = desktop::qt::PictureIcon("program");
    const QIcon toolkits(":/pictures/program.svg");
    for (const int size : {16, 22, 32, 48, 64, 128, 256}) {
        const QImage picture = ours.pixmap(size, size).toImage();
        EXPECT_GT(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 0) << size;
        EXPECT_EQ(picture, toolkits.pixmap(size, size).toImage()) << size;
    }
    EXPECT_FALSE(ours.isNull());
    EXPECT_EQ(ours.availableSizes(), toolkits.availableSizes());
}

INSTANTIATE_TEST_SUITE_P(Themes, LookTest, testing::ValuesIn(Themes),
                         [](const auto& theme) { return std::string(theme.param); });

class PreviewLookTest : public PreviewTest, public testing::WithParamInterface<const char*> {
  protected:
    PreviewLookTest() : theme_(GetParam()) {}

  private:
    Theme theme_;
};

TEST_P(PreviewLookTest, TheWindowCanBeReadAndItsSignsStandOut) {
    Show(3, [&] {
        EXPECT_THAT(window::Unreadable(Preview), IsEmpty());
        for (const char* sign : {"Toolbar(1)", "Toolbar(5)", "Toolbar(8)", "cmdDown"}) {
            const QWidget* widget = Widget(sign);
            ASSERT_TRUE(widget->isEnabled()) << sign;
            const QImage picture = const_cast<QWidget*>(widget)->grab().toImage();
            const QColor background = widget->palette().color(QPalette::Window);
            double most = 1;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    most = std::max(most, window::ContrastOf(picture.pixelColor(x, y), background));
                }
            }
            EXPECT_GE(most, 2.8) << sign; // a thin line is mixed with what it lies on
        }
    });
}

TEST_P(PreviewLookTest, TheSheetIsWhiteOnABackgroundOfItsOwn) {
    Show(1, [&] {
        const QImage picture = window::PictureOf(Preview);
        const QWidget* sheet = Widget("pictPageContainer");
        const double density = picture.devicePixelRatio();
        const QPoint corner = sheet->mapTo(sheet->window(), QPoint(0, 0));
        const auto at = [&](const QPoint& place) {
            return picture.pixelColor((QPointF(place) * density).toPoint());
        };
        EXPECT_EQ(at(corner + QPoint(3, 20)), QColor(Qt::white));
        EXPECT_GE(window::ContrastOf(at(corner + QPoint(-3, 20)), Qt::white), 1.5);
    });
}

INSTANTIATE_TEST_SUITE_P(Themes, PreviewLookTest, testing::ValuesIn(Themes),
                         [](const auto& theme) { return std::string(theme.param); });

} // namespace
