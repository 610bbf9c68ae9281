#include "Messages.h"
#include "Program.h"
#include "Wire.h"

namespace {

bool HeldDown(int key) {
    return GetKeyState(key) < 0;
}

} // namespace

// The control that has the keyboard.
std::string Focus(std::istream&) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(program.Thread, &info);
    return std::to_string(Number(info.hwndFocus));
}

std::string Activate(std::istream& in) {
    return std::to_string(SetForegroundWindow(Window(in)));
}

// Presses or lets go a key of the keyboard, and returns when the program has taken it from its queue. From
// the first key on the agent shares the program's keyboard: to part with it would let go of the keys that are
// down.
std::string Key(std::istream& in) {
    int key = 0;
    bool down = false;
    in >> key >> down;
    if (!program.SharesKeyboard) {
        program.SharesKeyboard = AttachThreadInput(GetCurrentThreadId(), program.Thread, TRUE) != FALSE;
    }
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.dwFlags = down ? 0U : static_cast<DWORD>(KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
    const DWORD start = GetTickCount();
    while (HeldDown(key) != down && GetTickCount() - start < PatienceMilliseconds) {
        Sleep(1);
    }
    const bool taken = HeldDown(key) == down;
    return taken ? "ok" : "error";
}
