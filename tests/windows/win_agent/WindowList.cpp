#include "WindowList.h"

#include <map>
#include <sstream>
#include <utility>
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

// Each question about a window of another process is one to the system's own: the style answers two.
BOOL CALLBACK AddWindow(HWND window, LPARAM list) {
    std::ostringstream& out = *reinterpret_cast<std::ostringstream*>(list);
    const LONG style = GetWindowLongW(window, GWL_STYLE);
    out << Number(window) << ' ' << ((style & WS_VISIBLE) != 0) << ' ' << ((style & WS_DISABLED) == 0) << ' '
        << Hex(ClassOf(window)) << ' ';
    return TRUE;
}

// Where a form's control was found last; a window may be gone since, and its handle another's.
std::map<std::pair<HWND, int>, HWND> foundControls;

BOOL CALLBACK RememberControl(HWND window, LPARAM form) {
    foundControls.emplace(std::pair(reinterpret_cast<HWND>(form), GetDlgCtrlID(window)), window);
    return TRUE;
}

bool IsControl(HWND window, HWND form, int id) {
    return GetDlgCtrlID(window) == id && IsChild(form, window) != FALSE;
}

// The text of a dialog's icon and words: all texts of its children that are not empty.
BOOL CALLBACK AddText(HWND window, LPARAM list) {
    const std::wstring text = TextOf(window);
    *reinterpret_cast<std::ostringstream*>(list) << Hex(ClassOf(window)) << ' ' << GetDlgCtrlID(window) << ' '
                                                 << Number(window) << ' ' << Hex(text) << ' ';
    return TRUE;
}

} // namespace

// "running" or the program's exit code, then handle, visible, enabled and class of each of its top windows,
// the front one first.
std::string Windows(std::istream&) {
    std::ostringstream out;
    out << State() << ' ';
    EnumThreadWindows(program.Thread, AddWindow, reinterpret_cast<LPARAM>(&out));
    return out.str();
}

// The control with this number, however deep it stands; 0 if there is none.
std::string Child(std::istream& in) {
    const HWND form = Window(in);
    int id = 0;
    in >> id;
    HWND& found = foundControls[{form, id}];
    if (!IsControl(found, form, id)) {
        std::erase_if(foundControls, [form](const auto& known) { return known.first.first == form; });
        EnumChildWindows(form, RememberControl, reinterpret_cast<LPARAM>(form));
    }
    return std::to_string(Number(foundControls[{form, id}]));
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
