#pragma once

#include <string>

namespace desktop::cups {

/// With small letters for "A" to "Z": the print server takes no other letter for the same in another case.
std::string Lower(std::string text);

} // namespace desktop::cups
