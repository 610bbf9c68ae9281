// Plays a user of the desktop program: goes through the wizard, prints the three documents as PDF files and
// saves a picture of every window.
// drukkeuring-demo FOLDER [--125 | --150 | --200 | --300] [--dark | --mixed | --contrast] [--points N]
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include "Palettes.h"
#include "Player.h"
#include "desktop/qt/QtPlatform.h"
#include "forms/Session.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

namespace {

constexpr const char* Wizard = "frmMain";
constexpr const char* Manager = "frmPrintManager";
constexpr const char* Preview = "frmPrintPreview";
constexpr const char* Setup = "frmPrintManagerSetup";

struct Document {
    int Row;
    const char* Title;
};

constexpr Document Documents[] = {
    {0, "Acceptgiroformulieren voor de drukkeuring"},
    {1, "Namenlijst"},
    {2, "Instellingen calibratie"},
};

QString FileOf(const QDir& folder, const Document& document) {
    return folder.filePath(QString::fromUtf8(document.Title) + QStringLiteral(".pdf"));
}

// From the settings to the last page, with an account that is refused and the choices that nobody made yet.
void GoThroughThePages(Player& player) {
    player.WaitForWindow(Wizard);
    player.Picture(Wizard, "1-incassant");
    player.Type(Wizard, "UserText(74)", "123456780");
    player.Click(Wizard, "Verder");
    player.AnswerMessage("2-melding-banknummer");
    player.Type(Wizard, "UserText(74)", "NL13ABNA0500000018");
    player.Click(Wizard, "Verder");
    player.Click(Wizard, "Verder");
    player.AnswerMessage("3-melding-procedure");
    player.Click(Wizard, "optProcedure(0)");
    player.Picture(Wizard, "4-procedure");
    player.Click(Wizard, "Verder");
    player.Click(Wizard, "optTestpartij(0)");
    player.Picture(Wizard, "5-omvang");
    player.Click(Wizard, "Verder");
    player.Picture(Wizard, "6-afdrukken");
}

void Print(Player& player, const wizard::frmMain& form, const Document& document, const QString& file) {
    const bool first = document.Row == 0;
    player.Step(
        "wait for the last print to end", [&form] { return form.PrintManager() == nullptr; }, [] {});
    player.Click(Wizard, "cmdPrinten");
    player.WaitForWindow(Manager);
    if (first) {
        player.Picture(Manager, "7-afdrukbeheer");
        player.Click(Manager, "cmdDetails");
        player.Picture(Manager, "8-afdrukbeheer-details");
        player.Click(Manager, "cmdDetails");
    }
    player.PickRow(Manager, "lstAfdrukken", document.Row);
    if (first) {
        player.Picture(Manager, "9-afdrukbeheer-gekozen");
    }
    player.Click(Manager, "cmdPrint");
    player.AnswerFile(file, first ? QStringLiteral("10-bestand") : QString());
}

// A look at the forms on the screen, and back to the wizard.
void LookAtThePreview(Player& player, const wizard::frmMain& form) {
    player.Step(
        "wait for the last print to end", [&form] { return form.PrintManager() == nullptr; }, [] {});
    player.Click(Wizard, "cmdPrinten");
    player.PickRow(Manager, "lstAfdrukken", 0);
    player.Click(Manager, "cmdPrintVoorbeeld");
    player.AnswerMessage("11-melding-paginas");
    player.WaitForWindow(Preview);
    player.Picture(Preview, "12-afdrukvoorbeeld");
    player.Click(Preview, "cmdDown");
    player.Hover(Preview, "Toolbar(5)");
    player.Picture(Preview, "13-afdrukvoorbeeld-pagina-2");
    player.Click(Preview, "Toolbar(6)");
    player.Hover(Preview, "cmdUp");
    player.Picture(Preview, "14-afdrukvoorbeeld-laatste-pagina");
    player.Key(Preview, Qt::Key_End);
    player.Picture(Preview, "15-afdrukvoorbeeld-rechtsonder");
    player.Key(Preview, Qt::Key_Home);
    player.Click(Preview, "SSActiveToolBars");
    player.Picture(Preview, "16-afdrukvoorbeeld-menu");
    player.Key(Preview, Qt::Key_Escape);
    player.Resize(Preview, {640, 480});
    player.Picture(Preview, "17-afdrukvoorbeeld-klein");
    player.Click(Preview, "Toolbar(8)");
    player.Step(
        "wait for the preview to end", [&form] { return !form.PrintManager()->blnBusy; }, [] {});
    player.Click(Manager, "cmdAnnuleren");
}

// The two lists on the screen, as they come on paper.
void LookAtTheLists(Player& player, const wizard::frmMain& form) {
    struct List {
        int Row;
        const char* Picture;
    };
    constexpr List lists[] = {{1, "23-afdrukvoorbeeld-namenlijst"}, {2, "24-afdrukvoorbeeld-calibratie"}};
    player.Step(
        "wait for the manager to close", [&form] { return form.PrintManager() == nullptr; }, [] {});
    player.Click(Wizard, "cmdPrinten");
    for (const List& list : lists) {
        player.PickRow(Manager, "lstAfdrukken", list.Row);
        player.Click(Manager, "cmdPrintVoorbeeld");
        player.WaitForWindow(Preview);
        player.Picture(Preview, list.Picture);
        player.Click(Preview, "Toolbar(8)");
        player.Step(
            "wait for the preview to end", [&form] { return !form.PrintManager()->blnBusy; }, [] {});
    }
    player.Click(Manager, "cmdAnnuleren");
}

// A failure that the print manager tells, and the small form that no command opens as yet.
void LookAtWhatIsRarelySeen(Player& player, const wizard::frmMain& form,
                            printmanager::frmPrintManagerSetup& setup) {
    player.Step(
        "wait for the manager to close", [&form] { return form.PrintManager() == nullptr; }, [] {});
    player.Click(Wizard, "cmdPrinten");
    player.PickRow(Manager, "lstAfdrukken", 2);
    player.Type(Manager, "UserText(0)", "99999");
    player.Click(Manager, "cmdPrint");
    player.AnswerMessage("18-melding-fout");
    player.Type(Manager, "UserText(0)", "0");
    player.Click(Manager, "cmdPrint");
    player.AnswerMessage("19-melding-geen-kopieen");
    player.Click(Manager, "cmdAnnuleren");
    player.Step(
        "wait for the manager to close", [&form] { return form.PrintManager() == nullptr; },
        [&setup] { setup.ShowModal(); });
    player.WaitForWindow(Setup);
    player.Picture(Setup, "20-printer-initialisatie");
    player.Type(Setup, "UserText(0)", "1002");
    player.Click(Setup, "cmdOK");
    player.AnswerMessage("21-melding-initialisatie");
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

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    const Desktop desktop = TakeDesktop(arguments);
    if (arguments.size() != 1 || !QDir().mkpath(arguments[0])) {
        std::fprintf(stderr, "drukkeuring-demo FOLDER [--125 | --150 | --200 | --300] [--dark | --mixed | "
                             "--contrast] [--points N]\n");
        return 2;
    }
    const QDir folder(QDir(arguments[0]).absolutePath());

    // Nothing of the user's own machine: no screen, no settings, no print server.
    const QTemporaryDir home;
    const QString screen = home.filePath(QStringLiteral("screen.json"));
    DescribeScreen(screen, desktop.Density);
    QDir(home.path()).mkpath(QStringLiteral("tarvik"));
    QFile::copy(QStringLiteral(EXAMPLE_SETTINGS), home.filePath(QStringLiteral("tarvik/settings.reg")));
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.toLocal8Bit());
    qputenv("CUPS_SERVER", "localhost:1");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(desktop.Density));

    desktop::qt::QtPlatform platform(argc, argv);
    ShowAs(desktop);
    state::AppState state;
    forms::Session session(platform.Services().Desktop);
    wizard::frmMain form(session, platform.Services(), state);

    Player player(folder.path(), desktop.Suffix);
    player.OnFailure = [&] {
        std::fprintf(stderr, "This step failed: %s\n", player.Failure().c_str());
        std::_Exit(1); // the step may have left windows that wait
    };
    GoThroughThePages(player);
    for (const Document& document : Documents) {
        QFile::remove(FileOf(folder, document));
        Print(player, form, document, FileOf(folder, document));
    }
    LookAtThePreview(player, form);
    LookAtTheLists(player, form);
    printmanager::frmPrintManagerSetup setup(session, platform.Services(), state);
    LookAtWhatIsRarelySeen(player, form, setup);
    player.Picture(Wizard, "22-gereed");
    player.Close(Wizard);
    player.Start();

    session.Dispatch([&] { form.Show(); });
    platform.Run();

    for (const Document& document : Documents) {
        if (!IsWholePdf(FileOf(folder, document))) {
            std::fprintf(stderr, "This document is not complete: %s\n", document.Title);
            return 1;
        }
    }
    return player.Done() ? 0 : 1;
}
