#pragma once

#include <functional>
#include <string>

#include "desktop/cups/CupsSpooler.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtClock.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtLocale.h"
#include "desktop/qt/QtPrinters.h"
#include "desktop/regfile/RegFileStore.h"
#include "forms/Session.h"
#include "machine/Platform.h"
#include "machine/SeededRandom.h"
#include "print/queues/TeePrinter.h"
#include "printmanager/frmPrintManager.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"

/// The program of the Linux desktop, with all that it works with on a user's machine; what it draws on paper
/// is kept beside.
class RealProgram {
  public:
    RealProgram();

    /// From the first page to the one that opens the print manager.
    void GoToTheLastPage();

    /// Opens the print manager, runs `inside` when it is on show, and returns when it has closed.
    void OpenManager(const std::function<void()>& inside);

    printmanager::frmPrintManager& Manager() { return *Form.PrintManager(); }

    // Inside the print manager, as a user does it.
    void OpenDetails();
    /// Picks in a combo by the text of an entry; fails the test if there is none.
    void Pick(int combo, const std::string& text);
    void PickDocument(int row);
    void Click(const char* control);
    void CloseManager();

    /// Picks a document and prints it; the manager is closed behind it.
    void Print(int row);

    desktop::qt::QtDesktop Desktop;
    desktop::regfile::RegFileStore Registry{desktop::regfile::DefaultSettingsPath()};
    desktop::qt::QtLocale Locale;
    desktop::qt::QtClock Clock;
    machine::SeededRandom Random;
    desktop::qt::QtPrinters Printers;
    TeePrinter Printer{Printers, [this](const std::string& text) {
                           Desktop.MsgBox(text, forms::MessageIcon::Critical, "Afdrukken");
                       }};
    desktop::cups::CupsSpooler Spooler{Printers};
    desktop::qt::QtBitmaps Bitmaps;
    machine::Platform Services{Desktop, Registry, Locale,  Clock,   Random,
                               Spooler, Printers, Printer, Bitmaps, Desktop.Windows()};
    state::AppState State;
    forms::Session Session{Desktop};
    wizard::frmMain Form{Session, Services, State};
};
