// Plays a script on the real windows of the Linux desktop, which need no screen, and writes down everything
// that happens: the record is that of drukkeuring-scenario.
#include <cstdio>
#include <fstream>
#include <iostream>

#include <QFont>
#include <QtGlobal>

#include "Player.h"
#include "QtStage.h"
#include "desktop/qt/QtPlatform.h"

namespace {

// A platform without a screen says so of each window; all else is worth hearing.
void Hear(QtMsgType /*type*/, const QMessageLogContext& /*where*/, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support"))) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    }
}

// Forms grow with the user's font. Up to this size a dot of the screen is 15 twips, as they are designed.
void UseSmallFont() {
    QFont font = QApplication::font();
    font.setPixelSize(8);
    QApplication::setFont(font);
}

} // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(Hear);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SCREEN);
    const desktop::qt::DutchApplication application(argc, argv);
    UseSmallFont();
    if (argc != 2) {
        std::cerr << "usage: qt_scenario FILE\n";
        return scenario::StatusScriptError;
    }
    std::ifstream file(argv[1]);
    if (!file) {
        std::cerr << "cannot read " << argv[1] << '\n';
        return scenario::StatusScriptError;
    }
    desktop::qt::QtDesktop desktop;
    const auto makeStage = [&desktop](memory::MemoryPlatform& memory) {
        return std::make_unique<scenario::QtStage>(memory, desktop, memory.Services());
    };
    return scenario::Player(file, std::cout, std::cerr, makeStage).Run();
}
