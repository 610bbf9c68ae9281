// The wizard and the print manager as windows, on printers and settings in memory.
#include <algorithm>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "memory/MemoryPlatform.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "unit/desktop/qt/Clipping.h"
#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

using testing::ElementsAre;

class WizardTest : public testing::Test {
  protected:
    void Start() {
        program.Start();
        window::Settle();
    }
    QWidget* Widget(const char* control) { return window::Find("frmMain", control); }
    QLineEdit* Account() { return window::Find<QLineEdit>("frmMain", "UserText(74)"); }

    /// Runs `inside` once the print manager is on show, and opens it.
    void OpenManager(const std::function<void()>& inside) {
        window::WhenShown("frmPrintManager", inside);
        window::Click(Widget("cmdPrinten"));
    }
    void GoToTheLastPage() {
        for (const char* control : {"Verder", "optProcedure(0)", "Verder", "optTestpartij(0)", "Verder"}) {
            QWidget* widget = Widget(control);
            window::Click(widget, {10, widget->height() / 2});
        }
        EXPECT_EQ(program.form.Page, 3);
    }

    Program program;
    window::MessageBoxes boxes;
};

TEST_F(WizardTest, BeginsOnTheCreditorWithItsNameSelected) {
    program.Set("IncassantBegunstigde", "Stichting");
    Start();
    EXPECT_EQ(QApplication::focusWidget(), Widget("UserText(70)"));
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(70)")->selectedText(), "Stichting");
    EXPECT_EQ(window::Of("frmMain")->windowTitle(), "Ondor Drukkeuring 3.0");
}

TEST_F(WizardTest, TabbingIntoTheAccountSelectsItBare) {
    program.Set("IncassantBankGiro", "NL13ABNA0500000018");
    Start();
    for (int step = 0; step < 4; ++step) {
        window::Key(Qt::Key_Tab);
    }
    EXPECT_EQ(Account()->selectedText(), "NL13ABNA0500000018");
    window::Key(Qt::Key_Tab);
    EXPECT_NE(Account()->text(), "NL13ABNA0500000018");
    window::Click(Account());
    EXPECT_EQ(Account()->text(), "NL13ABNA0500000018");
    EXPECT_FALSE(Account()->hasSelectedText());
}

TEST_F(WizardTest, ARefusedAccountIsToldOnceAndKeepsThePage) {
    Start();
    window::Click(Account());
    window::Type("123456780");
    window::Click(Widget("Verder"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "Het ingegeven banknummer is niet correct.");
    EXPECT_EQ(boxes.All()[0].Title, "Drukkeuring acceptgiro's");
    EXPECT_EQ(Account()->text(), "");
    EXPECT_EQ(QApplication::focusWidget(), Account());
    EXPECT_EQ(program.form.Page, 0);
    window::Click(Widget("Verder"));
    EXPECT_EQ(program.form.Page, 1);
    EXPECT_EQ(boxes.All().size(), 1U);
}

TEST_F(WizardTest, ClosingWithARefusedAccountBringsTheMessageFirst) {
    Start();
    window::Click(Account());
    window::Type("123456780");
    window::Click(Widget("Cancel"));
    EXPECT_EQ(boxes.All().size(), 1U);
    EXPECT_TRUE(program.form.Visible());
    window::Click(Widget("Cancel"));
    EXPECT_FALSE(program.form.Visible());
}

TEST_F(WizardTest, NeitherEscapeNorTheCloseBoxJudgesTheAccount) {
    for (const bool byKey : {true, false}) {
        Start();
        window::Click(Account());
        window::Type("123456780");
        if (byKey) {
            window::Key(Qt::Key_Escape);
        } else {
            window::Of("frmMain")->close();
        }
        EXPECT_FALSE(program.form.Visible());
        EXPECT_TRUE(boxes.All().empty());
    }
}

TEST_F(WizardTest, WhatIsTypedOnTheLastPageReplacesTheCount) {
    Start();
    GoToTheLastPage();
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(0)")->selectedText(), "250");
    window::Type("7");
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(0)")->text(), "7");
    EXPECT_EQ(program.form.UserText(0).Text(), "7");
}

TEST_F(WizardTest, TheSettingsAreCutAtTheLengthOfTheirBox) {
    program.Set("IncassantBegunstigde", std::string(59, 'N') + "éN");
    program.Set("IncassantPostCode", "1234567890");
    program.Set("IncassantBankGiro", std::string(40, '1'));
    Start();
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(70)")->text(), QString(59, 'N') + u'é');
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(72)")->text(), "123456789");
    EXPECT_EQ(Account()->text(), "1111 1111 1111 1111 1111 1111 1111");
}

TEST_F(WizardTest, AFilterTurnsACommaIntoAPointInTheBox) {
    Start();
    program.form.UserText(71).SetTag("NUMTEKEN");
    window::Click(Widget("UserText(71)"));
    window::Type("a1,5");
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(71)")->text(), "1.5");
}

TEST_F(WizardTest, EnterAndTheAccessKeysGoThroughThePages) {
    Start();
    window::Key(Qt::Key_Return);
    EXPECT_EQ(program.form.Page, 1);
    window::Key(Qt::Key_V, Qt::AltModifier);
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "U heeft nog geen keuze gemaakt omtrent de te volgen procedure.");
    window::Key(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(program.form.Page, 0);
}

TEST_F(WizardTest, TheCountTakesFourDigits) {
    Start();
    GoToTheLastPage();
    program.form.UserText(0).SetFocus();
    window::Key(Qt::Key_A, Qt::ControlModifier);
    window::Type("12a-345");
    EXPECT_EQ(program.form.UserText(0).Text(), "1234");
}

TEST_F(WizardTest, PrintsFromTheManagerAndStandsOnItsLastPageAgain) {
    program.Set("AcceptgiroType", "1");
    Start();
    GoToTheLastPage();
    OpenManager([] {
        auto* list = window::Find<QListWidget>("frmPrintManager", "lstAfdrukken");
        EXPECT_FALSE(window::Find("frmPrintManager", "cmdPrint")->isEnabled());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        window::Settle();
        window::Click(window::Find("frmPrintManager", "cmdPrint"));
    });
    EXPECT_EQ(window::Of("frmPrintManager"), nullptr);
    EXPECT_EQ(program.form.Page, 3);
    EXPECT_TRUE(boxes.All().empty());
}

/// A click on a line of the manager's list, as far as the window lets it through.
void PickDocument(int row) {
    auto* list = window::Find<QListWidget>("frmPrintManager", "lstAfdrukken");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    window::Settle();
}

TEST_F(WizardTest, AnEmptyCountIsOneForTheRunAndShowsIt) {
    program.Set("AcceptgiroType", "1");
    Start();
    GoToTheLastPage();
    OpenManager([this] {
        program.form.UserText(0).SetText("");
        PickDocument(0);
        window::Click(window::Find("frmPrintManager", "cmdPrint"));
    });
    EXPECT_EQ(window::Find<QLineEdit>("frmMain", "UserText(0)")->text(), "1");
}

TEST_F(WizardTest, TheListClickedDuringARunChangesNothingOfIt) {
    program.Set("AcceptgiroType", "1");
    Start();
    GoToTheLastPage();
    std::vector<std::string> printed;
    program.memory.recorder.Sink = [&](const memory::Event& event) {
        if (event.Kind == "text" && std::get<std::string>(event.Fields[0].Value) == "printer") {
            printed.push_back(std::get<std::string>(event.Fields[4].Value));
        }
    };
    OpenManager([this] {
        PickDocument(0);
        // While the first run yields, the user clicks another line.
        QTimer::singleShot(0, [this] {
            EXPECT_TRUE(program.form.PrintManager()->blnBusy);
            PickDocument(1);
        });
        window::WhenShown("frmPrintPreview",
                          [] { window::Click(window::Find("frmPrintPreview", "Toolbar(1)")); });
        window::Click(window::Find("frmPrintManager", "cmdPrintVoorbeeld"));
        EXPECT_EQ(program.form.PrintManager()->lstAfdrukken.ListIndex(), 1);
        window::Of("frmPrintManager")->close();
    });
    EXPECT_EQ(program.memory.printer.DocumentTitle(), "Acceptgiroformulieren voor de drukkeuring");
    EXPECT_EQ(std::count(printed.begin(), printed.end(), "DRUKKEURING "), 250);
}

TEST_F(WizardTest, TheDetailsOpenAndClose) {
    Start();
    GoToTheLastPage();
    OpenManager([] {
        const int closed = window::Of("frmPrintManager")->height();
        window::Key(Qt::Key_T, Qt::AltModifier);
        EXPECT_GT(window::Of("frmPrintManager")->height(), closed);
        window::Key(Qt::Key_T, Qt::AltModifier);
        EXPECT_EQ(window::Of("frmPrintManager")->height(), closed);
        window::Key(Qt::Key_Escape);
    });
    EXPECT_EQ(window::Of("frmPrintManager"), nullptr);
}

TEST_F(WizardTest, TheManagerCannotBeClosedWhileItIsBusy) {
    Start();
    GoToTheLastPage();
    OpenManager([this] {
        program.form.PrintManager()->blnBusy = true;
        EXPECT_FALSE(window::Of("frmPrintManager")->close());
        EXPECT_TRUE(program.form.PrintManager()->Visible());
        program.form.PrintManager()->blnBusy = false;
        EXPECT_TRUE(window::Of("frmPrintManager")->close());
    });
}

TEST_F(WizardTest, ATextThatIsTooLongIsFound) {
    Start();
    program.form.Cancel.SetCaption("Dit is veel te lang voor een knop");
    program.form.lblOCRFont.SetHeight(60);
    EXPECT_THAT(window::Clipped("frmMain"),
                ElementsAre(testing::StartsWith("Cancel"), testing::StartsWith("lblOCRFont")));
}

TEST_F(WizardTest, NoTextIsClippedOnAnyPage) {
    program.Set("GMUFontName", "OCR-B");
    program.Set("GMUContractVorm", "34");
    Start();
    EXPECT_THAT(window::Clipped("frmMain"), testing::IsEmpty());
    GoToTheLastPage();
    for (int page = 3; page > 0; --page) {
        EXPECT_THAT(window::Clipped("frmMain"), testing::IsEmpty()) << "page " << page;
        window::Click(Widget("Terug"));
    }
}

TEST_F(WizardTest, NoTextIsClippedInTheManager) {
    Start();
    GoToTheLastPage();
    OpenManager([] {
        EXPECT_THAT(window::Clipped("frmPrintManager"), testing::IsEmpty());
        window::Key(Qt::Key_T, Qt::AltModifier);
        EXPECT_THAT(window::Clipped("frmPrintManager"), testing::IsEmpty());
        window::Of("frmPrintManager")->close();
    });
}

TEST_F(WizardTest, NoTextIsClippedInTheSetupOfTheManager) {
    Start();
    printmanager::frmPrintManagerSetup setup(program.session, program.services, program.state);
    setup.Show();
    window::Settle();
    EXPECT_THAT(window::Clipped(QString::fromStdString(setup.Name())), testing::IsEmpty());
}

TEST_F(WizardTest, EveryControlHasASpokenName) {
    Start();
    for (const QWidget* widget : window::Of("frmMain")->findChildren<QWidget*>()) {
        if (widget->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
    }
    EXPECT_EQ(Account()->accessibleName(), "IBAN");
    EXPECT_EQ(Widget("Cancel")->accessibleName(), "Sluiten");
}

TEST_F(WizardTest, ADarkThemeIsFollowed) {
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    Start();
    QApplication::setPalette(dark);
    window::Settle();
    const QImage shown = window::Of("frmMain")->grab().toImage();
    QApplication::setPalette(before);
    EXPECT_EQ(shown.pixelColor(2, 2), QColor(Qt::black));
    EXPECT_EQ(shown.pixelColor(2, shown.height() - 3), QColor(40, 40, 40));
}

TEST_F(WizardTest, APreviewShowsItsPagesAndComesBack) {
    program.Set("AcceptgiroType", "1");
    Start();
    GoToTheLastPage();
    bool seen = false;
    OpenManager([&seen] {
        auto* list = window::Find<QListWidget>("frmPrintManager", "lstAfdrukken");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
        window::Settle();
        window::WhenShown("frmPrintPreview", [&seen] {
            seen = true;
            EXPECT_EQ(window::Find<QLabel>("frmPrintPreview", "StatusBar(1)")->text(), "Pagina: 1");
            window::Click(window::Find("frmPrintPreview", "Toolbar(5)"));
            EXPECT_EQ(window::Find<QLabel>("frmPrintPreview", "StatusBar(1)")->text(), "Pagina: 2");
            window::Click(window::Find("frmPrintPreview", "cmdDown"));
            EXPECT_EQ(window::Find<QLabel>("frmPrintPreview", "StatusBar(1)")->text(), "Pagina: 3");
            window::Key(Qt::Key_Escape);
        });
        window::Click(window::Find("frmPrintManager", "cmdPrintVoorbeeld"));
        EXPECT_NE(window::Of("frmPrintManager"), nullptr);
        window::Of("frmPrintManager")->close();
    });
    EXPECT_TRUE(seen);
}

} // namespace
