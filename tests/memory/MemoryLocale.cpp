#include "memory/MemoryLocale.h"

#include <array>
#include <cstring>

namespace memory {

namespace {
constexpr char EuroInCodePage = '\x80';
constexpr std::array<const char*, 12> Months = {"jan", "feb", "mrt", "apr", "mei", "jun",
                                                "jul", "aug", "sep", "okt", "nov", "dec"};
} // namespace

std::int32_t MemoryLocale::GetLocaleInfoA(std::int32_t /*locale*/, std::int32_t item, char* buffer,
                                          std::int32_t size) {
    if (recorder_.TakeFailure("GetLocaleInfoA")) {
        return 0;
    }
    std::string text;
    switch (item) {
    case machine::LocaleCurrencySymbol:
        text = EuroInCodePage;
        break;
    case machine::LocaleDecimal:
    case machine::LocaleMonetaryDecimal:
        text = decimalMark_;
        break;
    case machine::LocaleMonetaryThousand:
        text = decimalMark_ == ',' ? '.' : ',';
        break;
    default:
        return 0;
    }
    const auto needed = static_cast<std::int32_t>(text.size() + 1);
    if (size == 0) {
        return needed;
    }
    if (buffer == nullptr || size < needed) {
        return 0;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return needed;
}

std::string MemoryLocale::ShortMonthName(int month) {
    return month >= 1 && month <= 12 ? Months[static_cast<std::size_t>(month - 1)] : "";
}

} // namespace memory
