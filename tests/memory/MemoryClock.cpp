#include "memory/MemoryClock.h"

#include <chrono>
#include <ctime>

namespace memory {

machine::DateTime MemoryClock::Now() const {
    if (moment_) {
        return *moment_;
    }
    const auto now = std::chrono::system_clock::now();
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const std::tm* local = std::localtime(&seconds);
    return {local->tm_year + 1900,
            local->tm_mon + 1,
            local->tm_mday,
            local->tm_hour,
            local->tm_min,
            local->tm_sec,
            static_cast<int>(milliseconds)};
}

} // namespace memory
