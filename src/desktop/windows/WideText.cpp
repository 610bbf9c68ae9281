#include "desktop/windows/WideText.h"

#include <algorithm>

#include "desktop/windows/Win32.h"

#include "base/Text.h"

namespace desktop::windows {

namespace {

constexpr UINT CodePage1252 = 1252;
constexpr char32_t FirstOfPairs = 0x10000;
constexpr char32_t FirstHigh = 0xD800;
constexpr char32_t FirstLow = 0xDC00;
constexpr char32_t AfterLow = 0xE000;

bool IsHigh(wchar_t unit) {
    return unit >= FirstHigh && unit < FirstLow;
}

bool IsLow(wchar_t unit) {
    return unit >= FirstLow && unit < AfterLow;
}

/// The system counts in int; a text beyond that is cut.
int CountOf(std::size_t size) {
    constexpr std::size_t most = 0x3FFFFFFF;
    return static_cast<int>(std::min(size, most));
}

std::wstring WideOfMachine(std::string_view bytes) {
    const int size = CountOf(bytes.size());
    const int needed = ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(needed, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), needed);
    return wide;
}

/// Without the system's likenesses ("l" for a barred l), which would make another name of a name. The code
/// page UTF-8 has every character and takes no flag.
std::string MachineOfWide(const std::wstring& wide) {
    const DWORD flags = ::GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int size = CountOf(wide.size());
    const int needed = ::WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    ::WideCharToMultiByte(CP_ACP, flags, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

} // namespace

std::wstring ToWide(std::string_view utf8) {
    std::wstring wide;
    wide.reserve(utf8.size());
    while (!utf8.empty()) {
        const base::text::Decoded first = base::text::DecodeFirst(utf8);
        if (first.Code < FirstOfPairs) {
            wide.push_back(static_cast<wchar_t>(first.Code));
        } else {
            wide.push_back(static_cast<wchar_t>(FirstHigh + ((first.Code - FirstOfPairs) >> 10)));
            wide.push_back(static_cast<wchar_t>(FirstLow + ((first.Code - FirstOfPairs) & 0x3FF)));
        }
        utf8.remove_prefix(first.Bytes);
    }
    return wide;
}

std::string FromWide(std::wstring_view wide) {
    std::string utf8;
    utf8.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t code = wide[i];
        if (IsHigh(wide[i]) && i + 1 < wide.size() && IsLow(wide[i + 1])) {
            code = FirstOfPairs + ((code - FirstHigh) << 10) + (wide[i + 1] - FirstLow);
            ++i;
        }
        utf8.append(base::text::Encode(code)); // half a pair becomes U+FFFD there
    }
    return utf8;
}

std::wstring WideOf1252(std::string_view codePage1252) {
    return ToWide(base::text::FromCodePage(codePage1252));
}

bool MachineSpeaks1252() {
    return ::GetACP() == CodePage1252;
}

std::string ToMachine(std::string_view codePage1252) {
    return MachineSpeaks1252() ? std::string(codePage1252) : MachineOfWide(WideOf1252(codePage1252));
}

std::string FromMachine(std::string_view machine) {
    return MachineSpeaks1252() ? std::string(machine)
                               : base::text::ToCodePage(FromWide(WideOfMachine(machine)));
}

} // namespace desktop::windows
