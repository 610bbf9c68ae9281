#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "base/Numbers.h"
#include "base/Text.h"
#include "composition/DocumentRun.h"
#include "composition/PrintOCRRegel.h"
#include "machine/Platform.h"
#include "payment/Iban.h"
#include "payment/OcrLine.h"
#include "precheck/Checks.h"
#include "precheck/CurrentSettings.h"
#include "precheck/FindingKinds.h"
#include "precheck/Lengths.h"
#include "precheck/LetterMeasures.h"
#include "precheck/Wording.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"

namespace precheck {

namespace {

constexpr double OcrPoints = 10;
constexpr double OcrPitchMillimetres = 2.54;
constexpr double PitchToleranceMillimetres = 0.02;
constexpr std::string_view OcrLetters = "0123456789+<>";
/// How broad a "1" can be beside a "0". In OCR-B it has less than two thirds of it, in OCR-A nine tenths at
/// least, and the two stand equally far apart in their lines.
constexpr double BroadestOne = 0.8;

/// By how much the fields of the line have to meet before it is told.
constexpr double FieldToleranceTwips = 1;

/// Pitch in millimetres at 10 points; nothing if the letters are not all of one width.
std::optional<double> PitchOf(LetterMeasures& measures, const std::string& name) {
    const machine::FontSpec font = {name, OcrPoints, false};
    double narrowest = measures.Measure(OcrLetters.substr(0, 1), font).Width;
    double widest = narrowest;
    for (std::size_t i = 1; i < OcrLetters.size(); ++i) {
        const double width = measures.Measure(OcrLetters.substr(i, 1), font).Width;
        narrowest = std::min(narrowest, width);
        widest = std::max(widest, width);
    }
    if (ToMillimetres(widest - narrowest) > PitchToleranceMillimetres) {
        return std::nullopt;
    }
    return ToMillimetres((narrowest + widest) / 2);
}

/// A line of figures with the creditor's bank and account.
payment::OcrLine SampleLine(const state::AppState& state) {
    payment::OcrLine line;
    payment::MakeOcrLine({.kenmerk = "100000001010101",
                          .euro = "100",
                          .cent = "00",
                          .rekening = state.IncassantBankGiro,
                          .bic = payment::IBAN2BIC(state.IncassantBankGiro),
                          .ContractVorm = state.GMUContractVorm},
                         line);
    return line;
}

/// "het bedrag": the line itself is named once for all.
std::string_view WithoutLine(std::string_view field) {
    return field.substr(0, field.find(" in de OCR-regel"));
}

/// "; in de OCR-regel loopt dan het bedrag in de BIC, de BIC in de rekening", with each that does.
std::string FieldsThatMeet(const state::AppState& state, LetterMeasures& measures,
                           const machine::FontSpec& font) {
    std::string told;
    const payment::OcrLine line = SampleLine(state);
    double reach = 0;
    std::string_view before;
    for (const payment::OcrField& field : payment::OcrFields) {
        const TextInk ink = measures.InkOf(line.*field.Text, font);
        if (!ink.HasInk) {
            continue;
        }
        const double x = field.XCm * state.TwipsPerCm;
        if (!before.empty() && reach > x + ink.Box.Left + FieldToleranceTwips) {
            told.append(told.empty() ? "; in de OCR-regel loopt dan " : ", ");
            told.append(WithoutLine(before)).append(" in ").append(WithoutLine(field.Name));
        }
        reach = x + ink.Box.Right;
        before = field.Name;
    }
    return told;
}

double InkWidth(LetterMeasures& measures, const std::string& name, std::string_view letter) {
    const machine::InkBox ink = measures.InkOf(letter, {name, OcrPoints, false}).Box;
    return ink.Right - ink.Left;
}

std::optional<Finding> AboutDigits(LetterMeasures& measures, const std::string& name) {
    const double one = InkWidth(measures, name, "1");
    const double zero = InkWidth(measures, name, "0");
    if (one <= BroadestOne * zero) {
        return std::nullopt;
    }
    return MakeFinding(FindingKind::FontDigits,
                       {Quoted(name), Decimal(ToMillimetres(one), 2), Decimal(ToMillimetres(zero), 2)});
}

bool IsOcrB(LetterMeasures& measures, const std::string& name) {
    const std::optional<double> pitch = PitchOf(measures, name);
    return pitch && std::abs(*pitch - OcrPitchMillimetres) <= PitchToleranceMillimetres;
}

std::optional<Finding> AboutFamily(const CurrentSettings& current, machine::Platform& platform,
                                   LetterMeasures& measures) {
    const std::string& name = current.State.GMUFontName;
    const std::string stored = state::LeesInstelling(current.State, platform.Registry, "GMUFontName");
    if (base::text::Trim(stored).empty() && !IsOcrB(measures, name)) {
        return MakeFinding(FindingKind::FontNone, {SettingIs("GMUFontName", {}), Shown(name)});
    }
    if (IsReplaced(platform.Fonts, name)) {
        return MakeFinding(FindingKind::FontReplaced, {Quoted(name), Quoted(platform.Fonts.FamilyFor(name))});
    }
    const std::optional<double> pitch = PitchOf(measures, name);
    if (!pitch) {
        return MakeFinding(FindingKind::FontNotOcrB, {Quoted(name)});
    }
    if (std::abs(*pitch - OcrPitchMillimetres) > PitchToleranceMillimetres) {
        return MakeFinding(FindingKind::FontPitch, {Quoted(name), Decimal(*pitch, 2)});
    }
    return AboutDigits(measures, name);
}

/// How bad it is if the OCR font is wrong: the readers take the OCR line alone. On the narrow form and in the
/// report the font is seen all the same; on the wide one there is then nothing in it.
std::optional<Gravity> GravityOf(const state::AppState& state, const Intent& intent) {
    if (composition::HasOcrRegel(state)) {
        return Gravity::Spoils;
    }
    const bool isSeen = intent.Document == composition::DocumentCalibration ||
                        (IsKnownType(state) && state.AcceptgiroType != state::TypeWideStub);
    return isSeen ? std::optional(Gravity::LookAt) : std::nullopt;
}

} // namespace

void CheckFont(const CurrentSettings& current, machine::Platform& platform, const Intent& intent,
               Findings& findings) {
    const state::AppState& state = current.State;
    const std::optional<Gravity> gravity = GravityOf(state, intent);
    if (!gravity) {
        return;
    }
    const auto add = [&](Finding finding) {
        finding.Gravity = std::max(finding.Gravity, *gravity); // the less bad
        findings.push_back(std::move(finding));
    };
    LetterMeasures measures(platform.Fonts);
    if (std::optional<Finding> family = AboutFamily(current, platform, measures)) {
        add(std::move(*family));
    }
    const double points = base::NumericValue(state.GMUFontSize);
    if (points != OcrPoints) {
        const std::string meet = composition::HasOcrRegel(state)
                                     ? FieldsThatMeet(state, measures, {state.GMUFontName, points, false})
                                     : std::string();
        add(MakeFinding(FindingKind::FontSize, {ExactDecimal(points), meet}));
    }
}

} // namespace precheck
