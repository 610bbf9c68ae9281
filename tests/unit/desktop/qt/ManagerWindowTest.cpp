// The print manager and its setup form as windows, on printers in memory that fail, change and come back.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/qt/PictureWidget.h"
#include "desktop/qt/Scale.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "unit/desktop/qt/Clipping.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

using printmanager::frmPrintManager;
using testing::IsEmpty;

class ManagerWindowTest : public testing::Test {
  protected:
    ManagerWindowTest() {
        program.memory.recorder.Sink = [this](const memory::Event& event) { Count(event); };
        Laser().Comment = "Derde verdieping, naast de lift";
        program.memory.InstallPrinter({.Name = "Zwarte matrixprinter op de boekhouding, gang 2 links"});
        program.state.DocumentTitle[1] = "Acceptgiroformulieren voor de drukkeuring";
        program.state.DocumentTitle[2] = "Namenlijst";
        program.state.DocumentTitle[3] = "Instellingen calibratie";
        program.state.MessageTitle = "Drukkeuring acceptgiro's";
        program.state.PrinterInit = 1;
    }

    memory::PrintQueue& Laser() { return *program.memory.printers.Find("Proefprinter"); }

    /// The manager, shown without a caller.
    frmPrintManager& Open() {
        manager = std::make_unique<frmPrintManager>(program.session, program.services, program.state);
        manager->Show();
        window::Settle();
        return *manager;
    }
    QWidget* Widget(const char* control) { return window::Find(Manager, control); }
    QLabel* Text(const char* control) { return window::Find<QLabel>(Manager, control); }
    void PickDocument(int row) {
        auto* list = window::Find<QListWidget>(Manager, "lstAfdrukken");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
        window::Settle();
    }
    void SetCopies(const QString& text) {
        auto* box = window::Find<QLineEdit>(Manager, "UserText(0)");
        window::Click(box);
        window::Key(Qt::Key_A, Qt::ControlModifier);
        window::Type(text);
    }
    static bool Hourglass() { return QApplication::overrideCursor() != nullptr; }

    Program program;
    window::MessageBoxes boxes;
    std::unique_ptr<frmPrintManager> manager;
    int assigned = 0; // of the current printer

  private:
    void Count(const memory::Event& event) {
        if (event.Kind == "set" &&
            event.Fields[1].Value == decltype(event.Fields[1].Value)(std::string("Printer"))) {
            ++assigned;
        }
    }
};

TEST_F(ManagerWindowTest, DetailsHaveTheirPlaceBelowTheRules) {
    Open();
    EXPECT_EQ(window::Of(Manager)->height(), desktop::qt::ToDots(4650 - forms::TitleBarHeight));
    EXPECT_FALSE(Widget("pictDetails")->isVisible());
    window::Click(Widget("cmdDetails"));
    EXPECT_EQ(window::Of(Manager)->height(), desktop::qt::ToDots(7980 - forms::TitleBarHeight));
    EXPECT_TRUE(Widget("pictDetails")->isVisible());
    EXPECT_TRUE(window::Of(Manager)->rect().contains(Widget("pictDetails")->geometry()));
    const int left = Widget("ProgressBar")->mapTo(window::Of(Manager), QPoint(0, 0)).x();
    for (const char* box : {"cboPrinterSelect(1)", "cboPrinterSelect(2)", "cboPrinterSelect(3)"}) {
        EXPECT_NEAR(Widget(box)->mapTo(window::Of(Manager), QPoint(0, 0)).x(), left, 1) << box;
        EXPECT_TRUE(Widget(box)->isVisible());
    }
    EXPECT_EQ(Text("lblPrinterSelect(8)")->text(), "Derde verdieping, naast de lift");
}

TEST_F(ManagerWindowTest, PrinterThatDoesNotAnswerIsMarkedUntilTheDetailsFindIt) {
    Laser().Reachable = false;
    Open();
    EXPECT_TRUE(Widget("pictError")->isVisible());
    EXPECT_EQ(Widget("pictError")->toolTip(), "Geen verbinding met deze printer...");
    window::Click(Widget("cmdDetails"));
    EXPECT_FALSE(Widget("pictDetails")->isVisible());
    EXPECT_THAT(window::Clipped(Manager), IsEmpty());
    Laser().Reachable = true;
    window::Click(Widget("cmdDetails"));
    EXPECT_TRUE(Widget("pictDetails")->isVisible());
    EXPECT_FALSE(Widget("pictError")->isVisible());
    EXPECT_EQ(Text("lblPrinterSelect(6)")->text(), "Proefprinter");
    EXPECT_EQ(window::Find<QComboBox>(Manager, "cboPrinterSelect(1)")->count(), 2);
    EXPECT_FALSE(Hourglass());
}

TEST_F(ManagerWindowTest, NoTextIsClippedWithAnyPrinter) {
    Laser().Papers[0].Name = "A4 (210 x 297 mm)";
    Open();
    window::Click(Widget("cmdDetails"));
    for (int printer = 0; printer < 2; ++printer) {
        manager->cboPrinterSelect(0).UserPick(printer);
        window::Settle();
        EXPECT_THAT(window::Clipped(Manager), IsEmpty()) << printer;
    }
}

TEST_F(ManagerWindowTest, TextOfThePrinterThatIsTooLongIsCutAtAWholeLineAndToldWhole) {
    const std::string comment = "Derde verdieping, naast de lift, sleutel bij de receptie; alleen voor "
                                "acceptgiro's en briefpapier; bel 123 voor nieuwe toner of";
    Laser().Comment = comment;
    Open();
    window::Click(Widget("cmdDetails"));
    EXPECT_EQ(manager->lblPrinterSelect(8).Caption(), comment);
    EXPECT_TRUE(Text("lblPrinterSelect(8)")->text().endsWith(QChar(0x2026)));
    EXPECT_TRUE(
        Text("lblPrinterSelect(8)")->toolTip().contains(QString::fromStdString(comment).toHtmlEscaped()));
    EXPECT_THAT(window::Clipped(Manager), IsEmpty());
    Laser().Comment = "kort";
    manager->cboPrinterSelect(0).UserPick(0);
    EXPECT_EQ(Text("lblPrinterSelect(8)")->text(), "kort");
    EXPECT_EQ(Text("lblPrinterSelect(8)")->toolTip(), "");
}

TEST_F(ManagerWindowTest, ChangedPapersAreSeenWhenThePrinterIsChosenAgain) {
    Open();
    window::Click(Widget("cmdDetails"));
    Laser().Papers = {{8, 2970, 4200, "A3"}};
    window::Find<QComboBox>(Manager, "cboPrinterSelect(1)")->setFocus();
    EXPECT_EQ(window::Find<QComboBox>(Manager, "cboPrinterSelect(1)")->count(), 2);
    manager->cboPrinterSelect(0).UserPick(0);
    window::Settle();
    EXPECT_EQ(window::Find<QComboBox>(Manager, "cboPrinterSelect(1)")->currentText(), "A3");
}

TEST_F(ManagerWindowTest, PanelOfTheSortLiesOverTheFormWithItsOwnBar) {
    Open();
    manager->FakeFormVisible(true);
    manager->UpdatePercentageSort(40);
    QWidget* panel = Widget("pictFakeForm");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(window::Of(Manager)->childAt(panel->geometry().center())->window(), window::Of(Manager));
    EXPECT_TRUE(
        panel->isAncestorOf(window::Of(Manager)->childAt(panel->geometry().topLeft() + QPoint(8, 8))) ||
        window::Of(Manager)->childAt(panel->geometry().topLeft() + QPoint(8, 8)) == panel);
    EXPECT_EQ(window::Find<QProgressBar>(Manager, "ProgressBarSort")->value(), 40);
    EXPECT_THAT(window::Clipped(Manager), IsEmpty());
    manager->FakeFormVisible(false);
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(ManagerWindowTest, NoCopiesAreToldAndTheHourglassStaysUntilALineIsPicked) {
    Open();
    PickDocument(1);
    SetCopies("0");
    window::Click(Widget("cmdPrint"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "U kunt geen 0 afdrukken maken.");
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Warning);
    EXPECT_EQ(boxes.All()[0].Button, "OK");
    EXPECT_TRUE(Hourglass());
    PickDocument(0);
    EXPECT_FALSE(Hourglass());
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(ManagerWindowTest, TooManyCopiesAreAnErrorWithItsNumber) {
    Open();
    PickDocument(1);
    SetCopies("32768");
    window::Click(Widget("cmdPrint"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Title, "Drukkeuring acceptgiro's");
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Critical);
    EXPECT_TRUE(boxes.All()[0].Text.startsWith("Een onbekende fout is opgetreden !\r\n"));
    EXPECT_TRUE(boxes.All()[0].Text.endsWith("\r\n\r\nError: 6 - Overflow"));
    EXPECT_FALSE(Hourglass());
    EXPECT_NE(window::Of(Manager), nullptr);
}

TEST_F(ManagerWindowTest, MessagesPictureIsAsSharpAsTheScreen) {
    Open();
    PickDocument(1);
    SetCopies("0");
    QPixmap picture;
    boxes.OnShow = [&] {
        picture = QApplication::activeModalWidget()
                      ->findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))
                      ->pixmap(Qt::ReturnByValue);
    };
    window::Click(Widget("cmdPrint"));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.devicePixelRatio(), window::Of(Manager)->devicePixelRatioF());
}

TEST_F(ManagerWindowTest, OnlyTheDetailsStandStillWhileAPrinterIsPutBack) {
    Open();
    window::Click(Widget("cmdDetails"));
    manager->blnRestorePending = true;
    bool panelDrew = false;
    bool windowDrew = true;
    int watched = 0;
    program.memory.recorder.Sink = [&](const memory::Event& event) {
        if (event.Kind == "set") {
            ++watched;
            panelDrew = panelDrew || Widget("pictDetails")->updatesEnabled();
            windowDrew = windowDrew && window::Of(Manager)->updatesEnabled();
        }
    };
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(watched, 5);
    EXPECT_FALSE(panelDrew);
    EXPECT_TRUE(windowDrew);
    EXPECT_TRUE(Widget("pictDetails")->updatesEnabled());
}

TEST_F(ManagerWindowTest, ClicksDuringARealWaitPrintOnce) {
    Open();
    PickDocument(1);
    program.state.PrinterInit = 100;
    // Both land in the preparation's yields, while the flag is up.
    QTimer::singleShot(0, qApp, [this] {
        window::Click(Widget("cmdPrint"));
        EXPECT_FALSE(window::Of(Manager)->close());
    });
    window::Click(Widget("cmdPrint"));
    EXPECT_EQ(assigned, 2 + 3); // found and refreshed; and three times on the way back
    EXPECT_EQ(window::Of(Manager), nullptr);
    EXPECT_TRUE(boxes.All().empty());
}

class SetupWindowTest : public ManagerWindowTest {
  protected:
    void OpenSetup() {
        program.state.PrinterInit = 100;
        setup.Show();
        window::Settle();
    }
    QLineEdit* Box(const char* control) { return window::Find<QLineEdit>(SetupForm, control); }

    printmanager::frmPrintManagerSetup setup{program.session, program.services, program.state};
};

TEST_F(SetupWindowTest, TypedValueIsTakenWithEnter) {
    OpenSetup();
    EXPECT_TRUE(Box("UserText(1)")->isReadOnly());
    window::Click(Box("UserText(0)"));
    window::Key(Qt::Key_A, Qt::ControlModifier);
    window::Type("1200x");
    window::Key(Qt::Key_Return);
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "De initialisatiewaarde is ingesteld.");
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Information);
    EXPECT_EQ(program.state.PrinterInit, 1200);
    EXPECT_EQ(window::Of(SetupForm), nullptr);
}

TEST_F(SetupWindowTest, EmptyBoxKeepsItOpenAndEscapeClosesIt) {
    OpenSetup();
    window::Click(Box("UserText(0)"));
    window::Key(Qt::Key_A, Qt::ControlModifier);
    window::Key(Qt::Key_Backspace);
    window::Click(window::Find(SetupForm, "cmdOK"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "Er is nog geen initialisatiewaarde ingegeven.");
    ASSERT_NE(window::Of(SetupForm), nullptr);
    window::Of(SetupForm)->activateWindow();
    window::Key(Qt::Key_Escape);
    EXPECT_EQ(window::Of(SetupForm), nullptr);
    EXPECT_EQ(program.state.PrinterInit, 100);
}

} // namespace
