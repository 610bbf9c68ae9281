#include "WindowList.h"

#include <sstream>
#include <vector>

#include "Program.h"
#include "Wire.h"

namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[256];
    const int length = GetClassNameW(window, name, 256);
    return {name, static_cast<std::size_t>(length)};
}

std::wstring TextOf(HWND window) {
    std::vector<wchar_t> text(LongestText);
    DWORD_PTR length = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                        PatienceMilliseconds, &length);
    return {text.data(), static_cast<std::size_t>(length)};
}

BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == program.Id) {
        std::ostringstream& out = *reinterpret_cast<std::ostringstream*>(list);
        out << Number(window) << ' ' << IsWindowVisible(window) << ' ' << IsWindowEnabled(window) << ' '
            << Hex(ClassOf(window)) << ' ';
    }
    return TRUE;
}

struct Wanted {
    int Id;
    HWND Found;
};

BOOL CALLBACK FindById(HWND window, LPARAM wanted) {
    Wanted& search = *reinterpret_cast<Wanted*>(wanted);
    if (GetDlgCtrlID(window) == search.Id) {
        search.Found = window;
        return FALSE;
    }
    return TRUE;
}

// The text of a dialog's icon and words: all texts of its children that are not empty.
BOOL CALLBACK AddText(HWND window, LPARAM list) {
    const std::wstring text = TextOf(window);
    *reinterpret_cast<std::ostringstream*>(list) << Hex(ClassOf(window)) << ' ' << GetDlgCtrlID(window) << ' '
                                                 << Number(window) << ' ' << Hex(text) << ' ';
    return TRUE;
}

} // namespace

// Handle, visible, enabled and class of each top window, the front one first.
std::string Windows(std::istream&) {
    std::ostringstream out;
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&out));
    return out.str();
}

// The control with this number, however deep it stands; 0 if there is none.
std::string Child(std::istream& in) {
    const HWND window = Window(in);
    Wanted search{0, nullptr};
    in >> search.Id;
    EnumChildWindows(window, FindById, reinterpret_cast<LPARAM>(&search));
    return std::to_string(Number(search.Found));
}

// Visible by itself, visible with all that hold it, enabled by itself, enabled with all that hold it, width
// and height of the inside, class.
std::string Control(std::istream& in) {
    const HWND window = Window(in);
    bool usable = true;
    for (HWND each = window; each != nullptr; each = GetAncestor(each, GA_PARENT)) {
        usable = usable && (GetWindowLongW(each, GWL_STYLE) & WS_DISABLED) == 0;
    }
    const bool visible = (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    RECT area{};
    GetClientRect(window, &area);
    std::ostringstream out;
    out << visible << ' ' << IsWindowVisible(window) << ' ' << IsWindowEnabled(window) << ' ' << usable << ' '
        << area.right << ' ' << area.bottom << ' ' << Hex(ClassOf(window));
    return out.str();
}

// Left, top, width and height on the screen, in dots.
std::string Area(std::istream& in) {
    RECT area{};
    GetWindowRect(Window(in), &area);
    std::ostringstream out;
    out << area.left << ' ' << area.top << ' ' << area.right - area.left << ' ' << area.bottom - area.top;
    return out.str();
}

// Width and height of the primary screen, in dots.
std::string Screen(std::istream&) {
    return std::to_string(GetSystemMetrics(SM_CXSCREEN)) + ' ' +
           std::to_string(GetSystemMetrics(SM_CYSCREEN));
}

std::string Resize(std::istream& in) {
    const HWND window = Window(in);
    int width = 0;
    int height = 0;
    in >> width >> height;
    return std::to_string(
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE));
}

std::string Parent(std::istream& in) {
    return std::to_string(Number(GetAncestor(Window(in), GA_PARENT)));
}

std::string Id(std::istream& in) {
    return std::to_string(GetDlgCtrlID(Window(in)));
}

std::string GetText(std::istream& in) {
    return Hex(TextOf(Window(in)));
}

// Class, number, handle and text of each control.
std::string Children(std::istream& in) {
    std::ostringstream out;
    EnumChildWindows(Window(in), AddText, reinterpret_cast<LPARAM>(&out));
    return out.str();
}
