// The least that a Windows program can be: one empty window. The start of ours is measured against it.
#include <windows.h>

namespace {

LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = Answer;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = "EmptyWindow";
    RegisterClassA(&windowClass);
    CreateWindowA("EmptyWindow", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT, 640, 480,
                  nullptr, nullptr, instance, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
