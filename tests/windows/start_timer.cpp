// Measures how long programs take from their start to the moment when their window is on show and they wait
// for the user.
//
// start_timer TIMES CLASS PROGRAM [CLASS PROGRAM ...]
//
// Starts the programs in turn, so that whatever else the machine does meets them alike, and prints a line
// with the milliseconds of each for each round. CLASS is that of the program's window.
#include <cstdio>
#include <cstdlib>
#include <string>

#include <windows.h>

namespace {

constexpr DWORD PatienceMilliseconds = 60000;

struct Search {
    DWORD Process;
    const char* Class;
    HWND Found;
};

BOOL CALLBACK Match(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    char name[256] = "";
    GetWindowThreadProcessId(window, &process);
    GetClassNameA(window, name, sizeof name);
    if (process == search.Process && IsWindowVisible(window) && std::string(name) == search.Class) {
        search.Found = window;
        return FALSE;
    }
    return TRUE;
}

long long Ticks() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

double MillisecondsSince(long long start) {
    LARGE_INTEGER perSecond;
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(Ticks() - start) * 1000 / static_cast<double>(perSecond.QuadPart);
}

/// Below 0 if the program does not start or shows no such window.
double TimeStart(const char* windowClass, const char* program) {
    std::string command = '"' + std::string(program) + '"';
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const long long start = Ticks();
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return -1;
    }
    Search search{process.dwProcessId, windowClass, nullptr};
    while (search.Found == nullptr && MillisecondsSince(start) < PatienceMilliseconds) {
        Sleep(1);
        EnumWindows(Match, reinterpret_cast<LPARAM>(&search));
    }
    WaitForInputIdle(process.hProcess, PatienceMilliseconds);
    const double time = MillisecondsSince(start);
    PostMessageA(search.Found, WM_CLOSE, 0, 0);
    if (search.Found == nullptr ||
        WaitForSingleObject(process.hProcess, PatienceMilliseconds) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return search.Found == nullptr ? -1 : time;
}

} // namespace

int main(int argc, char** argv) {
    const int times = argc < 4 ? 0 : static_cast<int>(std::strtol(argv[1], nullptr, 10));
    for (int i = 0; i < times; ++i) {
        for (int program = 3; program < argc; program += 2) {
            std::printf("%.2f ", TimeStart(argv[program - 1], argv[program]));
        }
        std::printf("\n");
    }
    return times > 0 ? 0 : 2;
}
