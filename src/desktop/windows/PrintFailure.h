#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace desktop::windows {

/// The user has called a document off, in a dialog of the driver or in the queue. Never leaves this folder:
/// whatever the document still gets goes nowhere.
class PrintCalledOff {};

/// For a call that has just failed: ErrorPrinter with the text and the system's own reason.
base::RuntimeError PrinterError(const std::string& text);

/// For a call of a document that has just failed: PrintCalledOff if that is the reason, else PrinterError.
[[noreturn]] void ThrowPrintFailure(const std::string& text);

} // namespace desktop::windows
