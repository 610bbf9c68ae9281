#include "desktop/qt/QtLocale.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Text.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

namespace {

struct LocaleNumber {
    QLocale::Language Language;
    QLocale::Territory Territory;
    std::int32_t Lcid;
};

// The regions where the program's users are likely to have set up their machine. Any other counts as the
// last.
constexpr std::array<LocaleNumber, 9> LocaleNumbers{{
    {QLocale::Dutch, QLocale::Netherlands, 0x0413},
    {QLocale::Dutch, QLocale::Belgium, 0x0813},
    {QLocale::WesternFrisian, QLocale::Netherlands, 0x0462},
    {QLocale::French, QLocale::Belgium, 0x080C},
    {QLocale::French, QLocale::France, 0x040C},
    {QLocale::German, QLocale::Germany, 0x0407},
    {QLocale::English, QLocale::UnitedKingdom, 0x0809},
    {QLocale::English, QLocale::Ireland, 0x1809},
    {QLocale::English, QLocale::UnitedStates, 0x0409},
}};

std::optional<QString> ItemText(const QLocale& locale, std::int32_t item) {
    switch (item) {
    case machine::LocaleDecimal:
    case machine::LocaleMonetaryDecimal:
        return locale.decimalPoint();
    case machine::LocaleMonetaryThousand:
        return locale.groupSeparator();
    case machine::LocaleCurrencySymbol:
        return locale.currencySymbol();
    default:
        return std::nullopt;
    }
}

} // namespace

std::int32_t QtLocale::GetUserDefaultLCID() {
    for (const LocaleNumber& number : LocaleNumbers) {
        if (number.Language == locale_.language() && number.Territory == locale_.territory()) {
            return number.Lcid;
        }
    }
    return LocaleNumbers.back().Lcid;
}

std::int32_t QtLocale::GetLocaleInfoA(std::int32_t locale, std::int32_t item, char* buffer,
                                      std::int32_t size) {
    const std::optional<QString> text = ItemText(locale_, item);
    if (locale != GetUserDefaultLCID() || !text) {
        return 0;
    }
    const std::string bytes = base::text::ToCodePage(FromQString(*text));
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

char QtLocale::DecimalMark() {
    return locale_.decimalPoint() == QStringLiteral(",") ? ',' : '.';
}

std::string QtLocale::ShortMonthName(int month) {
    return FromQString(locale_.standaloneMonthName(month, QLocale::ShortFormat).left(3));
}

} // namespace desktop::qt
