#include "unit/desktop/qt/access/AccessTest.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>

#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"

AccessTest::AccessTest() {
    program.Set("AcceptgiroType", "1"); // three forms on a sheet
    program.Set("IncassantBegunstigde", "Stichting");
}

void AccessTest::Start() {
    program.Start();
    window::Settle();
}

void AccessTest::GoTo(int page) {
    for (const char* option : {"", "optProcedure(0)", "optTestpartij(2)"}) {
        if (program.form.Page == page) {
            return;
        }
        if (*option != '\0') {
            QWidget* button = window::Find(Main, option);
            window::Click(button, {10, button->height() / 2});
        }
        window::Click(window::Find(Main, "Verder"));
    }
    EXPECT_EQ(program.form.Page, page);
}

void AccessTest::OpenManager(const std::function<void()>& inside) {
    bool seen = false;
    window::WhenShown(Manager, [&] {
        seen = true;
        inside();
        EXPECT_TRUE(window::Of(Manager)->close());
    });
    window::Click(window::Find(Main, "cmdPrinten"));
    EXPECT_TRUE(seen);
}

void AccessTest::OpenPreview(const std::function<void()>& inside) {
    auto* list = window::Find<QListWidget>(Manager, "lstAfdrukken");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    window::Settle();
    bool seen = false;
    window::WhenShown(Preview, [&] {
        seen = true;
        inside();
        window::Of(Preview)->close();
    });
    window::Click(window::Find(Manager, "cmdPrintVoorbeeld"));
    EXPECT_TRUE(seen);
}

void AccessTest::ForEachWindow(const Look& look) {
    Start();
    look(window::Of(Main), "page 0");
    boxes.OnShow = [&] { look(QApplication::activeModalWidget(), "message"); };
    GoTo(1);
    window::Key(Qt::Key_V, Qt::AltModifier); // no option has been chosen: a message
    EXPECT_EQ(boxes.All().size(), 1U);
    look(window::Of(Main), "page 1");
    for (const int page : {2, 3}) {
        GoTo(page);
        look(window::Of(Main), "page " + std::to_string(page));
    }
    OpenManager([&] {
        look(window::Of(Manager), "manager");
        window::Click(window::Find(Manager, "cmdDetails"));
        look(window::Of(Manager), "details");
        program.form.PrintManager()->FakeFormVisible(true);
        look(window::Of(Manager), "sort");
        program.form.PrintManager()->FakeFormVisible(false);
        OpenPreview([&] { look(window::Of(Preview), "preview"); });
    });
    printmanager::frmPrintManagerSetup setup(program.session, program.services, program.state);
    setup.Show();
    window::Settle();
    look(window::Of(Setup), "setup");
}
