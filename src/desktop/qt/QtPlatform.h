#pragma once

#include <QApplication>

#include "desktop/cups/CupsSpooler.h"
#include "desktop/qt/EndSignals.h"
#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/QtClock.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtLocale.h"
#include "desktop/qt/QtPrintFonts.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "desktop/regfile/RegFileStore.h"
#include "machine/Audience.h"
#include "machine/Platform.h"
#include "machine/SeededRandom.h"

namespace desktop::qt {

/// The application object of the toolkit, speaking Dutch in its own windows as the program does.
class DutchApplication final : public QApplication {
  public:
    /// Both must live as long as the object.
    DutchApplication(int& argc, char** argv);

    /// The last guard, for failures that begin in the toolkit itself.
    bool notify(QObject* receiver, QEvent* event) override;
};

/// The Linux desktop: everything outside the program that it works with.
class QtPlatform {
  public:
    /// `argc` and `argv` must live as long as the object.
    QtPlatform(int& argc, char** argv, machine::Audience audience = machine::Audience::User)
        : application_(argc, argv), audience_(audience) {}
    QtPlatform(const QtPlatform&) = delete;
    QtPlatform& operator=(const QtPlatform&) = delete;

    machine::Platform& Services() { return services_; }

    /// Runs the message loop until the last form is gone.
    void Run() { desktop_.Run(); }

  private:
    void Tell(const std::string& text, const std::string& title) {
        if (audience_ == machine::Audience::User) {
            desktop_.MsgBox(text, forms::MessageIcon::Critical, title);
        }
    }

    DutchApplication application_;
    machine::Audience audience_;
    QtDesktop desktop_;
    regfile::RegFileStore registry_{regfile::DefaultSettingsPath(), regfile::SettingsBranch,
                                    [this](const std::string& text) { Tell(text, "Instellingen"); }};
    QtLocale locale_;
    QtClock clock_;
    machine::SeededRandom random_;
    QtPrinters printers_;
    QtPrinter printer_{printers_, [this](const std::string& text) { Tell(text, "Afdrukken"); }};
    cups::CupsSpooler spooler_{printers_};
    QtBitmaps bitmaps_;
    QtPrintFonts fonts_;
    machine::Platform services_{desktop_, registry_,          locale_,   clock_,
                                random_,  spooler_,           printers_, printer_,
                                bitmaps_, desktop_.Windows(), fonts_};
    EndSignals ending_{[] { QCoreApplication::exit(); }, // of every loop that is open, a modal form's too
                       [this] { return !printer_.IsPrinting(); }}; // a document under way is waited for
};

} // namespace desktop::qt
