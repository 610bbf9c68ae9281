#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace state {

/// Where the handbook tells of a form, or of one page of it: the anchor that links give the heading.
struct HandbookSection {
    std::string_view Form;
    std::int16_t Page; ///< 0 for a form without pages
    std::string_view Anchor;
};

inline constexpr HandbookSection HandbookSections[] = {
    {"frmMain", 0, "bladzijde-1-uw-gegevens"},
    {"frmMain", 1, "bladzijde-2-de-procedure"},
    {"frmMain", 2, "bladzijde-3-de-omvang"},
    {"frmMain", 3, "bladzijde-4-afdrukken"},
    {"frmVoorcontrole", 0, "de-voorcontrole"},
    {"frmPrintManager", 0, "afdrukken-met-afdrukbeheer"},
    {"frmPrintManagerSetup", 0, "printer-initialisatie"},
    {"frmPrintPreview", 0, "het-afdrukvoorbeeld"},
};

/// The anchor for a form that shows this page; none if the handbook does not tell of it.
std::string HandbookAnchor(std::string_view form, std::int16_t page = 0);

} // namespace state
