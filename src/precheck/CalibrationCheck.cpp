#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "base/Text.h"
#include "composition/FormPlace.h"
#include "composition/PrintOCRRegel.h"
#include "composition/SurfaceRules.h"
#include "machine/Locale.h"
#include "machine/Platform.h"
#include "precheck/Checks.h"
#include "precheck/CurrentSettings.h"
#include "precheck/FindingKinds.h"
#include "precheck/Wording.h"
#include "state/CalibrationBlocks.h"
#include "state/ContractTexts.h"

namespace precheck {

namespace {

using state::CalibratedBlock;

constexpr std::size_t PlaceUnderLetterIndex = composition::PlaceUnderLetter - 1;

/// One of the 56 values.
struct Value {
    CalibratedBlock Block;
    std::string_view Stem;
    std::string_view Title;
    std::string_view Direction;
    std::size_t Place;
    const std::string& Text;

    std::string Key() const { return state::CalibrationKey(Stem, Direction, Place); }
    std::string KeyWithText() const { return Key() + " = " + Quoted(Text); }
};

template <class Each>
void ForEachValue(const state::AppState& state, Each each) {
    for (const auto& block : state::CalibrationBlocks(state)) {
        for (std::size_t place = 0; place < state::CalibratedPlaces; ++place) {
            each(Value{block.Block, block.Stem, block.Title, state::DirectionX, place, block.X[place]});
            each(Value{block.Block, block.Stem, block.Title, state::DirectionY, place, block.Y[place]});
        }
    }
}

/// Whether anything on the stationery in force is moved by the value. Those of other places and of blocks
/// that are not printed wait for another stationery or contract: they are worth a look and spoil nothing.
bool Counts(const state::AppState& state, const Value& value) {
    const bool underLetter = state.AcceptgiroType == state::TypeUnderLetter;
    if ((value.Place == PlaceUnderLetterIndex) != underLetter) {
        return false;
    }
    switch (value.Block) {
    case CalibratedBlock::OcrLine:
    case CalibratedBlock::ReferenceOnStub:
    case CalibratedBlock::ReferenceOnAccept:
        return composition::HasOcrRegel(state);
    case CalibratedBlock::Form:
        return IsKnownType(state) || composition::HasOcrRegel(state);
    case CalibratedBlock::Payer:
        return IsKnownType(state);
    case CalibratedBlock::CreditorOnStub:
        return PrintsCreditor(state);
    case CalibratedBlock::CreditorOnAccept:
        // Its Y moves nothing: the X counts for both.
        return PrintsCreditor(state) && value.Direction == state::DirectionX;
    }
    return false;
}

Finding AboutValue(FindingKind kind, const state::AppState& state, const Value& value,
                   std::string_view mend) {
    Finding finding =
        MakeFinding(kind, {value.Key(), value.Title, PlaceName(static_cast<std::int16_t>(value.Place + 1)),
                           Quoted(value.Text), mend});
    if (!Counts(state, value)) {
        finding.Gravity = Gravity::LookAt;
    }
    return finding;
}

/// The same text with a comma for its point, if that makes it a number.
std::string MendOf(const std::string& text, char decimalMark) {
    std::string mended(base::text::Trim(text));
    std::replace(mended.begin(), mended.end(), decimalMark == ',' ? '.' : ',', decimalMark);
    if (composition::PlainDecimal(mended, decimalMark)) {
        return "Schrijf het in Tarvik als " + Quoted(mended) + '.';
    }
    return "Geef in Tarvik een aantal millimeters in, met een komma en zonder iets erachter, of maak het vak "
           "leeg.";
}

} // namespace

void CheckCalibration(const CurrentSettings& current, machine::Platform& platform, Findings& findings) {
    const state::AppState& state = current.State;
    const char mark = platform.Locale.DecimalMark();
    int withComma = 0;
    bool commaCounts = false;
    std::string firstWithComma;
    ForEachValue(state, [&](const Value& value) {
        if (base::text::Trim(value.Text).empty()) {
            return;
        }
        if (const std::optional<double> number = composition::PlainDecimal(value.Text, mark)) {
            const bool moves = composition::Kalibreer(state, platform.Locale, 0, value.Text) != 0;
            if (!moves && std::abs(*number) >= 1) {
                findings.push_back(AboutValue(FindingKind::CalibrationTooLarge, state, value, {}));
            }
        } else if (mark != ',' && composition::PlainDecimal(value.Text, ',')) {
            ++withComma;
            commaCounts = commaCounts || Counts(state, value);
            if (firstWithComma.empty()) {
                firstWithComma = value.KeyWithText();
            }
        } else {
            findings.push_back(
                AboutValue(FindingKind::CalibrationNoNumber, state, value, MendOf(value.Text, mark)));
        }
    });
    if (withComma > 0) {
        const std::string count = withComma == 1
                                      ? "Deze waarde verschuift"
                                      : "Alle " + std::to_string(withComma) + " waarden verschuiven";
        Finding finding = MakeFinding(FindingKind::LocaleNoComma, {firstWithComma, count});
        finding.Gravity = commaCounts ? Gravity::Spoils : Gravity::LookAt;
        findings.push_back(std::move(finding));
    }
}

} // namespace precheck
