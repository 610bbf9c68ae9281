#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "machine/PrinterCondition.h"
#include "precheck/DrawnDocument.h"
#include "precheck/Finding.h"
#include "precheck/FindingKinds.h"
#include "precheck/TextGroups.h"

namespace machine {
class Locale;
}
namespace state {
struct AppState;
}

namespace precheck {

struct Intent;

/// A document that has been drawn on a sheet, and what is found of it.
class DocumentFindings {
  public:
    DocumentFindings(const state::AppState& state, const Intent& intent, const machine::SheetArea& sheet,
                     const DrawnDocument& document, Findings& findings);

    const state::AppState& State;
    const machine::SheetArea& Sheet;
    const DrawnDocument& Document;
    const std::vector<SheetPlace> Forms; ///< of the stationery
    const bool IsForms;                  ///< the test forms, and not a list

    const InkedText& TextAt(std::size_t number) const { return Document.Texts[number]; }
    state::CalibratedBlock BlockOf(const InkedText& text) const { return Document.Fields[text.Field].Block; }
    std::string_view NameOf(std::size_t field) const { return Document.Fields[field].Name; }

    /// "het bedrag in centen (onderste formulier)"
    std::string FieldOn(const InkedText& text) const;

    /// ", op 84 formulieren", where it is more than one and all of the batch has been composed. In a list,
    /// what is wrong in several columns is not told by its lines.
    std::string OnHowMany(const TextGroup& group) const;

    /// Of a list all is but worth a look: the institute judges the forms.
    Finding& Add(FindingKind kind, std::initializer_list<std::string_view> values);

    /// A finding about texts at their places, with the page on which they stand worst.
    void AddGroup(FindingKind kind, const TextGroup& group, std::initializer_list<std::string_view> values);

  private:
    SheetSketch SketchOf(const TextGroup& group) const;

    bool isWhole_; ///< and not the first forms alone
    Findings& findings_;
};

/// Texts off the sheet or off their form.
void CheckPlaces(DocumentFindings& findings, machine::Locale& locale);

/// Texts over each other.
void CheckOverlaps(DocumentFindings& findings);

} // namespace precheck
