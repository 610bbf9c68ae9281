#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desktop::cups {

/// True for an option, of the server, its filters or a PPD, that would change how the pages of a document
/// that is complete come out: turned, shrunk, on both sides, several on a sheet, in another order, left out
/// or among others. In any letter case, as the server reads names.
bool ChangesPages(std::string_view option);

/// The choice of a PPD's option that leaves the pages as they are drawn; empty if the option does not change
/// them, or has no such choice. Makers have names of their own for printing on both sides, which their
/// choices tell.
std::string PlainChoice(std::string_view option, const std::vector<std::string>& choices);

} // namespace desktop::cups
