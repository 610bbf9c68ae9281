#include "desktop/windows/WinDesktop.h"

#include <algorithm>
#include <exception>
#include <new>

#include "desktop/windows/FileQuestion.h"
#include "desktop/windows/Scale.h"
#include "desktop/windows/ShellOpen.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinForm.h"
#include "forms/CaughtError.h"
#include "forms/Form.h"
#include "forms/Handbook.h"

namespace desktop::windows {

namespace {

UINT FlagsOf(forms::MessageIcon icon) {
    switch (icon) {
    case forms::MessageIcon::Exclamation:
        return MB_OK | MB_ICONEXCLAMATION;
    case forms::MessageIcon::Critical:
        return MB_OK | MB_ICONERROR;
    case forms::MessageIcon::Information:
        break;
    }
    return MB_OK | MB_ICONINFORMATION;
}

forms::ScreenArea InTwips(const RECT& area) {
    const Scale scale = ScreenScale();
    const auto twips = [&](LONG dots) { return scale.ToTwips(static_cast<int>(dots)); };
    return {twips(area.left), twips(area.top), twips(area.right - area.left), twips(area.bottom - area.top)};
}

} // namespace

WinDesktop::WinDesktop() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES;
    ::InitCommonControlsEx(&classes);
}

// A form that scrolls has no focus. It is told of whole notches: a part of one waits here for its rest.
bool WinDesktop::TurnsWheel(MSG& message) {
    if (forms_.Empty() || forms_.Top()->ActiveControl() != nullptr) {
        return true;
    }
    const std::int16_t turn = wheel_.Add(static_cast<std::int16_t>(HIWORD(message.wParam)));
    message.wParam = MAKEWPARAM(LOWORD(message.wParam), turn);
    return turn != 0;
}

/// False if the message asks the program to end; it then stays for the loops further out.
bool WinDesktop::Handle(MSG& message) {
    if (message.message == WM_QUIT) {
        ::PostQuitMessage(static_cast<int>(message.wParam));
        return false;
    }
    if (message.message != WM_MOUSEWHEEL || TurnsWheel(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return true;
}

/// Handles messages one by one as long as `wanted` says, and waits for them. What another program sends is
/// handled inside the look into the queue and never comes out of it, and may be the end all the same.
void WinDesktop::RunLoop(const std::function<bool()>& wanted) {
    MSG message{};
    while (wanted()) {
        if (ending_ != nullptr) {
            EndWaiting();
            if (!wanted()) {
                return;
            }
        }
        if (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (!Handle(message)) {
                return;
            }
        } else if (wanted()) {
            ::MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
    }
}

/// Closes the forms that had to wait for the one whose loop has just ended.
void WinDesktop::EndWaiting() {
    try {
        ending_->End();
    } catch (const std::exception&) {
        TellCaught();
    }
}

std::unique_ptr<forms::FormPeer> WinDesktop::CreatePeer(forms::Form& form) {
    return std::make_unique<WinForm>(form, *this);
}

void WinDesktop::Hidden(const forms::Form& form) {
    const WinForm* peer = forms_.PeerOf(form);
    const bool active = peer != nullptr && peer->IsActive();
    forms_.Hidden(form);
    if (HWND top = TopWindow(); top != nullptr && active) {
        ::SetActiveWindow(top);
    }
}

// Windows may end the program as soon as this returns. Where it does not, the loops further out close what is
// still open, and the message ends a box that waits for the user.
void WinDesktop::SessionEnds(forms::Session& session) {
    ending_ = &session;
    session.End();
    if (forms_.Empty()) {
        ::PostQuitMessage(0);
    }
}

HWND WinDesktop::TopWindow() const {
    const WinForm* top = forms_.TopPeer();
    return top == nullptr ? nullptr : top->Window();
}

std::vector<HWND> WinDesktop::ShownWindows() const {
    std::vector<HWND> windows;
    for (const WinForm* peer : forms_.Peers()) {
        windows.push_back(peer->Window());
    }
    return windows;
}

void WinDesktop::Run() {
    RunLoop([this] { return !forms_.Empty(); });
}

void WinDesktop::RunModal(forms::Form& form) {
    RunLoop([&] { return forms_.IsShown(form); });
}

void WinDesktop::Yield() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE && Handle(message)) {
    }
}

void WinDesktop::MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) {
    HWND owner = TopWindow();
    const UINT alone = owner == nullptr ? MB_TASKMODAL : 0U; // no window of the program takes input meanwhile
    ::MessageBoxW(owner, ToWide(text).c_str(), ToWide(title).c_str(), FlagsOf(icon) | alone);
}

void WinDesktop::UnhandledError(const base::RuntimeError& error) {
    MsgBox(forms::UnhandledErrorText(error), forms::MessageIcon::Critical, forms_.Title());
}

void WinDesktop::TellCaught() noexcept {
    try {
        forms::TellCaught(*this);
    } catch (const std::exception&) { // no memory to tell it in words of its own
        ::MessageBoxW(nullptr, L"Fout 7:\n\nOut of memory", nullptr, MB_OK | MB_ICONERROR | MB_TASKMODAL);
    }
}

void WinDesktop::ShowHandbook(const std::string& section) {
    HWND owner = TopWindow();
    const std::wstring folder = ProgramFolder() + ToWide(DRUKKEURING_HANDBOOK "\\");
    std::wstring page = ToWide(forms::HandbookPage(section));
    std::replace(page.begin(), page.end(), L'/', L'\\');
    if (!OpenFileOfUser(owner, folder + page)) {
        const std::wstring file = folder + ToWide(forms::HandbookFile);
        forms::TellHandbookNotOpened(*this, FromWide(file), forms_.Title());
    }
}

std::string WinDesktop::AskFileToSave(const std::string& proposal) {
    return AskForTextFile(TopWindow(), proposal);
}

bool WinDesktop::SaveText(const std::string& file, const std::string& text) {
    return WriteTextFile(file, text);
}

std::int16_t WinDesktop::GetKeyState(int virtualKey) {
    return ::GetKeyState(virtualKey);
}

// The window under the pointer is asked for its pointer anew, as nobody may move the mouse for a while.
void WinDesktop::SetMousePointer(int pointer) {
    hourglass_ = pointer == forms::PointerHourglass;
    POINT place{};
    ::GetCursorPos(&place);
    HWND window = ::WindowFromPoint(place);
    if (window != nullptr && ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId()) {
        ::SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                       MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    }
}

void WinDesktop::LockWindowUpdate(std::uintptr_t window) {
    ::LockWindowUpdate(reinterpret_cast<HWND>(window));
}

forms::ScreenArea WinDesktop::Screen() {
    return InTwips({0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)});
}

forms::ScreenArea WinDesktop::WorkArea() {
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return InTwips(area);
}

} // namespace desktop::windows
