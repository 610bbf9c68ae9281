#pragma once

#include <cstdint>
#include <string_view>

namespace desktop::cups {

/// PRINTER_STATUS bits of a queue by its printer-state (3 idle, 4 processing, 5 stopped), its
/// printer-state-reasons (keywords, parted by commas) and printer-is-accepting-jobs.
std::uint32_t StatusBits(std::string_view state, std::string_view reasons, std::string_view accepting);

} // namespace desktop::cups
