#include "desktop/windows/FormWindow.h"

#include "desktop/windows/WideText.h"
#include "desktop/windows/WinForm.h"

namespace desktop::windows {

namespace {

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    // Before a form knows its window, and after it has left it, the window is on its own.
    auto* form = reinterpret_cast<WinForm*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (form == nullptr || form->Window() != window) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    form->Guard([&] { result = form->Received(message, wParam, lParam); });
    return result;
}

void RegisterOnce(const std::wstring& name) {
    constexpr int programIcon = 1;
    HINSTANCE program = ::GetModuleHandleW(nullptr);
    WNDCLASSEXW window{};
    window.cbSize = sizeof window;
    if (::GetClassInfoExW(program, name.c_str(), &window) != FALSE) {
        return;
    }
    window.lpfnWndProc = Procedure;
    window.hInstance = program;
    window.hIcon = ::LoadIconW(program, MAKEINTRESOURCEW(programIcon));
    window.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    window.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    window.lpszClassName = name.c_str();
    ::RegisterClassExW(&window);
}

} // namespace

HWND MakeFormWindow(WinForm& form, const std::string& name, DWORD style, DWORD extendedStyle) {
    const std::wstring className = ToWide(name);
    RegisterOnce(className);
    return ::CreateWindowExW(extendedStyle, className.c_str(), L"", style, CW_USEDEFAULT, CW_USEDEFAULT, 0, 0,
                             nullptr, nullptr, ::GetModuleHandleW(nullptr), &form);
}

void LeaveWindow(HWND window) {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 0);
}

} // namespace desktop::windows
