#include "desktop/windows/WinClock.h"

#include "desktop/windows/Win32.h"

namespace desktop::windows {

machine::DateTime WinClock::Now() const {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return {.Year = now.wYear,
            .Month = now.wMonth,
            .Day = now.wDay,
            .Hour = now.wHour,
            .Minute = now.wMinute,
            .Second = now.wSecond,
            .Millisecond = now.wMilliseconds};
}

} // namespace desktop::windows
