#include "desktop/windows/DpiFunctions.h"

#include "forms/DesignScreen.h"

namespace desktop::windows {

namespace {

constexpr UINT DesignDpi = forms::DesignDotsPerInch;

/// A function that not every supported Windows has; nullptr where it is missing.
template <class Function>
Function FromUser32(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name)));
}

using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);
using GetDpiForMonitorFunction = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
using AdjustWindowRectExForDpiFunction = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using SystemParametersInfoForDpiFunction = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);
using GetSystemMetricsForDpiFunction = int(WINAPI*)(int, UINT);

int Scaled(int value, UINT dpi) {
    return ::MulDiv(value, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
}

/// Windows 8.1 knows the density of each screen, though not of each window; an older one has no such library.
GetDpiForMonitorFunction FromShcore() {
    HMODULE library = ::LoadLibraryExW(L"shcore.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    return library == nullptr ? nullptr
                              : reinterpret_cast<GetDpiForMonitorFunction>(
                                    reinterpret_cast<void*>(::GetProcAddress(library, "GetDpiForMonitor")));
}

UINT DpiOfScreenUnder(HWND window) {
    static const auto ask = FromShcore();
    constexpr int effective = 0;
    UINT across = 0;
    UINT down = 0;
    if (ask != nullptr) {
        ask(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), effective, &across, &down);
    }
    return across == 0 ? SystemDpi() : across;
}

} // namespace

UINT SystemDpi() {
    static const UINT dpi = [] {
        HDC screen = ::GetDC(nullptr);
        const int dots = ::GetDeviceCaps(screen, LOGPIXELSX);
        ::ReleaseDC(nullptr, screen);
        return dots > 0 ? static_cast<UINT>(dots) : DesignDpi;
    }();
    return dpi;
}

UINT DpiOf(HWND window) {
    static const auto ask = FromUser32<GetDpiForWindowFunction>("GetDpiForWindow");
    const UINT dpi = ask == nullptr ? DpiOfScreenUnder(window) : ask(window);
    return dpi == 0 ? SystemDpi() : dpi;
}

RECT FrameMargins(DWORD style, DWORD extendedStyle, bool menu, UINT dpi) {
    static const auto adjust = FromUser32<AdjustWindowRectExForDpiFunction>("AdjustWindowRectExForDpi");
    RECT margins{};
    if (adjust != nullptr) {
        adjust(&margins, style, menu ? TRUE : FALSE, extendedStyle, dpi);
    } else {
        ::AdjustWindowRectEx(&margins, style, menu ? TRUE : FALSE, extendedStyle);
    }
    return margins;
}

LOGFONTW MessageFont(UINT dpi) {
    static const auto ask = FromUser32<SystemParametersInfoForDpiFunction>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (ask != nullptr && ask(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi) != FALSE) {
        return metrics.lfMessageFont;
    }
    ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMessageFont.lfHeight = Scaled(metrics.lfMessageFont.lfHeight, dpi);
    return metrics.lfMessageFont;
}

int SystemMetric(int index, UINT dpi) {
    static const auto ask = FromUser32<GetSystemMetricsForDpiFunction>("GetSystemMetricsForDpi");
    return ask != nullptr ? ask(index, dpi) : Scaled(::GetSystemMetrics(index), dpi);
}

} // namespace desktop::windows
