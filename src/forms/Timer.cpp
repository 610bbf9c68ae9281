#include "forms/Timer.h"

#include "forms/Form.h"

namespace forms {

void Timer::Tick() {
    if (Enabled() && OnTimer && !Owner().Leaving()) {
        Owner().Dispatch(OnTimer);
    }
}

} // namespace forms
