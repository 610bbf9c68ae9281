#include "Program.h"

#include "Wire.h"

Program program;

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

// "running", or the exit code.
std::string State(std::istream&) {
    DWORD code = 0;
    GetExitCodeProcess(program.Process, &code);
    return code == STILL_ACTIVE ? "running" : std::to_string(code);
}

std::string Terminate(std::istream&) {
    TerminateProcess(program.Process, 9);
    WaitForSingleObject(program.Process, PatienceMilliseconds);
    return "ok";
}
