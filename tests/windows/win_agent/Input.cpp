#include "Messages.h"
#include "Program.h"
#include "Wire.h"

namespace {

// Until the program has taken it from its queue, or it is too late.
bool Becomes(int key, bool down) {
    const auto holds = [&] { return (GetKeyState(key) < 0) == down; };
    const DWORD start = GetTickCount();
    while (!holds() && GetTickCount() - start < PatienceMilliseconds) {
        Sleep(1);
    }
    return holds();
}

// From the first key or button on the agent shares the program's keyboard: to part with it would let go of
// what is down.
void ShareKeyboard() {
    if (!program.SharesKeyboard) {
        program.SharesKeyboard = AttachThreadInput(GetCurrentThreadId(), program.Thread, TRUE) != FALSE;
    }
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

// Presses or lets go a key of the keyboard, and returns when the program has taken it from its queue.
std::string Key(std::istream& in) {
    int key = 0;
    bool down = false;
    in >> key >> down;
    ShareKeyboard();
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.dwFlags = down ? 0U : static_cast<DWORD>(KEYEVENTF_KEYUP);
    SendInput(1, &input, sizeof input);
    return Becomes(key, down) ? "ok" : "error";
}

// The mouse goes to a place of the screen, in dots.
std::string Pointer(std::istream& in) {
    int x = 0;
    int y = 0;
    in >> x >> y;
    return SetCursorPos(x, y) != FALSE ? "ok" : "error";
}

// Presses or lets go the mouse's left button where the pointer is, and returns when the program has taken it.
std::string Button(std::istream& in) {
    bool down = false;
    in >> down;
    ShareKeyboard();
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = static_cast<DWORD>(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
    SendInput(1, &input, sizeof input);
    return Becomes(VK_LBUTTON, down) ? "ok" : "error";
}
