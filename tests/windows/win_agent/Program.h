#pragma once

#include <istream>
#include <string>

#include <windows.h>

/// The program that is worked.
struct Program {
    HANDLE Process = nullptr;
    DWORD Id = 0;
    DWORD Thread = 0;
    /// The agent is attached to its keyboard.
    bool SharesKeyboard = false;
};
extern Program program;

std::string StartProgram(std::istream& in);
std::string OpenShortcut(std::istream& in);
std::string State();
std::string Terminate(std::istream& in);
