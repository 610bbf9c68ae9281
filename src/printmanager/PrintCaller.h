#pragma once

#include <cstdint>

namespace printmanager {

/// What a form offers that has documents to print: the print manager finds it by its name among the open
/// forms and asks it for this.
class PrintCaller {
  public:
    virtual ~PrintCaller() = default;

    /// Composes one document. `iMethod` is its number in AppState::DocumentTitle, from 1; the copies and
    /// whether it is a preview are the user's choice. Returns when the document has ended and, of a preview,
    /// the user has left it.
    virtual void Afdrukken(std::int16_t iMethod, std::int16_t num_copies, bool blnPrintPreview) = 0;
};

} // namespace printmanager
