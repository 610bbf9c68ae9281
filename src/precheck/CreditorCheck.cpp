#include <array>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "composition/PrintIncassant.h"
#include "composition/PrintOCRRegel.h"
#include "machine/Platform.h"
#include "payment/Accounts.h"
#include "payment/Iban.h"
#include "precheck/Checks.h"
#include "precheck/CurrentSettings.h"
#include "precheck/FindingKinds.h"
#include "precheck/LetterMeasures.h"
#include "precheck/Wording.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"

namespace precheck {

namespace text = base::text;

namespace {

constexpr std::string_view PlainFont = "Tahoma";
constexpr double AnyPoints = 7;

/// A text of the creditor, and what is told where it is missing.
struct CreditorText {
    std::string_view Name;
    precheck::Spot Spot;
    std::string state::AppState::*Field;
    FindingKind Missing;
};

constexpr std::array<CreditorText, 5> Texts = {{
    {"de naam van de incassant", Spot::CreditorName, &state::AppState::IncassantBegunstigde,
     FindingKind::CreditorNoName},
    {"het adres van de incassant", Spot::CreditorAddress, &state::AppState::IncassantAdres,
     FindingKind::CreditorNoAddress},
    {"de postcode van de incassant", Spot::CreditorPostcode, &state::AppState::IncassantPostCode,
     FindingKind::CreditorNoPostcode},
    {"de plaats van de incassant", Spot::CreditorTown, &state::AppState::IncassantWoonplaats,
     FindingKind::CreditorNoTown},
    {"de rekening van de incassant", Spot::CreditorAccount, &state::AppState::IncassantBankGiro,
     FindingKind::CreditorNoAccount},
}};

/// The OCR line takes the bank from the account, and under all contract forms but one the account too.
void CheckAccount(const std::string& account, Findings& findings) {
    const std::string bare = payment::Rekening2Text(account);
    if (!payment::IBANCheck(bare)) {
        findings.push_back(MakeFinding(FindingKind::CreditorNoIban, {Quoted(account)}));
    } else if (payment::IBAN2BIC(bare).empty()) {
        findings.push_back(MakeFinding(FindingKind::CreditorNoBic, {Quoted(account)}));
    }
}

/// Letters that the font lacks, or that the main application and the printers of the machine's code page
/// cannot hold.
std::string UnprintableLetters(LetterMeasures& measures, std::string_view whole) {
    std::u32string missing = measures.MissingLetters(whole, {std::string(PlainFont), AnyPoints, false});
    for (std::string_view rest = whole; !rest.empty();) {
        const text::Decoded first = text::DecodeFirst(rest);
        const std::string letter = text::Encode(first.Code);
        if (text::ToCodePage(letter) == "?" && first.Code != U'?' &&
            missing.find(first.Code) == std::u32string::npos) {
            missing += first.Code;
        }
        rest.remove_prefix(first.Bytes);
    }
    std::string list;
    for (const char32_t code : missing) {
        list += (list.empty() ? "" : " ") + text::Encode(code);
    }
    return list;
}

} // namespace

void CheckCreditor(const CurrentSettings& current, machine::Platform& platform, Findings& findings) {
    const state::AppState& state = current.State;
    const bool printed = PrintsCreditor(state);
    const bool onlyAccount = state.GMUContractVorm == state::ContractCAccount;
    const bool ocrLine = composition::HasOcrRegel(state);
    if (!state.IncassantAfdrukken && composition::ContractPrintsIncassant(state.GMUContractVorm) &&
        IsKnownType(state)) {
        findings.push_back(
            MakeFinding(FindingKind::CreditorOff,
                        {SettingIs("IncassantAfdrukken",
                                   state::LeesInstelling(state, platform.Registry, "IncassantAfdrukken"))}));
    }
    LetterMeasures measures(platform.Fonts);
    for (const CreditorText& creditor : Texts) {
        const std::string& value = state.*creditor.Field;
        const bool isAccount = creditor.Spot == Spot::CreditorAccount;
        const bool needed = isAccount ? printed || ocrLine : printed && !onlyAccount;
        if (!needed) {
            continue;
        }
        if (value.empty()) {
            findings.push_back(MakeFinding(creditor.Missing));
        } else if (const std::string missing = UnprintableLetters(measures, value); !missing.empty()) {
            Finding finding = MakeFinding(FindingKind::CreditorLetters, {creditor.Name, Shown(missing)});
            finding.Spot = creditor.Spot;
            findings.push_back(std::move(finding));
        }
    }
    if (ocrLine && !state.IncassantBankGiro.empty()) {
        CheckAccount(state.IncassantBankGiro, findings);
    }
}

} // namespace precheck
