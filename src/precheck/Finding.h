#pragma once

#include <string>
#include <vector>

#include "machine/PrinterCondition.h"

/// What would spoil a batch, found before paper is used. Nothing here prints, asks or stores.
namespace precheck {

/// How bad a finding is; the worse comes first.
enum class Gravity {
    Spoils, ///< the test institute will refuse the batch
    LookAt, ///< it may be meant so
};

/// What a finding is about.
enum class Subject { Settings, Calibration, Creditor, OcrFont, Sheet, Printer, Count };

/// Where the user can mend it.
enum class Spot {
    Tarvik, ///< in the main application alone
    OcrFont,
    Contract, ///< and the settings as a whole, of which it is the first that shows
    CreditorName,
    CreditorAddress,
    CreditorPostcode,
    CreditorTown,
    CreditorAccount,
    Printer, ///< the printer box of the print manager, or the printer itself
    Papers,
    Bins,
    Count,
    Copies,
};

/// A place on a sheet in twips from its top left corner.
struct SheetPlace {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

/// A sheet in outline with what stands on it, for who shows a finding about the sheet.
struct SheetSketch {
    machine::SheetArea Sheet;
    std::vector<SheetPlace> Forms; ///< the forms of the stationery
    std::vector<SheetPlace> Texts; ///< all texts of the page
    std::vector<SheetPlace> Wrong; ///< those that the finding is about
};

/// A text that stands wrong, or two that stand over each other, and by how much where it is worst.
struct WrongPlace {
    std::string Name; ///< "het bedrag in centen (onderste formulier)"
    double Millimetres = 0;
};

struct Finding {
    /// A word that never changes, for machines: "calibration.no-number".
    std::string Code;
    precheck::Gravity Gravity = Gravity::LookAt;
    precheck::Subject Subject = Subject::Settings;
    precheck::Spot Spot = Spot::Tarvik;
    /// What is wrong, in a sentence or two with the actual values. UTF-8 without control characters; an "&"
    /// is an "&", so a caption has to double it.
    std::string Wrong;
    /// How it is mended, in a sentence or two.
    std::string Mend;
    /// Of a finding about the sheet; no forms and no texts where there is nothing to show.
    SheetSketch Sketch;
    /// Of a finding about texts at their places each of them, where the sentence has the worst alone.
    std::vector<WrongPlace> Texts{};
};

/// Worst first; those that are equally bad in the order in which they were found.
using Findings = std::vector<Finding>;

} // namespace precheck
