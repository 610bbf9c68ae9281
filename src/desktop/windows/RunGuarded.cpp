#include "desktop/windows/RunGuarded.h"

#include <exception>

#include "desktop/windows/WinDesktop.h"

namespace desktop::windows {

int RunGuarded(const std::function<void()>& program) noexcept {
    try {
        program();
        return 0;
    } catch (const std::exception&) {
        WinDesktop().TellCaught();
        return 1;
    }
}

} // namespace desktop::windows
