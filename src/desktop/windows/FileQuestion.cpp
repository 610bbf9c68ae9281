#include "desktop/windows/FileQuestion.h"

#include <algorithm>
#include <vector>

#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

/// Room for any path that Windows answers.
constexpr std::size_t LongestPath = 32768;

class OpenFile {
  public:
    explicit OpenFile(const std::string& path)
        : file_(::CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~OpenFile() { Close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool Write(const std::string& bytes) {
        DWORD written = 0;
        return file_ != INVALID_HANDLE_VALUE &&
               ::WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) !=
                   FALSE &&
               written == bytes.size();
    }

    bool Close() {
        const HANDLE open = file_;
        file_ = INVALID_HANDLE_VALUE;
        return open != INVALID_HANDLE_VALUE && ::CloseHandle(open) != FALSE;
    }

  private:
    HANDLE file_;
};

} // namespace

std::string AskForTextFile(HWND owner, const std::string& proposed) {
    std::vector<wchar_t> path(LongestPath);
    const std::wstring name = ToWide(proposed);
    std::copy_n(name.begin(), std::min(name.size(), path.size() - 1), path.begin());
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = L"Tekstbestanden (*.txt)\0*.txt\0Alle bestanden (*.*)\0*.*\0";
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrTitle = L"Opslaan als tekstbestand";
    question.lpstrDefExt = L"txt";
    question.Flags =
        OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return ::GetSaveFileNameW(&question) == FALSE ? std::string() : FromWide(path.data());
}

bool WriteTextFile(const std::string& file, const std::string& text) {
    std::string bytes;
    for (const char c : text) {
        if (c == '\n') {
            bytes += '\r';
        }
        bytes += c;
    }
    OpenFile target(file);
    const bool written = target.Write(bytes);
    return target.Close() && written;
}

} // namespace desktop::windows
