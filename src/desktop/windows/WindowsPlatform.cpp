#include "desktop/windows/WindowsPlatform.h"

#include "desktop/windows/Win32.h"

#include "desktop/windows/WinBitmaps.h"
#include "desktop/windows/WinClock.h"
#include "desktop/windows/WinDesktop.h"
#include "desktop/windows/WinLocale.h"
#include "desktop/windows/WinPrintFonts.h"
#include "desktop/windows/WinPrinter.h"
#include "desktop/windows/WinPrinters.h"
#include "desktop/windows/WinRegistry.h"
#include "desktop/windows/WinSpooler.h"
#include "machine/Platform.h"
#include "machine/SeededRandom.h"
#include "machine/WindowProcedures.h"

namespace desktop::windows {

namespace {

/// The window procedures as Windows itself keeps them.
class WinWindowProcedures final : public machine::WindowProcedures {
  public:
    explicit WinWindowProcedures(WinDesktop& desktop) : desktop_(desktop) {}

    machine::ProcedureAddress SetWindowLongA(machine::WindowHandle hWnd, int index,
                                             machine::ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(machine::ProcedureAddress procedure, machine::WindowHandle hWnd,
                                  std::int32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) override;
    /// Windows sends the messages, and no failure may pass through it.
    void HandlerFailed() override;

  private:
    WinDesktop& desktop_;
};

// A procedure's address takes the width of a pointer, which the call of that name has only with its suffix.
// The calls for Unicode leave the window one: through the others all its texts would pass the machine's code
// page.
machine::ProcedureAddress WinWindowProcedures::SetWindowLongA(machine::WindowHandle hWnd, int index,
                                                              machine::ProcedureAddress procedure) {
    return static_cast<machine::ProcedureAddress>(
        ::SetWindowLongPtrW(reinterpret_cast<HWND>(hWnd), index, static_cast<LONG_PTR>(procedure)));
}

std::intptr_t WinWindowProcedures::CallWindowProcA(machine::ProcedureAddress procedure,
                                                   machine::WindowHandle hWnd, std::int32_t uMsg,
                                                   std::intptr_t wParam, std::intptr_t lParam) {
    if (procedure == 0) {
        return 0;
    }
    return ::CallWindowProcW(reinterpret_cast<WNDPROC>(procedure), reinterpret_cast<HWND>(hWnd),
                             static_cast<UINT>(uMsg), static_cast<WPARAM>(wParam), lParam);
}

void WinWindowProcedures::HandlerFailed() {
    desktop_.TellCaught();
}

} // namespace

struct WindowsPlatform::Parts {
    explicit Parts(machine::Audience audience) : Audience(audience) {}

    void Tell(const std::string& text, forms::MessageIcon icon, const std::string& title) {
        if (Audience == machine::Audience::User) {
            Desktop.MsgBox(text, icon, title);
        }
    }

    machine::Audience Audience;
    WinDesktop Desktop;
    WinRegistry Registry{[this](const std::string& text) {
        Tell(text, forms::MessageIcon::Exclamation, "Drukkeuring acceptgiro's");
    }};
    WinLocale Locale;
    WinClock Clock;
    machine::SeededRandom Random;
    WinPrinters Printers;
    WinPrinter Printer{
        Printers, [this](const std::string& text) { Tell(text, forms::MessageIcon::Critical, "Afdrukken"); }};
    WinSpooler Spooler;
    WinBitmaps Bitmaps;
    WinPrintFonts PrintFonts;
    WinWindowProcedures Procedures{Desktop};
    machine::Platform Services{Desktop,  Registry, Locale,  Clock,      Random,    Spooler,
                               Printers, Printer,  Bitmaps, Procedures, PrintFonts};
};

WindowsPlatform::WindowsPlatform(machine::Audience audience) : parts_(std::make_unique<Parts>(audience)) {}

WindowsPlatform::~WindowsPlatform() = default;

machine::Platform& WindowsPlatform::Services() {
    return parts_->Services;
}

void WindowsPlatform::Run() {
    parts_->Desktop.Run();
}

} // namespace desktop::windows
