#include "forms/ScrollBar.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "forms/Form.h"

namespace forms {

void ScrollBar::SetValue(int value) {
    if (value < min_ || value > max_) {
        throw base::InvalidPropertyValue();
    }
    if (value == value_) {
        return;
    }
    value_ = value;
    Changed(Aspect::Value);
    if (OnChange) {
        Owner().Dispatch(OnChange);
    }
}

bool ScrollBar::UserScroll(int value) {
    if (!TakesMouse()) {
        return false;
    }
    SetValue(std::clamp(value, min_, max_));
    return true;
}

} // namespace forms
