// The handbook, opened from the program's windows.
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QTextBrowser>
#include <QUrl>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/desktop/qt/Program.h"
#include "unit/desktop/qt/Window.h"

namespace {

/// The user's browser takes the files that the program has opened.
class HandbookWindowTest : public testing::Test {
  protected:
    HandbookWindowTest() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "setSource");
        program.Start();
        window::Settle();
    }
    ~HandbookWindowTest() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    static QUrl Section(const char* name) {
        return QUrl::fromLocalFile(
            QDir(QStringLiteral(HANDBOOK_FOLDER)).filePath(QStringLiteral("sections/%1.html").arg(name)));
    }

    Program program;
    QTextBrowser browser;
    window::MessageBoxes boxes;
};

TEST_F(HandbookWindowTest, F1OpensItAtThePageOnShow) {
    window::Key(Qt::Key_F1);
    EXPECT_EQ(browser.source(), Section("bladzijde-1-uw-gegevens"));
    window::Click(window::Find(Wizard, "Verder"));
    window::Key(Qt::Key_F1);
    EXPECT_EQ(browser.source(), Section("bladzijde-2-de-procedure"));
    EXPECT_TRUE(boxes.All().empty());
}

TEST_F(HandbookWindowTest, F1LeavesTextAndFocusAsTheyAre) {
    QWidget* const before = QApplication::focusWidget();
    window::Type("Kerk");
    window::Key(Qt::Key_F1);
    EXPECT_EQ(QApplication::focusWidget(), before);
    EXPECT_EQ(program.form.UserText(70).Text(), "Kerk");
}

TEST_F(HandbookWindowTest, AHandbookThatIsNotThereIsTold) {
    program.desktop.ShowHandbook("geen-hoofdstuk");
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_THAT(boxes.All()[0].Text.toStdString(),
                testing::AllOf(testing::StartsWith("De handleiding kan niet worden geopend."),
                               testing::EndsWith("handleiding/index.html")));
    EXPECT_EQ(boxes.All()[0].Title, "Ondor Drukkeuring 3.0");
    EXPECT_EQ(browser.source(), QUrl());
}

TEST_F(HandbookWindowTest, ItIsToldThatNothingOpensIt) {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file")); // a platform without a screen has no browser
    window::Key(Qt::Key_F1);
    EXPECT_EQ(boxes.All().size(), 1U);
}

} // namespace
