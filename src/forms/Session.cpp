#include "forms/Session.h"

#include <algorithm>

#include "forms/Form.h"

namespace forms {

bool Session::TakesInput(const Form& form) const {
    return form.Visible() && (modal_.empty() || modal_.back() == &form);
}

bool Session::MayEnd() const {
    const auto last =
        std::find_if(forms_.rbegin(), forms_.rend(), [](const Form* form) { return form->Visible(); });
    return last == forms_.rend() || (*last)->MayClose();
}

void Session::End() {
    const std::vector<Form*> forms(forms_.rbegin(), forms_.rend());
    for (Form* form : forms) {
        // One that closes may take others with it.
        if (std::find(forms_.begin(), forms_.end(), form) != forms_.end() && form->Visible()) {
            form->SessionEnds();
        }
    }
}

void Session::Dispatch(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const base::RuntimeError& error) {
        desktop_.UnhandledError(error);
    }
}

} // namespace forms
