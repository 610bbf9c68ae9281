#include "desktop/windows/WinLocale.h"

#include <algorithm>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

constexpr std::size_t LettersOfMonth = 3;
constexpr int MonthsOfYear = 12;

/// Without its closing NUL; empty where the item or the locale does not exist.
std::wstring ItemText(LCID locale, LCTYPE item) {
    const int needed = ::GetLocaleInfoW(locale, item, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(std::max(needed, 0)), L'\0');
    const int written = ::GetLocaleInfoW(locale, item, text.data(), needed);
    text.resize(static_cast<std::size_t>(std::max(written - 1, 0)));
    return text;
}

} // namespace

std::int32_t WinLocale::GetUserDefaultLCID() {
    return static_cast<std::int32_t>(::GetUserDefaultLCID());
}

std::int32_t WinLocale::GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                       std::int32_t size) {
    const auto lcid = static_cast<LCID>(locale);
    const auto type = static_cast<LCTYPE>(item);
    if (MachineSpeaks1252()) {
        // The item in the machine's code page: the locale may have another of its own.
        return ::GetLocaleInfoA(lcid, type | LOCALE_USE_CP_ACP, buffer, size);
    }
    if (::GetLocaleInfoW(lcid, type, nullptr, 0) == 0) {
        return 0;
    }
    const std::string bytes = base::text::ToCodePage(FromWide(ItemText(lcid, type)));
    const auto needed = static_cast<std::int32_t>(bytes.size()) + 1;
    if (size == 0) {
        return needed;
    }
    if (buffer == nullptr || size < needed) {
        return 0;
    }
    std::copy_n(bytes.c_str(), needed, buffer);
    return needed;
}

char WinLocale::DecimalMark() {
    return ItemText(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL) == L"," ? ',' : '.';
}

std::string WinLocale::ShortMonthName(int month) {
    if (month < 1 || month > MonthsOfYear) {
        return {};
    }
    const auto item = static_cast<LCTYPE>(LOCALE_SABBREVMONTHNAME1 + month - 1);
    return std::string(base::text::Left(FromWide(ItemText(LOCALE_USER_DEFAULT, item)), LettersOfMonth));
}

} // namespace desktop::windows
