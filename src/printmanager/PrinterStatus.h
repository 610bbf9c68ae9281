#pragma once

#include <cstdint>
#include <string>

namespace printmanager {

/// Text for the spooler's status of a printer: "Ready" for 0 or a negative number. Any other status leaves
/// the text empty.
void PrinterStatusText(std::string& text, std::int32_t status);

/// The names of the status bits that are set, each on a line of its own.
std::string StatusNames(std::int32_t status);

} // namespace printmanager
