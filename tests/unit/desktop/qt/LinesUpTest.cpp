// What stands in one line or column, and at one height, by the places of widgets and the dots of pictures.
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "printmanager/frmPrintManager.h"
#include "unit/desktop/qt/Look.h"
#include "unit/desktop/qt/PreviewFixture.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

using testing::SizeIs;

/// Where the ink in a part of a widget begins and ends, in dots of the window's picture. The background is
/// that of the part's top left corner.
QRect Ink(const QString& form, const QWidget* widget, const QRect& part) {
    const QImage picture = window::PictureOf(form);
    const double density = picture.devicePixelRatio();
    const QPoint start = (QPointF(widget->mapTo(widget->window(), part.topLeft())) * density).toPoint();
    const QRect area(start, part.size() * density);
    const QColor background = picture.pixelColor(area.topLeft());
    QRect ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (window::ContrastOf(picture.pixelColor(x, y), background) > 1.5) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

QRect Ink(const QString& form, const QWidget* widget) {
    return Ink(form, widget, widget->rect());
}

class LinesUpTest : public testing::Test {
  protected:
    LinesUpTest() {
        program.Set("GMUFontName", "OCR-B");
        program.Set("GMUContractVorm", "34");
        program.Set("IncassantBankGiro", "NL13ABNA0500000018");
        program.Start();
        window::Settle();
    }

    static QWidget* Widget(const char* control) { return window::Find(Wizard, control); }
    static std::vector<QLabel*> Labels(const QString& text) {
        std::vector<QLabel*> found;
        for (auto* label : window::Of(Wizard)->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == text) {
                found.push_back(label);
            }
        }
        return found;
    }
    static QLabel* Label(const QString& text) {
        const std::vector<QLabel*> found = Labels(text);
        EXPECT_THAT(found, SizeIs(1)) << text.toStdString();
        return found.front();
    }
    void GoToPage(int wanted) {
        constexpr const char* way[] = {"Verder", "optProcedure(0)", "Verder", "optTestpartij(0)", "Verder"};
        for (const char* control : way) {
            if (program.form.Page < wanted) {
                window::Click(Widget(control), {10, Widget(control)->height() / 2});
            }
        }
        ASSERT_EQ(program.form.Page, wanted);
    }
    /// Dots of the picture to a logical one.
    static int Density() { return static_cast<int>(window::PictureOf(Wizard).devicePixelRatio()); }

    Program program;
    window::MessageBoxes boxes;
};

TEST_F(LinesUpTest, TextsBelowAnOptionBeginWhereItsCaptionDoes) {
    GoToPage(1);
    const QWidget* option = Widget("optProcedure(1)");
    const int mark = option->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth);
    const int caption = Ink(Wizard, option, option->rect().adjusted(mark + 1, 0, 0, 0)).left();
    for (const char* text :
         {"De verkorte procedure wijkt op de volgende punten af van de algemene procedure:", "Let op:"}) {
        // The letters themselves begin a little behind their places.
        EXPECT_NEAR(Ink(Wizard, Label(text)).left(), caption, 2 * Density()) << text;
    }
}

TEST_F(LinesUpTest, GapsAroundTheBoldWordsOfTheHintAreEven) {
    // What lies behind a text is the place of the next one.
    const auto inkUpTo = [](const QLabel* label, const QLabel* next) {
        return Ink(Wizard, label, {0, 0, next->x() - label->x(), label->height()});
    };
    const QLabel* button = Label("Volgende >");
    const QLabel* end = Label("om verder te gaan");
    const QRect before = inkUpTo(Label("Klik op "), button);
    const QRect bold = inkUpTo(button, end);
    const QRect after = Ink(Wizard, end);
    const int first = bold.left() - before.right();
    const int second = after.left() - bold.right();
    EXPECT_GT(first, 2 * Density());
    EXPECT_NEAR(first, second, 3 * Density());
    EXPECT_LT(second, QFontMetrics(QApplication::font()).horizontalAdvance("MM") * Density());
}

TEST_F(LinesUpTest, TheNoteBeginsOnTheLineOfItsField) {
    const QString text = QStringLiteral("Controleer uw IBAN nummer voordat u verder gaat.");
    const QLabel* note = Label(text);
    const QLabel* name = Label("IBAN:");
    EXPECT_EQ(note->y() + note->contentsMargins().top(), name->y() + name->contentsMargins().top());
    const QWidget* field = Widget("UserText(74)");
    const int middle = note->y() + note->contentsMargins().top() + note->fontMetrics().height() / 2;
    EXPECT_NEAR(middle, field->geometry().center().y(), 1);
}

TEST_F(LinesUpTest, TheSampleOfTheFontStandsInTheColumnOfTheSettings) {
    for (const char* control : {"lblOCRFont", "lblOCR", "lblContractsoort", "UserText(70)"}) {
        EXPECT_EQ(Widget(control)->x(), Widget("UserText(74)")->x()) << control;
    }
    EXPECT_GE(Ink(Wizard, Widget("lblOCR")).top(), Ink(Wizard, Widget("lblOCRFont")).bottom());
    EXPECT_LE(Ink(Wizard, Widget("lblOCR")).bottom(), Ink(Wizard, Widget("lblContractsoort")).top());
}

TEST_F(LinesUpTest, TheFieldsOfTheLastPageStandInTheColumnsOfTheButtons) {
    GoToPage(3);
    EXPECT_EQ(Widget("UserText(0)")->x(), Widget("Terug")->x());
    EXPECT_EQ(Widget("cmdPrinten")->x(), Widget("Verder")->x());
    for (const char* text : {"250 testdocumenten", "100 testdocumenten"}) {
        for (const QLabel* number : Labels(text)) {
            EXPECT_EQ(number->x(), Widget("UserText(0)")->x());
        }
    }
    EXPECT_THAT(Labels("250 testdocumenten"), SizeIs(2));
}

TEST_F(LinesUpTest, TheFieldsOfTheManagerHaveOneWidth) {
    program.state.DocumentTitle[1] = "Namenlijst";
    printmanager::frmPrintManager manager(program.session, program.services, program.state);
    manager.Show();
    window::Settle();
    manager.pictError.SetVisible(true);
    const QRect box = window::Find(Manager, "cboPrinterSelect(0)")->geometry();
    const QRect below = window::Find(Manager, "ProgressBar")->geometry();
    EXPECT_EQ(box.left(), below.left());
    EXPECT_EQ(box.right(), below.right());
    const QWidget* sign = window::Find(Manager, "pictError");
    EXPECT_LT(sign->geometry().right(), box.left());
    EXPECT_GT(sign->x(), Ink(Manager, window::Find(Manager, "Label3")).right() / Density());
    manager.Unload();
}

class PreviewLinesUpTest : public PreviewTest {};

TEST_F(PreviewLinesUpTest, NothingStandsBetweenThePageAndTheStatusBar) {
    Show(1, [&] {
        const QWidget* rule = Widget("Line5");
        const QWidget* bar = Widget("StatusBar");
        const QWidget* window = rule->window();
        EXPECT_EQ(bar->mapTo(window, QPoint(0, 0)).y(), rule->mapTo(window, QPoint(0, 0)).y());
        EXPECT_EQ(bar->mapTo(window, bar->rect().bottomLeft()).y(), window->rect().bottom());
    });
}

// Two buttons that lead to no page before the first, and one of the colours of each.
TEST_F(PreviewLinesUpTest, ArrowsThatLeadNowhereHaveOneColour) {
    Show(3, [&] {
        const auto darkest = [&](const char* name) {
            QWidget* arrow = Widget(name);
            const QImage picture = arrow->grab().toImage();
            const QColor background = arrow->palette().color(QPalette::Window);
            QColor found = background;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    const QColor colour = picture.pixelColor(x, y);
                    if (window::ContrastOf(colour, background) > window::ContrastOf(found, background)) {
                        found = colour;
                    }
                }
            }
            return found;
        };
        ASSERT_FALSE(Widget("Toolbar(4)")->isEnabled());
        EXPECT_EQ(darkest("Toolbar(4)"), darkest("cmdUp"));
        EXPECT_NE(darkest("Toolbar(5)"), darkest("cmdUp"));
    });
}

} // namespace
