#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "RecordWriter.h"
#include "World.h"
#include "desktop/cups/CupsSpooler.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtClock.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtLocale.h"
#include "desktop/qt/QtPrintFonts.h"
#include "desktop/qt/QtPrinters.h"
#include "desktop/regfile/RegFileStore.h"
#include "machine/Platform.h"
#include "machine/SeededRandom.h"
#include "print/queues/TeePrinter.h"
#include "printmanager/frmPrintManager.h"

/// The program of the Linux desktop, with all that it works with on a user's machine, worked by the lines of
/// a story; what it draws on paper is kept beside.
class RealProgram {
  public:
    RealProgram();

    /// Plays a line of a story. Fails the test if it is none, if what it expects does not hold, or if a user
    /// could not do it.
    void Play(const std::string& line);

    /// Plays a line that opens a modal form, runs `inside` when that is on show, and returns when it has
    /// closed. Fails the test if nothing opens, or if `inside` leaves it open.
    void Play(const std::string& line, const std::function<void()>& inside);

    /// From the start to the page that opens the print manager.
    void GoToTheLastPage();

    /// Opens the print manager, and is there while `inside` runs.
    void OpenManager(const std::function<void()>& inside);

    printmanager::frmPrintManager& Manager() const;

    // Inside the print manager.
    void OpenDetails();
    /// Picks in a combo by the text of an entry.
    void Pick(int combo, const std::string& text);
    void PickDocument(int row);
    /// Opens the preview of the picked document, and is there while `inside` runs.
    void OpenPreview(const std::function<void()>& inside);
    void CloseManager();

    /// Picks a document and prints it; the manager is closed behind it.
    void Print(int row);

    /// What the user has been told: the texts of all message boxes, failures that nobody handled among them.
    const std::vector<std::string>& Messages();

    desktop::qt::QtDesktop Desktop;
    desktop::regfile::RegFileStore Registry{desktop::regfile::DefaultSettingsPath()};
    desktop::qt::QtLocale Locale;
    desktop::qt::QtClock Clock;
    machine::SeededRandom Random;
    desktop::qt::QtPrinters Printers;
    TeePrinter Printer{Printers, [this](const std::string& text) { Tell(text); }};
    desktop::cups::CupsSpooler Spooler{Printers};
    desktop::qt::QtBitmaps Bitmaps;
    desktop::qt::QtPrintFonts Fonts;
    machine::Platform Services{Desktop, Registry,          Locale, Clock, Random, Spooler, Printers, Printer,
                               Bitmaps, Desktop.Windows(), Fonts};

  private:
    void Tell(const std::string& text);
    bool GoInside();
    void ReadRecord();

    std::stringstream record_;
    scenario::RecordWriter writer_{record_};
    scenario::World world_;
    const std::function<void()>* inside_ = nullptr; ///< what runs in the next modal form
    std::vector<std::string> messages_;
};
