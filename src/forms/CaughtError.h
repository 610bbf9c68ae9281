#pragma once

#include <string>

namespace base {
class RuntimeError;
}

namespace forms {

class Desktop;

/// How an error is told that no handler of the program knows.
std::string UnhandledErrorText(const base::RuntimeError& error);

/// To be called where an exception is being handled, at the edge to the toolkit: tells the user of it as an
/// error of the machine, and the program goes on. What cannot be told passes on.
void TellCaught(Desktop& desktop);

} // namespace forms
