#include <functional>
#include <new>
#include <string>
#include <thread>

#include "desktop/windows/Win32.h"

#include "base/RuntimeError.h"
#include "desktop/windows/RunGuarded.h"
#include "desktop/windows/WideText.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

constexpr int Patience = 12000; // looks for a box

BOOL CALLBACK AddText(HWND window, LPARAM list) {
    wchar_t text[200]{};
    ::GetWindowTextW(window, text, static_cast<int>(std::size(text)));
    if (::GetDlgCtrlID(window) != IDOK) {
        *reinterpret_cast<std::wstring*>(list) += text;
    }
    return TRUE;
}

BOOL CALLBACK FindBox(HWND window, LPARAM found) {
    wchar_t name[16]{};
    DWORD process = 0;
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    ::GetWindowThreadProcessId(window, &process);
    if (process == ::GetCurrentProcessId() && ::IsWindowVisible(window) != FALSE &&
        std::wstring(name) == L"#32770") {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

/// What the box says that comes, which is answered.
std::string AnswerBox() {
    HWND box = nullptr;
    for (int i = 0; i < Patience && box == nullptr; ++i) {
        ::EnumWindows(FindBox, reinterpret_cast<LPARAM>(&box));
        ::Sleep(5);
    }
    std::wstring text;
    ::EnumChildWindows(box, AddText, reinterpret_cast<LPARAM>(&text));
    ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    return FromWide(text);
}

void CheckFailure(const std::function<void()>& program, const std::string& text) {
    std::string said;
    std::thread user([&said] { said = AnswerBox(); });
    CheckEqual(RunGuarded(program), 1, "a program that fails at its start ends as failed");
    user.join();
    CheckEqual(said, text, "and tells why");
}

} // namespace

void CheckGuard() {
    bool run = false;
    CheckEqual(RunGuarded([&run] { run = true; }), 0, "a program that ends well");
    Check(run, "has run");
    CheckFailure([] { throw base::RuntimeError(base::ErrorPrinter, "De printer is er niet."); },
                 "Fout 482:\n\nDe printer is er niet.");
    CheckFailure([] { throw std::bad_alloc(); }, "Fout 7:\n\nOut of memory");
    CheckFailure([] { throw std::logic_error("iets anders"); }, "Fout 51:\n\niets anders");
}
