#include <QApplication>
#include <gtest/gtest.h>

#include "unit/desktop/qt/printing/PrintServer.h"

int main(int argc, char** argv) {
    PrintServer::PrepareEnvironment();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
