#pragma once

#include <cstdint>
#include <string_view>

namespace wizard {

/// Lets a typed character pass or not, by the kind of text that a box takes. `toets` is the character's code
/// in the machine's code page, `soort` the kind in any case: "telefoon", "numeriek", "datum" (both also with
/// "/volledig"), "numteken" or "alpha"; any other kind passes all. The result is the code that the box is to
/// receive, 0 for none.
std::int16_t ToetsFilter(std::int16_t& toets, std::string_view soort);

} // namespace wizard
