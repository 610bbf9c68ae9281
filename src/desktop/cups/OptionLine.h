#pragma once

#include <map>
#include <string>

namespace desktop::cups {

/// A queue's line ("Dest name options" or "Default name options") in the text of an lpoptions file; the last
/// one where there are several, empty if there is none. An instance ("name/instance") is not the queue.
std::string LineOf(const std::string& text, const std::string& queue);

/// The options of a line.
std::map<std::string, std::string> OptionsOf(const std::string& line);

/// The queue whose line in the text of an lpoptions file says that it is the default, without an instance; an
/// empty text if none does.
std::string PreferredIn(const std::string& text);

} // namespace desktop::cups
