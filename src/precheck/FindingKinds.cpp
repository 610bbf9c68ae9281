#include "precheck/FindingKinds.h"

#include <array>
#include <cstddef>

namespace precheck {

namespace {

using Kind = FindingKind;

constexpr auto Spoils = Gravity::Spoils;
constexpr auto LookAt = Gravity::LookAt;

constexpr std::array<FindingWords, 48> Kinds = {{
    {Kind::SettingsNone, "settings.none", Spoils, Subject::Settings, Spot::Contract,
     "De instellingen van Tarvik zijn niet gevonden: %1.", "%2"},
    {Kind::SettingsUnreadable, "settings.unreadable", Spoils, Subject::Settings, Spot::Contract,
     "De instellingen van Tarvik kunnen niet worden gelezen: %1%2.",
     "Zorg dat u het mag lezen, of vraag de beheerder. %3"},
    {Kind::SettingsEncoding, "settings.encoding", Spoils, Subject::Settings, Spot::Contract,
     "De instellingen van Tarvik staan er, maar in een vorm die dit programma niet kent: %1%2.",
     "Haal de instellingen opnieuw op uit Tarvik en zet ze op hun plaats zonder ze te bewerken."},
    {Kind::SettingsCutOff, "settings.cut-off", Spoils, Subject::Settings, Spot::Contract,
     "Van de instellingen van Tarvik is alleen het begin er: %1%2.",
     "Haal de instellingen opnieuw op uit Tarvik, en zet ze nu helemaal over."},
    {Kind::ContractNone, "contract.none", Spoils, Subject::Settings, Spot::Contract,
     "Er is geen contractsoort ingesteld: %1.",
     "Stel in Tarvik de contractsoort in waarvoor u de keuring aanvraagt."},
    {Kind::FormTypeNone, "formtype.none", Spoils, Subject::Settings, Spot::Contract,
     "Het type acceptgiro is niet ingesteld: %1. %2", "Stel in Tarvik het type acceptgiro in."},
    {Kind::OcrOff, "ocr.off", Spoils, Subject::Settings, Spot::Contract,
     "De formulieren krijgen geen OCR-regel en geen betalingskenmerk: het betalingsverkeer %1.", "%2"},
    {Kind::OcrContractA, "ocr.contract-a", LookAt, Subject::Settings, Spot::Contract,
     "De formulieren krijgen geen OCR-regel en geen betalingskenmerk: de contractsoort is Contract A.",
     "Vraagt u een ander contract aan, stel dat dan in Tarvik in."},
    {Kind::CalibrationNoNumber, "calibration.no-number", Spoils, Subject::Calibration, Spot::Tarvik,
     "De calibratie %1 (%2, %3) is geen getal dat deze computer kent: %4. Er wordt daarmee niets verschoven.",
     "%5"},
    {Kind::CalibrationTooLarge, "calibration.too-large", Spoils, Subject::Calibration, Spot::Tarvik,
     "De calibratie %1 (%2, %3) is veel te groot: %4 mm. Er wordt daarmee niets verschoven.",
     "Geef in Tarvik een verschuiving van enkele millimeters in, of maak het vak leeg."},
    {Kind::CalibrationOffForm, "calibration.off-form", Spoils, Subject::Calibration, Spot::Tarvik,
     "%1 buiten het formulier%2: %3.%4",
     "Verbeter deze calibratie in Tarvik. Een kleine verschuiving is genoeg voor wat een printer verkeerd "
     "zet."},
    {Kind::LocaleNoComma, "locale.no-comma", Spoils, Subject::Calibration, Spot::Tarvik,
     "Deze computer kent de decimale komma niet, en de calibratie is met een komma geschreven, zoals %1. %2 "
     "daardoor niets.",
     "Stel de getallen van deze computer in op de Nederlandse schrijfwijze en start dit programma opnieuw."},
    {Kind::CreditorOff, "creditor.off", Spoils, Subject::Creditor, Spot::Tarvik,
     "Uw gegevens komen niet op de formulieren, terwijl dat bij deze contractsoort wel hoort: %1.", "%2"},
    {Kind::CreditorNoName, "creditor.no-name", Spoils, Subject::Creditor, Spot::CreditorName,
     "De naam van de incassant is leeg.", "Vul op de eerste bladzijde de naam in."},
    {Kind::CreditorNoAddress, "creditor.no-address", LookAt, Subject::Creditor, Spot::CreditorAddress,
     "Het adres van de incassant is leeg; de hele adresregel blijft daardoor weg.",
     "Vul op de eerste bladzijde het adres in."},
    {Kind::CreditorNoPostcode, "creditor.no-postcode", LookAt, Subject::Creditor, Spot::CreditorPostcode,
     "De postcode van de incassant is leeg; de hele adresregel blijft daardoor weg.",
     "Vul op de eerste bladzijde de postcode in."},
    {Kind::CreditorNoTown, "creditor.no-town", Spoils, Subject::Creditor, Spot::CreditorTown,
     "De plaats van de incassant is leeg.", "Vul op de eerste bladzijde de plaats in."},
    {Kind::CreditorNoAccount, "creditor.no-account", Spoils, Subject::Creditor, Spot::CreditorAccount,
     "De rekening van de incassant is leeg.", "Vul op de eerste bladzijde uw IBAN in."},
    {Kind::CreditorNoIban, "creditor.no-iban", Spoils, Subject::Creditor, Spot::CreditorAccount,
     "De rekening van de incassant is geen IBAN: %1. In de OCR-regel ontbreekt daardoor de BIC.",
     "Vul op de eerste bladzijde uw IBAN in."},
    {Kind::CreditorNoBic, "creditor.no-bic", Spoils, Subject::Creditor, Spot::CreditorAccount,
     "Van de bank van rekening %1 is geen BIC bekend; die ontbreekt daardoor in de OCR-regel.",
     "Vul op de eerste bladzijde een Nederlands IBAN in, in hoofdletters en zonder streepjes."},
    {Kind::CreditorNameCut, "creditor.name-cut", LookAt, Subject::Creditor, Spot::CreditorName,
     "De naam van de incassant past niet op de souche. Van %1 blijft daar over: %2.",
     "Kort de naam op de eerste bladzijde af, als u wilt dat hij er heel staat."},
    {Kind::CreditorTownCut, "creditor.town-cut", LookAt, Subject::Creditor, Spot::CreditorTown,
     "De plaats van de incassant past niet op de souche. Van %1 blijft daar over: %2.",
     "Kort de plaats op de eerste bladzijde af, als u wilt dat zij er heel staat."},
    {Kind::CreditorLetters, "creditor.letters", Spoils, Subject::Creditor, Spot::CreditorName,
     "In %1 staan tekens die niet kunnen worden afgedrukt: %2.",
     "Schrijf het op de eerste bladzijde zonder deze tekens."},
    {Kind::CreditorLettersLost, "creditor.letters-lost", LookAt, Subject::Creditor, Spot::CreditorName,
     "In %1 staat een vraagteken: %2. Dat staat er ook voor een letter die de instellingen niet kunnen "
     "bevatten.",
     "Kijk op de eerste bladzijde of daar een andere letter hoort, en typ die."},
    {Kind::FontNone, "font.none", Spoils, Subject::OcrFont, Spot::OcrFont,
     "Er is geen OCR-B-lettertype ingesteld: %1. Wat in OCR-B hoort, wordt in %2 afgedrukt.",
     "Stel in Tarvik het OCR-B-lettertype in en start dit programma opnieuw."},
    {Kind::FontReplaced, "font.replaced", Spoils, Subject::OcrFont, Spot::OcrFont,
     "Het lettertype %1 is niet geïnstalleerd. In plaats daarvan wordt %2 afgedrukt.",
     "Installeer het OCR-B-lettertype, of verbeter de naam in Tarvik, en start dit programma opnieuw."},
    {Kind::FontNotOcrB, "font.not-ocr-b", Spoils, Subject::OcrFont, Spot::OcrFont,
     "Het lettertype %1 is geen OCR-B: de cijfers en de tekens +, < en > zijn niet even breed.",
     "Installeer een OCR-B-lettertype, stel het in Tarvik in en start dit programma opnieuw."},
    {Kind::FontPitch, "font.pitch", Spoils, Subject::OcrFont, Spot::OcrFont,
     "De tekens van lettertype %1 staan bij 10 punten %2 mm uit elkaar, en niet 2,54 mm zoals bij OCR-B.",
     "Installeer een OCR-B-lettertype, stel het in Tarvik in en start dit programma opnieuw."},
    {Kind::FontDigits, "font.digits", LookAt, Subject::OcrFont, Spot::OcrFont,
     "De cijfers van lettertype %1 lijken niet op die van OCR-B: de 1 is %2 mm breed en de 0 %3 mm. Bij "
     "OCR-B "
     "is de 1 veel smaller dan de 0; even breed zijn ze bij OCR-A.",
     "Vergelijk de cijfers met die van OCR-B. Is het een ander lettertype, stel dan in Tarvik een "
     "OCR-B-lettertype in en start dit programma opnieuw."},
    {Kind::FontSize, "font.size", Spoils, Subject::OcrFont, Spot::OcrFont,
     "Het OCR-B-lettertype wordt op %1 punten afgedrukt en niet op 10%2.",
     "Stel in Tarvik 10 punten in en start dit programma opnieuw."},
    {Kind::FontLetters, "font.letters", LookAt, Subject::OcrFont, Spot::OcrFont,
     "Het lettertype %1 heeft niet alle tekens van %2; er ontbreekt: %3.",
     "Installeer een lettertype dat deze tekens wel heeft."},
    {Kind::SheetTooSmall, "sheet.too-small", Spoils, Subject::Sheet, Spot::Papers,
     "Het gekozen papier is te klein voor de acceptgiro's: %1, en het acceptgiropapier is %2.",
     "Kies het formaat van uw acceptgiropapier."},
    {Kind::SheetForced, "sheet.forced", LookAt, Subject::Sheet, Spot::Papers,
     "Het papier dat u kiest, telt niet: Tarvik dwingt Legal (216 x 356 mm) af (%1).",
     "Zet dat in Tarvik uit en start dit programma opnieuw, als u zelf het papier wilt kiezen."},
    {Kind::SheetTextOff, "sheet.text-off", Spoils, Subject::Sheet, Spot::Papers,
     "%1 buiten wat de printer op dit vel kan afdrukken%2.%3", "%4"},
    {Kind::SheetTextsOverlap, "sheet.texts-overlap", Spoils, Subject::Sheet, Spot::Tarvik,
     "%1 staan over elkaar%2.%3",
     "Verbeter in Tarvik de calibratie of de grootte van de letters, of kort de tekst af."},
    {Kind::SheetTextCut, "sheet.text-cut", LookAt, Subject::Sheet, Spot::Tarvik,
     "%1 past niet op zijn plaats. Van %2 blijft daar over: %3.",
     "Kijk of het lettertype Tahoma op deze computer is geïnstalleerd."},
    {Kind::SheetOffForm, "sheet.off-form", Spoils, Subject::Sheet, Spot::Tarvik,
     "%1 buiten het eigen formulier%2.%3", "Maak in Tarvik de letters kleiner, of kort de tekst af."},
    {Kind::PrinterUnreachable, "printer.unreachable", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 is niet te bereiken.",
     "Zet de printer aan en kijk of hij verbonden is, of kies een andere."},
    {Kind::PrinterPaused, "printer.paused", LookAt, Subject::Printer, Spot::Printer,
     "De printer %1 staat op pauze; wat u afdrukt, blijft wachten.",
     "Laat de printer doorgaan, in het venster van de printer of bij de beheerder."},
    {Kind::PrinterRejecting, "printer.rejecting", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 neemt geen opdrachten aan.", "Vraag de beheerder, of kies een andere printer."},
    {Kind::PrinterNoPaper, "printer.no-paper", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 heeft geen papier.",
     "Leg acceptgiropapier in de lade, genoeg voor de hele partij: die moet in één keer worden afgedrukt."},
    {Kind::PrinterError, "printer.error", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 meldt een storing%2.", "Verhelp de storing bij de printer."},
    {Kind::PrinterImposed, "printer.imposed", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 is zo ingesteld dat er iets anders op het papier komt, en dit programma kan dat niet "
     "veranderen: %2.",
     "Zet het uit bij de instellingen van de printer, of vraag de beheerder."},
    {Kind::PrinterCoarse, "printer.coarse", Spoils, Subject::Printer, Spot::Printer,
     "De printer %1 zet %2 punten per inch; onder de 180 is OCR-B niet te lezen.",
     "Stel bij de printer een hogere afdrukkwaliteit in, of kies een andere printer."},
    {Kind::CountTooFew, "count.too-few", Spoils, Subject::Count, Spot::Count,
     "Het aantal is %1, en bij de gekozen testpartij horen %2 formulieren.", "Vul %2 in."},
    {Kind::CountNone, "count.none", Spoils, Subject::Count, Spot::Copies,
     "Het aantal kopieën is %1; er wordt dan geen enkel formulier afgedrukt.", "Vul 1 in."},
    {Kind::CountNoNames, "count.no-names", LookAt, Subject::Count, Spot::Count,
     "Het aantal is %1. De formulieren na nummer 250 krijgen geen naam en adres van een betaler.",
     "Voor een testpartij zijn 250 formulieren genoeg."},
    {Kind::CountCopies, "count.copies", LookAt, Subject::Count, Spot::Copies,
     "Elk formulier wordt %1 keer afgedrukt, met dezelfde gegevens.",
     "Vul bij het aantal kopieën 1 in, als u elk formulier één keer wilt."},
}};

constexpr bool AreInTheOrderOfTheirNumbers() {
    for (std::size_t i = 0; i < Kinds.size(); ++i) {
        if (Kinds[i].Kind != static_cast<Kind>(i)) {
            return false;
        }
    }
    return static_cast<std::size_t>(Kind::CountCopies) + 1 == Kinds.size();
}
static_assert(AreInTheOrderOfTheirNumbers());

/// The sentence with its values. What a value holds is not looked at again.
std::string Filled(std::string_view sentence, std::initializer_list<std::string_view> values) {
    std::string filled;
    for (std::size_t at = 0; at < sentence.size(); ++at) {
        if (sentence[at] != '%') {
            filled += sentence[at];
            continue;
        }
        ++at;
        filled += values.begin()[sentence[at] - '1'];
    }
    return filled;
}

} // namespace

std::span<const FindingWords> AllFindingKinds() {
    return Kinds;
}

Finding MakeFinding(FindingKind kind, std::initializer_list<std::string_view> values) {
    const FindingWords& words = Kinds[static_cast<std::size_t>(kind)];
    Finding finding;
    finding.Code = words.Code;
    finding.Gravity = words.Gravity;
    finding.Subject = words.Subject;
    finding.Spot = words.Spot;
    finding.Wrong = Filled(words.Wrong, values);
    finding.Mend = Filled(words.Mend, values);
    return finding;
}

} // namespace precheck
