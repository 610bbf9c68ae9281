#include "printmanager/PrintLog.h"

#include <cstdio>
#include <fstream>

#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Locale.h"
#include "platform/Resume.h"
#include "platform/Text.h"

namespace printmanager {

namespace {

constexpr const char* LogFile = "printrap.log";

/// "05-jan-2026 09:03:07".
std::string TimeStamp(platform::Platform& platform) {
    const platform::DateTime now = platform.Clock.Now();
    char day[16];
    char rest[64];
    std::snprintf(day, sizeof day, "%02d-", now.Day);
    std::snprintf(rest, sizeof rest, "-%04d %02d:%02d:%02d", now.Year, now.Hour, now.Minute, now.Second);
    return day + platform.Locale.ShortMonthName(now.Month) + rest;
}

} // namespace

void WriteLogLine(platform::Platform& platform, const std::string& message) {
    {
        std::ofstream file(LogFile, std::ios::binary | std::ios::app);
        platform::Resume(
            [&] { file << platform::text::ToCodePage(TimeStamp(platform) + " : " + message) << "\r\n"; });
    }
    platform.Desktop.Yield();
}

} // namespace printmanager
