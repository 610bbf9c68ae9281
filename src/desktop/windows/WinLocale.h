#pragma once

#include "machine/Locale.h"

namespace desktop::windows {

/// The user's regional settings.
class WinLocale final : public machine::Locale {
  public:
    std::int32_t GetUserDefaultLCID() override;
    std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                std::int32_t size) override;
    char DecimalMark() override;
    std::string ShortMonthName(int month) override;
};

} // namespace desktop::windows
