#include "desktop/windows/Utf8Console.h"

#include "desktop/windows/Win32.h"

namespace desktop::windows {

Utf8Console::Utf8Console() : before_(GetConsoleOutputCP()) {
    SetConsoleOutputCP(CP_UTF8);
}

Utf8Console::~Utf8Console() {
    if (before_ != 0) { // there is no console
        SetConsoleOutputCP(before_);
    }
}

} // namespace desktop::windows
