#pragma once

#include <cstdint>

namespace machine {

/// A window and a window procedure as numbers of the machine's pointer width; 0 is none.
using WindowHandle = std::uintptr_t;
using ProcedureAddress = std::uintptr_t;

// A window procedure that Windows itself may call has to be called its way; elsewhere there is one way only.
#if defined(_WIN32) && !defined(_WIN64)
#define WINDOW_CALL __stdcall
#else
#define WINDOW_CALL
#endif

/// What a window does with a message: its number, two arguments of pointer width, and a result.
using WindowProcedure = std::intptr_t(WINDOW_CALL*)(WindowHandle hWnd, std::int32_t uMsg,
                                                    std::intptr_t wParam, std::intptr_t lParam);

/// The address of a procedure as a number, to be stored as a window's procedure.
inline ProcedureAddress AddressOf(WindowProcedure procedure) {
    return reinterpret_cast<ProcedureAddress>(procedure);
}

/// Index of the window procedure for SetWindowLongA.
inline constexpr int GWL_WNDPROC = -4;

/// The window is asked how large it may become; lParam is the address of a MINMAXINFO.
inline constexpr std::int32_t WM_GETMINMAXINFO = 36;
/// The mouse wheel has turned; the high word of wParam is by how much, negative towards the user.
inline constexpr std::int32_t WM_MOUSEWHEEL = 522;

/// Bounds of a window as Windows exchanges them, in dots: 40 bytes.
struct MINMAXINFO {
    struct POINT {
        std::int32_t x;
        std::int32_t y;
    };
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
};
static_assert(sizeof(MINMAXINFO) == 40);

/// The procedures of the program's windows, by the names of the Windows calls. Failure is told by a result of
/// 0.
class WindowProcedures {
  public:
    virtual ~WindowProcedures() = default;

    /// Gives the window another procedure and answers the one that it had.
    virtual ProcedureAddress SetWindowLongA(WindowHandle hWnd, int index, ProcedureAddress procedure) = 0;

    virtual std::intptr_t CallWindowProcA(ProcedureAddress procedure, WindowHandle hWnd, std::int32_t uMsg,
                                          std::intptr_t wParam, std::intptr_t lParam) = 0;

    /// A handler of a hook has failed with the exception that is being handled now; the window gets the
    /// message all the same if this returns. Whoever sends the messages itself wants to know.
    virtual void HandlerFailed() { throw; }
};

} // namespace machine
