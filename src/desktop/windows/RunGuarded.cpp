#include "desktop/windows/RunGuarded.h"

#include "desktop/windows/WinDesktop.h"

#include <exception>

namespace platform::windows {

int RunGuarded(const std::function<void()>& program) noexcept {
    try {
        program();
        return 0;
    } catch (const std::exception&) {
        WinDesktop().TellCaught();
        return 1;
    }
}

} // namespace platform::windows
