// Where the wizard and its list tell what would spoil a batch, as windows.
#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/desktop/qt/Clipping.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"
#include "wizard/Voorcontrole.h"

namespace {

using testing::IsEmpty;

/// Settings with which nothing is found.
constexpr std::pair<const char*, const char*> QuietSettings[] = {
    {"AcceptgiroType", "1"},
    {"GMUContractVorm", "31"},
    {"GMUVerkeer", "1"},
    {"GMUFontName", "OCR-B"},
    {"GMUFontSize", "10"},
    {"IncassantAfdrukken", "1"},
    {"IncassantBegunstigde", "Wijkorkest De Lijster"},
    {"IncassantAdres", "Dorpsstraat 12"},
    {"IncassantPostCode", "1234AB"},
    {"IncassantWoonplaats", "Zandwijk"},
    {"IncassantBankGiro", "NL13ABNA0500000018"},
};

class PrecheckTest : public testing::Test {
  protected:
    PrecheckTest() {
        program.memory.fonts.Describe("OCR-B", {.WidthPerPoint = 14.4});
        memory::PrintQueue& queue = program.memory.printers.Queue(0);
        queue.Papers = {{9, 2100, 3048, "Acceptgiro"}};
        queue.Sheet = {4960, 7200};
        queue.Printable = {4960, 7200};
        queue.Offset = {0, 0};
        for (const auto& [name, value] : QuietSettings) {
            program.Set(name, value);
        }
    }

    void Start() {
        program.Start();
        window::Settle();
    }
    QWidget* Widget(const char* control) { return window::Find("frmMain", control); }
    void GoToTheLastPage() {
        for (const char* control : {"Verder", "optProcedure(1)", "Verder"}) {
            QWidget* widget = Widget(control);
            window::Click(widget, {10, widget->height() / 2});
        }
        ASSERT_EQ(program.form.Page, 3);
        ASSERT_TRUE(window::WaitFor([this] { return !program.form.Controle().tmrVoorcontrole.Enabled(); }));
    }
    /// Opens the list and runs `inside` while it is on show.
    void OpenList(const std::function<void()>& inside) {
        window::WhenShown("frmVoorcontrole", inside);
        window::Click(Widget("cmdVoorcontrole"));
    }

    Program program;
    window::MessageBoxes boxes;
};

TEST_F(PrecheckTest, WithNothingWrongNoWindowHasAControlMore) {
    Start();
    GoToTheLastPage();
    const QWidget* window = window::Of("frmMain");
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        EXPECT_FALSE(widget->objectName().startsWith("pictMelding")) << widget->objectName().toStdString();
        EXPECT_FALSE(widget->objectName().endsWith("Voorcontrole")) << widget->objectName().toStdString();
    }
}

TEST_F(PrecheckTest, APictureBesideTheFieldComesAndGoesWithWhatIsWrong) {
    program.Set("IncassantWoonplaats", "");
    Start();
    const QWidget* mark = Widget("pictMelding(73)");
    EXPECT_TRUE(mark->isVisible());
    EXPECT_EQ(mark->accessibleName(), "De plaats van de incassant is leeg.");
    EXPECT_EQ(mark->toolTip(), mark->accessibleName());
    window::Click(Widget("UserText(73)"));
    window::Type("Zandwijk");
    window::Click(Widget("UserText(70)"));
    EXPECT_FALSE(mark->isVisible());
}

TEST_F(PrecheckTest, TheLineOfTheLastPageOpensTheListByTheKeyboard) {
    program.Set("GMUContractVorm", "9");
    Start();
    GoToTheLastPage();
    EXPECT_EQ(window::Find<QPushButton>("frmMain", "cmdVoorcontrole")->text(),
              "V&oorcontrole: 1 punt vraagt uw aandacht");
    EXPECT_THAT(window::Clipped("frmMain"), IsEmpty());
    window::Key(Qt::Key_Tab);
    window::Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Widget("cmdVoorcontrole"));
    bool seen = false;
    window::WhenShown("frmVoorcontrole", [&] {
        seen = true;
        EXPECT_EQ(QApplication::focusWidget(), window::Find("frmVoorcontrole", "lstMeldingen"));
        window::Key(Qt::Key_Escape);
    });
    window::Key(Qt::Key_Return);
    EXPECT_TRUE(seen);
    EXPECT_EQ(window::Of("frmVoorcontrole"), nullptr);
}

TEST_F(PrecheckTest, TheListHasRoomForEachFinding) {
    program.Set("GMUContractVorm", "9");
    program.Set("GMUFontSize", "48");
    program.Set("IncassantBegunstigde", "Vereniging van Vrienden van het Oude Stadhuis en Omstreken");
    program.Set("OCRLinks0", "1.50");
    program.Set("AcceptGiroBGAcceptTop1", "-120,00");
    program.Set("AcceptGiroNAWLinks1", "-60,00");
    Start();
    GoToTheLastPage();
    OpenList([] {
        auto* list = window::Find<QListWidget>("frmVoorcontrole", "lstMeldingen");
        EXPECT_GT(list->count(), 5);
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            window::Settle();
            EXPECT_THAT(window::Clipped("frmVoorcontrole"), IsEmpty()) << row;
            EXPECT_FALSE(window::Find<QLabel>("frmVoorcontrole", "lblFout")->text().isEmpty());
        }
        window::Key(Qt::Key_Escape);
    });
}

TEST_F(PrecheckTest, AFindingOfTheFontShowsItsDigitsAndTrueOnes) {
    program.memory.fonts.Describe("OCR-B", {.WidthPerPoint = 12});
    Start();
    GoToTheLastPage();
    OpenList([] {
        EXPECT_TRUE(window::Find("frmVoorcontrole", "pictSchets")->isVisible());
        EXPECT_EQ(window::Find("frmVoorcontrole", "pictSchets")->accessibleName(), "De cijfers van OCR-B");
        EXPECT_TRUE(window::Find("frmVoorcontrole", "pictCijfers")->isVisible());
        window::Key(Qt::Key_Escape);
    });
}

TEST_F(PrecheckTest, AFindingOfTheSheetShowsTheSheet) {
    program.Set("OCRTop0", "60,00");
    Start();
    GoToTheLastPage();
    OpenList([] {
        auto* sketch = window::Find("frmVoorcontrole", "pictSchets");
        ASSERT_TRUE(sketch->isVisible());
        EXPECT_FALSE(window::Find("frmVoorcontrole", "pictCijfers")->isVisible());
        const QImage drawn = sketch->grab().toImage();
        bool red = false;
        for (int y = 0; y < drawn.height() && !red; ++y) {
            for (int x = 0; x < drawn.width() && !red; ++x) {
                const QColor dot = drawn.pixelColor(x, y);
                red = dot.red() > 150 && dot.green() < 100 && dot.blue() < 100;
            }
        }
        EXPECT_TRUE(red) << "what is off";
        window::Key(Qt::Key_Escape);
    });
}

} // namespace
