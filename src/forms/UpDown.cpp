#include "forms/UpDown.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/Numbers.h"
#include "forms/Form.h"

namespace forms {

UpDown* UpDown::Of(const TextBox& box) {
    for (UpDown* arrows : box.Owner().ControlsOf<UpDown>()) {
        if (&arrows->Buddy() == &box) {
            return arrows;
        }
    }
    return nullptr;
}

void UpDown::UserStep(int direction) {
    if (!TakesMouse()) {
        return;
    }
    const double present =
        std::clamp(std::trunc(base::NumericValue(buddy_.Text())), double(min_) - 1.0, double(max_) + 1.0);
    const int next = std::clamp(static_cast<int>(present) + direction, min_, max_);
    buddy_.SetText(std::to_string(next));
    buddy_.SelectAll();
}

} // namespace forms
