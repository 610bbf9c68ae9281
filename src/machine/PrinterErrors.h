#pragma once

#include "base/RuntimeError.h"

/// What every desktop tells of a printer that refuses, in one wording.
namespace machine {

/// ErrorPrinter; a desktop may set the system's reason below it.
inline constexpr const char* PrinterNotReachableText = "De printer is niet bereikbaar.";

inline base::RuntimeError PrinterNotReachable() {
    return {base::ErrorPrinter, PrinterNotReachableText};
}
/// A place in the list of printers that is not there.
inline base::RuntimeError NoSuchPrinter() {
    return {base::ErrorSubscriptOutOfRange, "Deze printer bestaat niet."};
}
inline base::RuntimeError InvalidOrientation() {
    return {base::ErrorInvalidPropertyValue, "De afdrukrichting is ongeldig."};
}
inline base::RuntimeError UnknownPaper() {
    return {base::ErrorInvalidPropertyValue, "De printer kent dit papierformaat niet."};
}
inline base::RuntimeError UnknownBin() {
    return {base::ErrorInvalidPropertyValue, "De printer kent deze papierlade niet."};
}

} // namespace machine
