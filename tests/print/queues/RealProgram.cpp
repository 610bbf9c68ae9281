#include "print/queues/RealProgram.h"

#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

#include "unit/desktop/qt/Window.h"

namespace {

constexpr const char* ManagerForm = "frmPrintManager";

} // namespace

RealProgram::RealProgram() {
    Form.Show();
    window::Settle();
}

void RealProgram::GoToTheLastPage() {
    for (const char* control : {"Verder", "optProcedure(0)", "Verder", "optTestpartij(0)", "Verder"}) {
        QWidget* widget = window::Find("frmMain", control);
        window::Click(widget, {10, widget->height() / 2});
    }
    ASSERT_EQ(Form.Page, 3);
    Form.UserText(0).SetText("7"); // two sheets and a third that is not full
}

void RealProgram::OpenManager(const std::function<void()>& inside) {
    bool wasOpen = false;
    window::WhenShown(ManagerForm, [&] {
        wasOpen = true;
        inside();
    });
    window::Click(window::Find("frmMain", "cmdPrinten"));
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
    EXPECT_FALSE(State.PrintManagerOpen);
}

void RealProgram::Click(const char* control) {
    window::Click(window::Find(ManagerForm, control));
}

void RealProgram::OpenDetails() {
    Click("cmdDetails");
    EXPECT_TRUE(Manager().blnDetailsOpen);
}

void RealProgram::Pick(int combo, const std::string& text) {
    forms::ComboBox& box = Manager().cboPrinterSelect(combo);
    std::string entries;
    for (int i = 0; i < box.ListCount(); ++i) {
        entries += "\n" + box.List(i);
        if (box.List(i) == text) {
            Session.Dispatch([&] { EXPECT_TRUE(box.UserPick(i)); });
            return;
        }
    }
    ADD_FAILURE() << "combo " << combo << " has no " << text << " among" << entries;
}

void RealProgram::PickDocument(int row) {
    auto* list = window::Find<QListWidget>(ManagerForm, "lstAfdrukken");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    window::Settle();
}

void RealProgram::CloseManager() {
    EXPECT_FALSE(Manager().blnBusy);
    Click("cmdAnnuleren");
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
}

void RealProgram::Print(int row) {
    PickDocument(row);
    Click("cmdPrint");
    EXPECT_EQ(window::Of(ManagerForm), nullptr);
}
