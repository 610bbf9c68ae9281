// Plays the story of demonstration.scenario in the desktop program: the way through the wizard, the three
// documents as PDF files and a picture of every window. Standard output tells each step.
//
// drukkeuring-demo FOLDER [--125 | --150 | --200 | --300] [--dark | --mixed | --contrast] [--points N]
//                  [--story FILE.scenario SETTINGS.reg]
//
// With --story it plays that one with those settings instead, and looks for no documents.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include "Palettes.h"
#include "Player.h"
#include "QtStage.h"
#include "desktop/qt/QtPlatform.h"

namespace {

constexpr const char* Documents[] = {
    "Acceptgiroformulieren voor de drukkeuring",
    "Namenlijst",
    "Instellingen calibratie",
};

QString FileOf(const char* document) {
    return QString::fromUtf8(document) + QStringLiteral(".pdf");
}

/// How the desktop looks on which the program is shown.
struct Desktop {
    double Density = 1;
    /// What pictures of a density other than the usual have behind their names.
    QString Suffix;
    QString Palette;
    /// Size of the user's font; 0 for the desktop's own.
    int Points = 0;
};

/// Takes what describes the desktop out of the arguments.
Desktop TakeDesktop(QStringList& arguments) {
    Desktop desktop;
    for (const int percent : {125, 150, 200, 300}) {
        if (arguments.removeAll(QStringLiteral("--%1").arg(percent)) > 0) {
            desktop.Density = percent / 100.0;
            desktop.Suffix = QStringLiteral("-%1").arg(percent);
        }
    }
    for (const char* palette : {"dark", "mixed", "contrast"}) {
        if (arguments.removeAll(QStringLiteral("--") + QLatin1String(palette)) > 0) {
            desktop.Palette = QLatin1String(palette);
        }
    }
    if (const auto at = arguments.indexOf(QStringLiteral("--points")); at >= 0 && at + 1 < arguments.size()) {
        desktop.Points = arguments[at + 1].toInt();
        arguments.remove(at, 2);
    }
    return desktop;
}

/// What is played, with which settings.
struct Story {
    QString Script = QStringLiteral(SCRIPT);
    QString Settings = QStringLiteral(EXAMPLE_SETTINGS);
    bool HasDocuments = true;
};

Story TakeStory(QStringList& arguments) {
    Story story;
    if (const auto at = arguments.indexOf(QStringLiteral("--story")); at >= 0 && at + 2 < arguments.size()) {
        story = {QFileInfo(arguments[at + 1]).absoluteFilePath(),
                 QFileInfo(arguments[at + 2]).absoluteFilePath(), false};
        arguments.remove(at, 3);
    }
    return story;
}

void ShowAs(const Desktop& desktop) {
    if (!desktop.Palette.isEmpty()) {
        QApplication::setPalette(DesktopPalette(desktop.Palette));
    }
    if (desktop.Points > 0) {
        QFont font = QApplication::font();
        font.setPointSize(desktop.Points);
        QApplication::setFont(font);
    }
}

// The screen that is not there: an ordinary one of 1280 by 1024, or a denser one.
void DescribeScreen(const QString& name, double density) {
    QFile file(name);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(QStringLiteral(R"({"screens": [{"name": "demo", "x": 0, "y": 0, "width": %1, "height": %2,
            "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                       .arg(std::lround(1280 * density))
                       .arg(std::lround(1024 * density))
                       .toUtf8());
    }
}

bool IsWholePdf(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray content = file.readAll();
    return content.startsWith("%PDF-") && content.trimmed().endsWith("%%EOF");
}

int Play(desktop::qt::QtPlatform& platform, const QString& file, const QString& suffix) {
    std::ifstream script(file.toStdString());
    auto& desktop = dynamic_cast<desktop::qt::QtDesktop&>(platform.Services().Desktop);
    const auto makeStage = [&](memory::MemoryPlatform& memory) {
        return std::make_unique<scenario::QtStage>(memory, desktop, platform.Services(), suffix);
    };
    std::ostream nowhere(nullptr);
    scenario::Player player(script, nowhere, std::cerr, makeStage);
    player.OnCommand = [](const std::string& line) { std::cout << line << std::endl; };
    return player.Run();
}

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const Desktop desktop = TakeDesktop(arguments);
    const Story story = TakeStory(arguments);
    if (arguments.size() != 1 || !QDir().mkpath(arguments[0]) || !QDir::setCurrent(arguments[0])) {
        std::fprintf(stderr, "drukkeuring-demo FOLDER [--125 | --150 | --200 | --300] [--dark | --mixed | "
                             "--contrast] [--points N] [--story FILE.scenario SETTINGS.reg]\n");
        return 2;
    }

    // Nothing of the user's own machine: no screen, no settings, no print server.
    const QTemporaryDir home;
    const QString screen = home.filePath(QStringLiteral("screen.json"));
    DescribeScreen(screen, desktop.Density);
    QDir(home.path()).mkpath(QStringLiteral("tarvik"));
    QFile::copy(story.Settings, home.filePath(QStringLiteral("tarvik/settings.reg")));
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.toLocal8Bit());
    qputenv("CUPS_SERVER", "localhost:1");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(desktop.Density));

    desktop::qt::QtPlatform platform(argc, argv);
    ShowAs(desktop);
    for (const char* document : Documents) {
        if (story.HasDocuments) {
            QFile::remove(FileOf(document));
        }
    }
    if (const int status = Play(platform, story.Script, desktop.Suffix); status != scenario::StatusDone) {
        return status;
    }
    if (!story.HasDocuments) {
        return 0;
    }
    for (const char* document : Documents) {
        if (!IsWholePdf(FileOf(document))) {
            std::fprintf(stderr, "This document is not complete: %s\n", document);
            return 1;
        }
    }
    return 0;
}
