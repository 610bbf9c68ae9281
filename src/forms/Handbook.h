#pragma once

#include <string>

namespace forms {

class Desktop;

/// The handbook itself, in its folder.
inline constexpr const char* HandbookFile = "index.html";

/// The file that leads to a section of the handbook, in its folder. A page of its own, for what opens files
/// drops a "#section" behind a name on many machines.
std::string HandbookPage(const std::string& section);

/// Tells the user that the handbook, which is this file, could not be opened.
void TellHandbookNotOpened(Desktop& desktop, const std::string& file, const std::string& title);

} // namespace forms
