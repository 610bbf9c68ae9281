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

/// Those choices of a driver's option that put more on the paper than the document, move it or turn it: a
/// watermark, a cover, a shifted margin. None if the option is of another kind, or has no choice that leaves
/// the document alone. No document says anything about these.
std::vector<std::string> ImposingChoices(std::string_view option, const std::vector<std::string>& choices);

} // namespace desktop::cups
