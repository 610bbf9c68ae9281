#include "Program.h"

#include <objbase.h>
#include <shellapi.h>
#include <tlhelp32.h>

#include "Wire.h"

Program program;

namespace {

// Id of the program that this one has started last and that runs; 0 if there is none. Opening a shortcut does
// not tell it.
DWORD StartedProcess() {
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 process{};
    process.dwSize = sizeof process;
    DWORD found = 0;
    for (BOOL more = Process32First(list, &process); more != FALSE; more = Process32Next(list, &process)) {
        if (process.th32ParentProcessID == GetCurrentProcessId() && process.th32ProcessID != program.Id) {
            found = process.th32ProcessID;
        }
    }
    CloseHandle(list);
    return found;
}

// The first thread of a process, which in a program with windows is the one that has them; 0 if it has none.
DWORD FirstThread(DWORD process) {
    const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    DWORD found = 0;
    for (BOOL more = Thread32First(list, &thread); more != FALSE && found == 0;
         more = Thread32Next(list, &thread)) {
        found = thread.th32OwnerProcessID == process ? thread.th32ThreadID : 0;
    }
    CloseHandle(list);
    return found;
}

} // namespace

std::string StartProgram(std::istream& in) {
    std::string hex;
    in >> hex;
    std::wstring command = Text(hex);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == FALSE) {
        return "error " + std::to_string(GetLastError());
    }
    CloseHandle(process.hThread);
    program = {process.hProcess, process.dwProcessId, process.dwThreadId, false};
    return "ok";
}

// Opens a shortcut, as a double click does.
std::string OpenShortcut(std::istream& in) {
    std::string hex;
    in >> hex;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    SHELLEXECUTEINFOW open{};
    const std::wstring path = Text(hex);
    open.cbSize = sizeof open;
    open.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    open.lpFile = path.c_str();
    open.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&open) == FALSE) {
        return "error " + std::to_string(GetLastError());
    }
    const DWORD id = StartedProcess();
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
    if (process == nullptr) {
        return "error no program was started";
    }
    program = {process, id, FirstThread(id), false};
    return "ok";
}

// "running", or the exit code.
std::string State() {
    DWORD code = 0;
    GetExitCodeProcess(program.Process, &code);
    return code == STILL_ACTIVE ? "running" : std::to_string(code);
}

std::string Terminate(std::istream&) {
    TerminateProcess(program.Process, 9);
    WaitForSingleObject(program.Process, PatienceMilliseconds);
    return "ok";
}
