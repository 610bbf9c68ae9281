#include <QApplication>
#include <QFont>
#include <gtest/gtest.h>

#include "desktop/qt/QtPlatform.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleTest(&argc, argv);
    const desktop::qt::DutchApplication application(argc, argv);
    if (const int points = qEnvironmentVariableIntValue("DRUKKEURING_TEST_POINTS"); points > 0) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    return RUN_ALL_TESTS();
}
