#pragma once

#include <string>
#include <string_view>

namespace desktop::windows {

/// UTF-8 to the UTF-16 of the system's W-calls and back. Bytes or halves of a pair that are no valid text
/// become U+FFFD; neither ever fails.
std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view wide);

/// Between the bytes that the program speaks at the A-calls, which are Windows-1252, and those that these
/// calls take on this machine. On a machine of another code page each text goes through UTF-16, so that an
/// accented letter stays that letter; a character that the other side lacks becomes "?".
std::string ToMachine(std::string_view codePage1252);
std::string FromMachine(std::string_view machine);

/// Bytes of the program's A-calls straight to UTF-16, whatever the machine's code page.
std::wstring WideOf1252(std::string_view codePage1252);

/// True where the machine's code page is Windows-1252 as well and bytes pass unchanged.
bool MachineSpeaks1252();

} // namespace desktop::windows
