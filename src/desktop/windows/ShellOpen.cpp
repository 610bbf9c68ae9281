#include "desktop/windows/ShellOpen.h"

#include <cstdint>

#include "desktop/windows/FromLibrary.h"

// Behind Windows' first header.
#include <objbase.h>
#include <shellapi.h>

namespace desktop::windows {

namespace {

/// What opens a file may be an extension of the shell that is an object of COM.
class ComTurn {
  public:
    ComTurn() {
        const auto begin = FromLibrary<decltype(&::CoInitializeEx)>(Library, "CoInitializeEx");
        began_ =
            begin != nullptr && SUCCEEDED(begin(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
    }
    ~ComTurn() {
        const auto end = FromLibrary<decltype(&::CoUninitialize)>(Library, "CoUninitialize");
        if (began_ && end != nullptr) {
            end();
        }
    }
    ComTurn(const ComTurn&) = delete;
    ComTurn& operator=(const ComTurn&) = delete;

  private:
    static constexpr const wchar_t* Library = L"ole32.dll";
    bool began_ = false;
};

} // namespace

std::wstring ProgramFolder() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return file.substr(0, file.find_last_of(L'\\') + 1);
        }
        file.resize(2 * file.size());
    }
}

bool OpenFileOfUser(HWND owner, const std::wstring& file) {
    constexpr std::intptr_t lastFailure = 32;
    const auto execute = FromLibrary<decltype(&::ShellExecuteW)>(L"shell32.dll", "ShellExecuteW");
    if (execute == nullptr) {
        return false;
    }
    const ComTurn com;
    const auto answer = reinterpret_cast<std::intptr_t>(
        execute(owner, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return answer > lastFailure;
}

} // namespace desktop::windows
