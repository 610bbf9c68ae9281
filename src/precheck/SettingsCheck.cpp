#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "base/Text.h"
#include "composition/DocumentRun.h"
#include "composition/PrintOCRRegel.h"
#include "machine/Platform.h"
#include "precheck/Checks.h"
#include "precheck/CurrentSettings.h"
#include "precheck/FindingKinds.h"
#include "precheck/Wording.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"

namespace precheck {

namespace {

std::optional<FindingKind> KindOf(machine::StoreTrouble trouble) {
    switch (trouble) {
    case machine::StoreTrouble::Missing:
    case machine::StoreTrouble::NoKey:
        return FindingKind::SettingsNone;
    case machine::StoreTrouble::Unreadable:
        return FindingKind::SettingsUnreadable;
    case machine::StoreTrouble::UnknownEncoding:
        return FindingKind::SettingsEncoding;
    case machine::StoreTrouble::CutOff:
        return FindingKind::SettingsCutOff;
    case machine::StoreTrouble::None:
        break;
    }
    return std::nullopt;
}

std::optional<Finding> AboutStore(const machine::StoreCondition& store) {
    const std::optional<FindingKind> kind = KindOf(store.Trouble);
    if (!kind) {
        return std::nullopt;
    }
    const std::string where = Shown(store.Where);
    if (store.Trouble == machine::StoreTrouble::NoKey) {
        return MakeFinding(*kind,
                           {"in " + where + " staan ze niet",
                            "Haal ze opnieuw op uit Tarvik (HKCU\\Software\\Ondor\\Tarvik) en zet ze op "
                            "hun plaats."});
    }
    if (store.Trouble == machine::StoreTrouble::Missing) {
        return MakeFinding(*kind,
                           {where + " is er niet",
                            "Op Windows: werk onder de naam waaronder u Tarvik gebruikt. Op Linux: zet het "
                            "bestand met de instellingen op zijn plaats."});
    }
    const std::string reason = store.Reason.empty() ? std::string() : " (" + Shown(store.Reason) + ')';
    Finding finding = MakeFinding(*kind, {where, reason,
                                          store.EarlierHolds ? "Tot dan geldt wat eerder is gelezen."
                                                             : "Tot dan wordt alles zonder calibratie "
                                                               "afgedrukt."});
    if (store.EarlierHolds) {
        finding.Gravity = Gravity::LookAt;
    }
    return finding;
}

} // namespace

void CheckContract(const CurrentSettings& current, machine::Platform& platform, const Intent& intent,
                   Findings& findings) {
    const state::AppState& state = current.State;
    const auto settingIs = [&](std::string_view name) {
        return SettingIs(name, base::text::Trim(state::LeesInstelling(state, platform.Registry, name)));
    };
    if (!IsKnownContract(state)) {
        findings.push_back(MakeFinding(FindingKind::ContractNone, {settingIs("GMUContractVorm")}));
    }
    if (!IsKnownType(state)) {
        findings.push_back(MakeFinding(FindingKind::FormTypeNone,
                                       {settingIs("AcceptgiroType"),
                                        composition::HasOcrRegel(state)
                                            ? "Alleen de OCR-regel en het betalingskenmerk worden afgedrukt."
                                            : "De formulieren blijven leeg."}));
    }
    if (intent.Document != composition::DocumentTestForms) {
        return;
    }
    if (state.GMUContractVorm == state::ContractA) {
        findings.push_back(MakeFinding(FindingKind::OcrContractA));
    } else if (!state.GMUVerkeer) {
        const std::string stored = state::LeesInstelling(state, platform.Registry, "GMUVerkeer");
        findings.push_back(
            state::IsAan(stored)
                ? MakeFinding(FindingKind::OcrOff, {SwitchedOnSince, MendSwitchedOn})
                : MakeFinding(FindingKind::OcrOff,
                              {"staat uit (" + SettingIs("GMUVerkeer", stored) + ')',
                               "Zet in Tarvik het betalingsverkeer aan en start dit programma opnieuw."}));
    }
}

Findings CheckSettings(const state::AppState& state, machine::Platform& platform, const Intent& intent) {
    Findings findings;
    if (intent.Document == composition::DocumentNameList) {
        return findings;
    }
    const CurrentSettings current = ReadCurrentSettings(state, platform.Registry);
    if (std::optional<Finding> finding = AboutStore(current.Store)) {
        findings.push_back(std::move(*finding));
    }
    // All else that would be found wrong is mended as soon as there are settings.
    if (current.Readable()) {
        CheckContract(current, platform, intent, findings);
        CheckCalibration(current, platform, findings);
        CheckFont(current, platform, intent, findings);
        if (intent.Document == composition::DocumentTestForms) {
            CheckCreditor(current, platform, findings);
        }
    }
    if (intent.Document == composition::DocumentTestForms) {
        CheckCount(intent, findings);
    }
    SortFindings(findings);
    return findings;
}

void SortFindings(Findings& findings) {
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& one, const Finding& other) { return one.Gravity < other.Gravity; });
}

} // namespace precheck
