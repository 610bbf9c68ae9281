#pragma once

#include "desktop/windows/WinBitmaps.h"
#include "desktop/windows/WinClock.h"
#include "desktop/windows/WinDesktop.h"
#include "desktop/windows/WinLocale.h"
#include "desktop/windows/WinPrinter.h"
#include "desktop/windows/WinPrinters.h"
#include "desktop/windows/WinRegistry.h"
#include "desktop/windows/WinSpooler.h"
#include "desktop/windows/WinWindowProcedures.h"
#include "machine/Platform.h"
#include "machine/SeededRandom.h"

namespace desktop::windows {

/// The Windows desktop: everything outside the program that it works with.
class WindowsPlatform {
  public:
    WindowsPlatform() = default;
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    machine::Platform& Services() { return services_; }

    /// Runs the message loop until the last form is gone.
    void Run() { desktop_.Run(); }

  private:
    WinDesktop desktop_;
    WinRegistry registry_{[this](const std::string& text) {
        desktop_.MsgBox(text, forms::MessageIcon::Exclamation, "Drukkeuring acceptgiro's");
    }};
    WinLocale locale_;
    WinClock clock_;
    machine::SeededRandom random_;
    WinPrinters printers_;
    WinPrinter printer_{printers_, [this](const std::string& text) {
                            desktop_.MsgBox(text, forms::MessageIcon::Critical, "Afdrukken");
                        }};
    WinSpooler spooler_;
    WinBitmaps bitmaps_;
    WinWindowProcedures procedures_{desktop_};
    machine::Platform services_{desktop_, registry_, locale_,  clock_,   random_,
                                spooler_, printers_, printer_, bitmaps_, procedures_};
};

} // namespace desktop::windows
