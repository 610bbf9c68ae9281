#pragma once

#include <cstdint>
#include <string>

namespace machine {

/// Items of GetLocaleInfoA, by their Windows numbers.
inline constexpr std::int32_t LocaleDecimal = 14;
inline constexpr std::int32_t LocaleCurrencySymbol = 20;
inline constexpr std::int32_t LocaleMonetaryDecimal = 22;
inline constexpr std::int32_t LocaleMonetaryThousand = 23;

/// The user's regional settings.
class Locale {
  public:
    virtual ~Locale() = default;

    virtual std::int32_t GetUserDefaultLCID() = 0;

    /// Without a buffer (nullptr, 0) the length of the item with its closing NUL, in bytes of the machine's
    /// code page; with one, the number of bytes written. 0 is failure.
    virtual std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                        std::int32_t size) = 0;

    /// The decimal mark of numbers that the user writes: one character, "," or "." in practice.
    virtual char DecimalMark() = 0;

    /// Three letters of a month's name, 1 to 12, in the language of the machine ("jan", "mrt").
    virtual std::string ShortMonthName(int month) = 0;
};

} // namespace machine
