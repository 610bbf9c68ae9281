#include "composition/OpenPrinter.h"

#include <string>

#include "base/Numbers.h"
#include "composition/PrintSurface.h"
#include "forms/Desktop.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "state/AppState.h"

namespace composition {

namespace {

constexpr const char* LineBreak = "\r\n";

/// Numbers of the steps, by which a message names the one that failed. 21 let go of the printer, which is no
/// step any more.
enum Regel : int {
    RegelCount = 1,
    RegelGet = 2,
    RegelMessages = 22,
    RegelSurface = 3,
    RegelFontSize = 4,
    RegelWidth = 5,
    RegelLeft = 6,
    RegelTop = 7,
    RegelHeight = 8,
};

struct FailureMessage {
    forms::MessageIcon Icon;
    std::string Text;
};

FailureMessage MessageOf(const base::RuntimeError& error) {
    switch (error.Number()) {
    case base::ErrorInvalidPropertyValue:
        return {forms::MessageIcon::Exclamation,
                std::string("Fout tijdens de initialisatie van de printer.") + LineBreak +
                    "Waarschijnlijk kan de gekozen printer niet in de gekozen modus afdrukken."};
    case base::ErrorPrinter:
        return {
            forms::MessageIcon::Exclamation,
            "De printer kon niet worden gevonden of de initialisatie van de printer is op dit moment niet "
            "mogelijk."};
    default:
        return {forms::MessageIcon::Critical,
                std::string("Fout tijdens de initialisatie van de printer.") + LineBreak +
                    "Mocht u deze fout niet zelf kunnen oplossen en u kunt deze fout reproduceren neem dan "
                    "contact op met Ondor BV." +
                    LineBreak + LineBreak + "Foutnummer: " + std::to_string(error.Number()) + " - " +
                    error.Description()};
    }
}

} // namespace

void OpenPrinter(state::AppState& state, machine::Platform& platform, PrinterSurface& surface) {
    machine::Printer& printer = platform.Printer;
    const auto step = [&](Regel regel, auto&& action) {
        try {
            action();
        } catch (const base::RuntimeError& error) {
            const FailureMessage message = MessageOf(error);
            platform.Desktop.MsgBox(message.Text + LineBreak + "Regel: " + std::to_string(regel),
                                    message.Icon, state.MessageTitle);
        }
    };

    bool noPrinter = false;
    step(RegelCount, [&] { noPrinter = platform.Printers.Count() == 0; });
    if (noPrinter) {
        return;
    }
    step(RegelGet, [&] { printer.DeviceName(); });
    step(RegelMessages, [&] { platform.Desktop.Yield(); });
    step(RegelSurface, [&] { state.Surface = &surface; });
    step(RegelFontSize, [&] { SurfaceOf(state).SetFontSize(ListFontPoints); });
    step(RegelWidth, [&] { state.SurfaceWidth = state.PageWidth; });
    step(RegelLeft, [&] { state.SurfaceLeft = base::ToInt32(printer.ScaleLeft()); });
    step(RegelTop, [&] { state.SurfaceTop = base::ToInt32(printer.ScaleTop()); });
    step(RegelHeight, [&] { state.SurfaceHeight = state.PageHeight; });
}

} // namespace composition
