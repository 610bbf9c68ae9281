// The dialog that asks where a PDF file goes, which is the toolkit's own where the desktop has none.
#include <algorithm>

#include <QApplication>
#include <QFileDialog>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/qt/PdfPrinter.h"
#include "unit/desktop/qt/access/AccessTree.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Looks at the dialog, and leaves it.
void Ask(const std::function<void(QFileDialog&)>& look) {
    bool seen = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        seen = true;
        look(*dialog);
        dialog->reject();
    });
    EXPECT_EQ(desktop::qt::AskForPdfFile("Namenlijst.pdf"), std::nullopt);
    EXPECT_TRUE(seen);
}

TEST(FileDialogTest, WhatTakesTheFocusHasAName) {
    Ask([](QFileDialog& dialog) {
        std::vector<std::string> nameless;
        for (const spoken::Object& object : spoken::Tree(&dialog)) {
            const bool used = object.Role == QAccessible::Button || object.State().focusable;
            if (used && !object.Control.empty() && object.Name.empty() && spoken::Labels(object).empty()) {
                nameless.push_back(object.Control);
            }
        }
        EXPECT_THAT(nameless, IsEmpty());
    });
}

TEST(FileDialogTest, TheFieldsAreTiedToTheirLabels) {
    Ask([](QFileDialog& dialog) {
        EXPECT_THAT(spoken::Labels(spoken::Find(&dialog, "fileNameEdit")), ElementsAre("Bestandsnaam:"));
        EXPECT_THAT(spoken::Labels(spoken::Find(&dialog, "fileTypeCombo")), ElementsAre("Bestandstype:"));
        EXPECT_THAT(spoken::Labels(spoken::Find(&dialog, "lookInCombo")), ElementsAre("Map:"));
    });
}

} // namespace
