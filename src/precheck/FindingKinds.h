#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "precheck/Finding.h"

namespace precheck {

/// Everything that can be found.
enum class FindingKind {
    SettingsNone,
    SettingsUnreadable,
    SettingsEncoding,
    SettingsCutOff,
    ContractNone,
    FormTypeNone,
    OcrOff,
    OcrContractA,
    CalibrationNoNumber,
    CalibrationTooLarge,
    CalibrationOffForm,
    LocaleNoComma,
    CreditorOff,
    CreditorNoName,
    CreditorNoAddress,
    CreditorNoPostcode,
    CreditorNoTown,
    CreditorNoAccount,
    CreditorNoIban,
    CreditorNoBic,
    CreditorNameCut,
    CreditorTownCut,
    CreditorLetters,
    CreditorLettersLost,
    FontNone,
    FontReplaced,
    FontNotOcrB,
    FontPitch,
    FontDigits,
    FontSize,
    FontLetters,
    SheetTooSmall,
    SheetForced,
    SheetTextOff,
    SheetTextsOverlap,
    SheetTextCut,
    SheetOffForm,
    PrinterUnreachable,
    PrinterPaused,
    PrinterRejecting,
    PrinterNoPaper,
    PrinterError,
    PrinterImposed,
    PrinterCoarse,
    CountTooFew,
    CountNone,
    CountNoNames,
    CountCopies,
};

/// What a finding of a kind always has. In the sentences %1 to %9 stand for values.
struct FindingWords {
    FindingKind Kind;
    std::string_view Code;
    precheck::Gravity Gravity;
    precheck::Subject Subject;
    precheck::Spot Spot;
    std::string_view Wrong;
    std::string_view Mend;
};

/// All kinds, in the order of their numbers.
std::span<const FindingWords> AllFindingKinds();

/// A finding with its values, which are taken as they are: what a user has typed is first Quoted.
Finding MakeFinding(FindingKind kind, std::initializer_list<std::string_view> values = {});

} // namespace precheck
