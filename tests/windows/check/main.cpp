// Checks what the program stands on in Windows: registry, locale, spooler, printer and pictures.
//
//     win_platform_check GROUP ...
//
// with the groups below.
//
// One line for each expectation on standard output. The exit status is the number of those that did not hold.

#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>

#include "windows/check/Check.h"

namespace {

int failures = 0;

struct Group {
    const char* Name;
    void (*Run)();
};

constexpr Group Groups[] = {
    {"texts", CheckTexts},     {"registry", CheckRegistry}, {"polish", CheckPolish},
    {"locale", CheckLocale},   {"spooler", CheckSpooler},   {"printer", CheckPrinter},
    {"bitmaps", CheckBitmaps}, {"samples", PrintSamples},   {"side", PrintOnItsSide},
    {"fonts", CheckFonts},     {"queues", CheckQueues},     {"guard", CheckGuard},
};

void RunGroup(const char* name) {
    for (const Group& group : Groups) {
        if (std::strcmp(group.Name, name) == 0) {
            group.Run();
            return;
        }
    }
    Check(false, std::string("there is a group ") + name);
}

} // namespace

void Check(bool holds, const std::string& what) {
    std::printf("%s %s\n", holds ? "ok" : "FAILED", what.c_str());
    std::fflush(stdout);
    failures += holds ? 0 : 1;
}

void CheckEqual(const std::string& value, const std::string& expected, const std::string& what) {
    const bool holds = value == expected;
    Check(holds, holds ? what : what + ": \"" + value + "\" instead of \"" + expected + "\"");
}

void CheckEqual(long long value, long long expected, const std::string& what) {
    CheckEqual(std::to_string(value), std::to_string(expected), what);
}

void CheckNear(double value, double expected, double allowed, const std::string& what) {
    const bool holds = std::abs(value - expected) <= allowed;
    Check(holds,
          holds ? what : what + ": " + std::to_string(value) + " instead of " + std::to_string(expected));
}

int Failures() {
    return failures;
}

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        try {
            RunGroup(arguments[i]);
        } catch (const std::exception& error) {
            Check(false, std::string(arguments[i]) + " ends without \"" + error.what() + "\"");
        }
    }
    return Failures();
}
