#pragma once

#include <QLocale>

#include "machine/Locale.h"

namespace desktop::qt {

/// The user's regional settings as the desktop has them.
class QtLocale final : public machine::Locale {
  public:
    explicit QtLocale(const QLocale& locale = QLocale::system()) : locale_(locale) {}

    std::int32_t GetUserDefaultLCID() override;
    std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                std::int32_t size) override;
    char DecimalMark() override;
    std::string ShortMonthName(int month) override;

  private:
    QLocale locale_;
};

} // namespace desktop::qt
