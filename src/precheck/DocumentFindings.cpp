#include "precheck/DocumentFindings.h"

#include <utility>

#include "composition/DocumentRun.h"
#include "precheck/ComposedDocument.h"
#include "precheck/CurrentSettings.h"
#include "precheck/Lengths.h"
#include "precheck/Precheck.h"
#include "precheck/Stationery.h"
#include "precheck/Wording.h"

namespace precheck {

DocumentFindings::DocumentFindings(const state::AppState& state, const Intent& intent,
                                   const machine::SheetArea& sheet, const DrawnDocument& document,
                                   Findings& findings)
    : State(state), Sheet(sheet), Document(document), Forms(FormsOf(state)),
      IsForms(intent.Document == composition::DocumentTestForms), isWhole_(IsComposedWhole(intent)),
      findings_(findings) {}

std::string DocumentFindings::FieldOn(const InkedText& text) const {
    std::string phrase(NameOf(text.Field));
    if (text.Place != 0) {
        phrase.append(" (").append(PlaceName(text.Place)).append(")");
    }
    return phrase;
}

std::string DocumentFindings::OnHowMany(const TextGroup& group) const {
    const std::size_t count = IsForms ? group.Forms.size() : group.Texts.size();
    const bool isSeveralColumns = !IsForms && group.Wrong.size() > 1;
    if (count == 1 || !isWhole_ || isSeveralColumns) {
        return {};
    }
    return (IsForms ? ", op " : ", in ") + std::to_string(count) + (IsForms ? " formulieren" : " regels");
}

Finding& DocumentFindings::Add(FindingKind kind, std::initializer_list<std::string_view> values) {
    findings_.push_back(MakeFinding(kind, values));
    if (!IsForms) {
        findings_.back().Gravity = Gravity::LookAt;
    }
    return findings_.back();
}

void DocumentFindings::AddGroup(FindingKind kind, const TextGroup& group,
                                std::initializer_list<std::string_view> values) {
    Finding& finding = Add(kind, values);
    finding.Sketch = SketchOf(group);
    for (const WrongText& wrong : group.Wrong) {
        std::string name = FieldOn(TextAt(wrong.Text));
        if (wrong.Other != wrong.One) {
            name += " en " + FieldOn(TextAt(wrong.OtherText));
        }
        finding.Texts.push_back({std::move(name), ToMillimetres(wrong.Twips)});
    }
}

SheetSketch DocumentFindings::SketchOf(const TextGroup& group) const {
    const int page = TextAt(group.Worst().Text).Page;
    SheetSketch sketch;
    sketch.Sheet = Sheet;
    if (IsForms && IsKnownType(State)) {
        sketch.Forms = Forms;
    }
    for (const InkedText& text : Document.Texts) {
        if (text.Page == page) {
            sketch.Texts.push_back(text.Ink);
        }
    }
    for (const std::size_t wrong : group.Texts) {
        if (TextAt(wrong).Page == page) {
            sketch.Wrong.push_back(TextAt(wrong).Ink);
        }
    }
    return sketch;
}

} // namespace precheck
