#include "forms/ProgressBar.h"

#include "base/RuntimeError.h"

namespace forms {

void ProgressBar::SetValue(int value) {
    if (value < Min() || value > Max()) {
        throw base::InvalidPropertyValue();
    }
    value_ = value;
    Changed(Aspect::Value);
}

} // namespace forms
