#pragma once

#include <string>

#include "machine/Platform.h"

namespace printmanager {

/// Appends a line with date and time to printrap.log in the process's current directory, in Windows-1252 on
/// every machine. The file is closed again at once, so a line survives a crash of the driver in the next
/// step; then the message loop gets a turn. A line that cannot be written is lost without a word.
void WriteLogLine(machine::Platform& platform, const std::string& message);

} // namespace printmanager
