#include "platform/forms/Session.h"

#include "platform/forms/Form.h"

namespace forms {

bool Session::TakesInput(const Form& form) const {
    return form.Visible() && (modal_.empty() || modal_.back() == &form);
}

void Session::Dispatch(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const platform::RuntimeError& error) {
        desktop_.UnhandledError(error);
    }
}

} // namespace forms
