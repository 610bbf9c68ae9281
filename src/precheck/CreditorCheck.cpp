#include <array>
#include <string>
#include <string_view>
#include <utility>

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
/// What the store's code page has in place of a letter that it lacks.
constexpr char LostLetter = '?';

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

/// The letters one by one.
std::string LetterList(const std::u32string& letters) {
    std::string list;
    for (const char32_t code : letters) {
        list += (list.empty() ? "" : " ") + text::Encode(code);
    }
    return list;
}

/// Letters that cannot be printed, or that the store has not been able to hold.
void CheckLetters(LetterMeasures& measures, const CreditorText& creditor, const std::string& value,
                  Findings& findings) {
    const auto add = [&](Finding finding) {
        finding.Spot = creditor.Spot;
        findings.push_back(std::move(finding));
    };
    const std::u32string missing = measures.MissingLetters(value, {std::string(PlainFont), AnyPoints, false});
    if (!missing.empty()) {
        add(MakeFinding(FindingKind::CreditorLetters, {creditor.Name, Shown(LetterList(missing))}));
    }
    if (value.find(LostLetter) != std::string::npos) {
        add(MakeFinding(FindingKind::CreditorLettersLost, {creditor.Name, Quoted(value)}));
    }
}

} // namespace

void CheckCreditor(const CurrentSettings& current, machine::Platform& platform, Findings& findings) {
    const state::AppState& state = current.State;
    const bool printed = PrintsCreditor(state);
    const bool onlyAccount = state.GMUContractVorm == state::ContractCAccount;
    const bool ocrLine = composition::HasOcrRegel(state);
    if (!state.IncassantAfdrukken && IsKnownContract(state) &&
        composition::ContractPrintsIncassant(state.GMUContractVorm) && IsKnownType(state)) {
        const std::string stored = state::LeesInstelling(state, platform.Registry, "IncassantAfdrukken");
        findings.push_back(
            state::IsAan(stored)
                ? MakeFinding(
                      FindingKind::CreditorOff,
                      {std::string("het afdrukken van de incassant ") + SwitchedOnSince, MendSwitchedOn})
                : MakeFinding(
                      FindingKind::CreditorOff,
                      {SettingIs("IncassantAfdrukken", stored),
                       "Zet in Tarvik het afdrukken van de incassant aan en start dit programma opnieuw."}));
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
        } else {
            CheckLetters(measures, creditor, value, findings);
        }
    }
    if (ocrLine && !state.IncassantBankGiro.empty()) {
        CheckAccount(state.IncassantBankGiro, findings);
    }
}

} // namespace precheck
