#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "precheck/Finding.h"

namespace precheck {

/// "2 punten vragen uw aandacht", in the singular for one; for none that nothing was found.
std::string CountText(std::size_t findings);

/// What a gravity is called before a finding.
std::string_view GravityText(Gravity gravity);

/// The findings for a reader: a heading, and a paragraph for each with what is wrong and how it is mended.
/// Lines end in "\n", and so does the text.
std::string ReportText(const Findings& findings);

/// The same for machines: one JSON object in UTF-8 with the list "findings", each with "code", "gravity"
/// ("spoils" or "look-at"), "subject", "wrong" and "mend"; where texts stand wrong "texts" as well, each with
/// "name" and "mm".
std::string ReportJson(const Findings& findings);

/// The gravity of the worst as an exit status: 0 for no finding, 1 for one to look at, 2 for one that spoils
/// the batch.
int ReportStatus(const Findings& findings);

} // namespace precheck
