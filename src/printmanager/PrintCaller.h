#pragma once

#include <cstdint>

#include "precheck/Finding.h"

namespace printmanager {

/// What is chosen in the print manager, and not yet printed.
struct Choice {
    std::int16_t iMethod = 0; ///< number of the document in AppState::DocumentTitle, from 1
    std::int16_t num_copies = 1;
    int Printer = -1;             ///< position in the collection; -1 for none
    std::int16_t Paper = 0;       ///< the platform's paper code; 0 where no list of papers is loaded
    std::int16_t Orientation = 1; ///< machine::Portrait or Landscape, 0 where nothing is chosen yet
};

/// What a form offers that has documents to print: the print manager finds it by its name among the open
/// forms and asks it for this.
class PrintCaller {
  public:
    virtual ~PrintCaller() = default;

    /// Composes one document. `iMethod` is its number in AppState::DocumentTitle, from 1; the copies and
    /// whether it is a preview are the user's choice. Returns when the document has ended and, of a preview,
    /// the user has left it.
    virtual void Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) = 0;

    /// What would spoil the chosen document on the chosen printer and sheet, worst first. It prints nothing
    /// and changes nothing.
    virtual precheck::Findings Nakijken(const Choice& choice) = 0;
};

} // namespace printmanager
