#include <cstdlib>
#include <cstring>

#include <QEventLoop>
#include <gtest/gtest.h>

#include "desktop/qt/EndSignals.h"
#include "desktop/qt/QtPlatform.h"
#include "print/queues/RealProgram.h"
#include "unit/desktop/qt/printing/PrintServer.h"

namespace {

/// Prints from the preview with another tray, and waits in the open print manager until it is killed.
void PrintAndWait() {
    RealProgram program;
    const desktop::qt::EndSignals ending([] { QCoreApplication::exit(); }, [] { return true; });
    program.GoToTheLastPage();
    program.OpenManager([&] {
        program.OpenDetails();
        program.Pick(2, "Lade 3 met formulieren");
        program.PickDocument(1);
        program.OpenPreview([&] { program.Play("click frmPrintPreview.Toolbar(1)"); });
        QEventLoop().exec();
        std::_Exit(0); // no destructor helps
    });
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool isHelper = argc > 1 && std::strcmp(argv[1], "--print-and-wait") == 0;
    if (!isHelper) {
        PrintServer::PrepareEnvironment();
    }
    testing::InitGoogleTest(&argc, argv);
    const desktop::qt::DutchApplication application(argc, argv);
    if (isHelper) {
        PrintAndWait();
        return 0;
    }
    return RUN_ALL_TESTS();
}
