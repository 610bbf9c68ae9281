#pragma once

#include <string>
#include <vector>

namespace generate {

/// The rows of the two tables, in table order.
std::vector<std::string> AccountRows();
std::vector<std::string> PersonRows();

} // namespace generate
