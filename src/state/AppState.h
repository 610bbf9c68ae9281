#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/Boolean.h"
#include "base/TextTable.h"

namespace composition {
class PrintSurface; // the record carries it, and nothing here looks into it
}

namespace state {

/// One calibration value for each place where a form can stand: 0 to 2 the top, middle and bottom form of a
/// sheet, 3 the form under a letter. Millimetres as text in the user's locale ("1,00"); empty for none.
/// Element 4 is never loaded.
using Calibration = std::array<std::string, 5>;

/// The one record of settings, measures and tables that the whole program works on, from its start to its
/// end. It belongs to no form. Lengths are twips unless said otherwise.
struct AppState {
    // The user's regional settings. Nothing reads them after the start.
    std::string CurrencySymbol;
    std::string MonetaryDecimal;
    std::string MonetaryThousand;

    /// Font of the preview and of the plain text on a form.
    std::string ListFontName;
    std::string CrLf;
    std::string Blank;
    /// Title of every message box.
    std::string MessageTitle;

    /// Name of the form that the print manager calls back.
    std::string CallerFormName;
    /// Key of all settings below the current user's root.
    std::string SettingsKey;
    /// Titles of the documents on offer, from 1 on; the first empty one ends the list.
    std::array<std::string, 11> DocumentTitle;

    /// Payment traffic: off, the forms carry no payment reference and no OCR line.
    base::Boolean GMUVerkeer;
    std::string GMUFontName;
    std::string GMUCode;
    /// Points, as text.
    std::string GMUFontSize;
    std::string GMUServiceNr;
    /// Contract form: 1, 2, 31, 32, 33 or 34; any other is no contract.
    std::int16_t GMUContractVorm = 0;

    // The creditor.
    base::Boolean IncassantAfdrukken;
    std::string IncassantBegunstigde;
    std::string IncassantAdres;
    std::string IncassantPostCode;
    std::string IncassantWoonplaats;
    std::string IncassantBankGiro;

    // Calibration; X is positive to the right, Y downward.
    std::array<std::string, 4> OCRLinks;
    std::array<std::string, 4> OCRTop;
    Calibration AcceptGiroLinks;
    Calibration AcceptGiroTop;
    Calibration AcceptGiroNAWLinks;
    Calibration AcceptGiroNAWTop;
    Calibration AcceptGiroBKSoucheLinks;
    Calibration AcceptGiroBKSoucheTop;
    Calibration AcceptGiroBKAcceptLinks;
    Calibration AcceptGiroBKAcceptTop;
    Calibration AcceptGiroBGSoucheLinks;
    Calibration AcceptGiroBGSoucheTop;
    Calibration AcceptGiroBGAcceptLinks;
    Calibration AcceptGiroBGAcceptTop;

    /// The print manager is open; the wizard ignores its commands meanwhile.
    base::Boolean PrintManagerOpen;
    /// How often the printer's preparation yields to the message loop; more than 1000 also repeats it.
    std::int32_t PrinterInit = 0;
    /// The user has asked from the preview for the document on paper.
    base::Boolean PrintAfterPreview;
    /// 1 three forms on a sheet, narrow stub; 2 three, wide stub; 3 one form under a letter, narrow stub.
    std::int16_t AcceptgiroType = 0;
    /// A run forces the paper size.
    base::Boolean OverrulePaperSize;

    /// What a run draws on: the printer or the preview's page.
    composition::PrintSurface* Surface = nullptr;

    /// Unprintable margin of the printer, in 1400ths of an inch.
    std::int32_t PhysicalOffsetX = 0;
    std::int32_t PhysicalOffsetY = 0;
    /// machine::Portrait or Landscape; 0 leaves the printer as it is.
    std::int16_t PrinterOrientation = 0;
    base::Boolean MatrixPrinter;
    /// Left margin of the list documents.
    std::int32_t LeftMargin = 0;
    std::int16_t TwipsPerCm = 0;
    /// Printable area of the printer.
    std::int32_t PageWidth = 0;
    std::int32_t PageHeight = 0;
    /// Height of a text line on the surface.
    std::int32_t LineHeight = 0;

    // The surface's rectangle during a run.
    std::int32_t SurfaceWidth = 0;
    std::int32_t SurfaceLeft = 0;
    std::int32_t SurfaceHeight = 0;
    std::int32_t SurfaceTop = 0;

    /// Test persons and test accounts: constants of the program.
    const base::TextTable* PersonTable = nullptr;
    const base::TextTable* AccountTable = nullptr;
};

} // namespace state
