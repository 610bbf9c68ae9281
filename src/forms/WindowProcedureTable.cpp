#include "forms/WindowProcedureTable.h"

#include <algorithm>
#include <limits>

#include "forms/DesignScreen.h"

namespace forms {

namespace {

constexpr int HighWordBits = 16;

/// The toolkit does itself what a window procedure would do.
std::intptr_t WINDOW_CALL DefaultProcedure(machine::WindowHandle /*hWnd*/, std::int32_t /*uMsg*/,
                                           std::intptr_t /*wParam*/, std::intptr_t /*lParam*/) {
    return 0;
}

} // namespace

WindowProcedureTable::Window::Window(WindowProcedureTable& table, machine::WindowHandle hWnd)
    : table_(table), hWnd_(hWnd) {
    table_.procedures_[hWnd_] = machine::AddressOf(DefaultProcedure);
}

WindowProcedureTable::Window::~Window() {
    table_.procedures_.erase(hWnd_);
}

machine::ProcedureAddress WindowProcedureTable::SetWindowLongA(machine::WindowHandle hWnd, int index,
                                                               machine::ProcedureAddress procedure) {
    const auto found = procedures_.find(hWnd);
    if (index != machine::GWL_WNDPROC || found == procedures_.end()) {
        return 0;
    }
    const machine::ProcedureAddress previous = found->second;
    found->second = procedure;
    return previous;
}

std::intptr_t WindowProcedureTable::CallWindowProcA(machine::ProcedureAddress procedure,
                                                    machine::WindowHandle hWnd, std::int32_t uMsg,
                                                    std::intptr_t wParam, std::intptr_t lParam) {
    if (procedure == 0) {
        return 0;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a procedure is kept as a number, as Windows keeps it
    return reinterpret_cast<machine::WindowProcedure>(procedure)(hWnd, uMsg, wParam, lParam);
}

std::intptr_t WindowProcedureTable::Send(machine::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                                         std::intptr_t lParam) {
    const auto found = procedures_.find(hWnd);
    return found == procedures_.end() ? 0 : CallWindowProcA(found->second, hWnd, uMsg, wParam, lParam);
}

void WindowProcedureTable::SendWheel(machine::WindowHandle hWnd, std::int16_t delta) {
    const auto highWord = static_cast<std::uint32_t>(static_cast<std::uint16_t>(delta)) << HighWordBits;
    Send(hWnd, machine::WM_MOUSEWHEEL, static_cast<std::intptr_t>(highWord), 0);
}

machine::MINMAXINFO WindowProcedureTable::AskBounds(machine::WindowHandle hWnd, machine::MINMAXINFO bounds) {
    Send(hWnd, machine::WM_GETMINMAXINFO, 0, reinterpret_cast<std::intptr_t>(&bounds));
    return bounds;
}

WindowSize WindowProcedureTable::BoundedSize(machine::WindowHandle hWnd, const WindowSize& wanted) {
    constexpr std::int32_t any = std::numeric_limits<std::int32_t>::max();
    machine::MINMAXINFO bounds{};
    bounds.ptMaxSize = {any, any};
    bounds.ptMaxTrackSize = {any, any};
    bounds = AskBounds(hWnd, bounds);
    const auto within = [](double twips, std::int32_t least, std::int32_t most) {
        return std::max(least * TwipsPerDesignDot, std::min(twips, most * TwipsPerDesignDot));
    };
    return {within(wanted.Width, bounds.ptMinTrackSize.x, bounds.ptMaxTrackSize.x),
            within(wanted.Height, bounds.ptMinTrackSize.y, bounds.ptMaxTrackSize.y)};
}

} // namespace forms
