#pragma once

#include <string>
#include <string_view>

namespace payment {

/// The payment reference (betalingskenmerk) of a test form, 15 digits without its check digit: "1", the
/// document number in 8, the kind in 2, the month in 2 and the year in 2 digits. Each text is read as a
/// number that must fit 32 bits (RuntimeError with ErrorOverflow); only the last two characters of `jaar` are
/// used. A document number of 0 or less makes the kind 0, and itself stays.
std::string MaakBetalingskenmerk(std::string_view volgnummer, std::string_view soort, std::string_view maand,
                                 std::string_view jaar);

} // namespace payment
