#pragma once

#include <functional>
#include <vector>

#include "forms/Desktop.h"

namespace forms {

class Form;

/// The forms of one running program: which are loaded, which is modal.
class Session {
  public:
    explicit Session(forms::Desktop& desktop) : desktop_(desktop) {}

    forms::Desktop& Desktop() const { return desktop_; }

    /// The loaded forms, in order of loading.
    const std::vector<Form*>& OpenForms() const { return forms_; }

    /// The form that alone takes input, or nullptr.
    Form* ModalForm() const { return modal_.empty() ? nullptr : modal_.back(); }

    /// True if the user can reach the form: it is shown and no other is modal above it.
    bool TakesInput(const Form& form) const;

    /// False while the form that was shown last would refuse to close.
    bool MayEnd() const;
    /// The user logs off: all forms that are shown close, the last one first.
    void End();

    /// Runs a handler. A failure that it does not trap ends it and goes to the desktop.
    void Dispatch(const std::function<void()>& handler);

  private:
    friend class Form;

    forms::Desktop& desktop_;
    std::vector<Form*> forms_;
    std::vector<Form*> modal_;
};

} // namespace forms
