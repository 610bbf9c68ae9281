#include "printmanager/PrintLog.h"

#include <cstdio>
#include <memory>

#include "base/Resume.h"
#include "base/Text.h"
#include "forms/Desktop.h"
#include "machine/Clock.h"
#include "machine/Locale.h"

namespace printmanager {

namespace {

constexpr const char* LogFile = "printrap.log";

/// "05-jan-2026 09:03:07".
std::string TimeStamp(machine::Platform& platform) {
    const machine::DateTime now = platform.Clock.Now();
    char day[16];
    char rest[64];
    std::snprintf(day, sizeof day, "%02d-", now.Day);
    std::snprintf(rest, sizeof rest, "-%04d %02d:%02d:%02d", now.Year, now.Hour, now.Minute, now.Second);
    return day + platform.Locale.ShortMonthName(now.Month) + rest;
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Opened and closed for each line, so that it survives a crash of the driver in the next step.
void Append(const std::string& line) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(LogFile, "ab"));
    if (file != nullptr) {
        std::fwrite(line.data(), 1, line.size(), file.get());
    }
}

} // namespace

void WriteLogLine(machine::Platform& platform, const std::string& message) {
    base::Resume([&] { Append(base::text::ToCodePage(TimeStamp(platform) + " : " + message) + "\r\n"); });
    base::Resume([&] { platform.Desktop.Yield(); });
}

} // namespace printmanager
