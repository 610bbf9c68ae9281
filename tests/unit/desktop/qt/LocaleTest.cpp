#include <gtest/gtest.h>

#include "desktop/qt/QtLocale.h"

namespace {

using desktop::qt::QtLocale;

std::string Item(QtLocale& locale, std::int32_t item) {
    const std::int32_t lcid = locale.GetUserDefaultLCID();
    const std::int32_t size = locale.GetLocaleInfoA(lcid, item, nullptr, 0);
    std::string buffer(static_cast<std::size_t>(size), 'x');
    EXPECT_EQ(locale.GetLocaleInfoA(lcid, item, buffer.data(), size), size);
    EXPECT_EQ(buffer.back(), '\0');
    buffer.pop_back();
    return buffer;
}

TEST(LocaleTest, ADutchMachine) {
    QtLocale locale(QLocale(QLocale::Dutch, QLocale::Netherlands));
    EXPECT_EQ(locale.GetUserDefaultLCID(), 1043);
    EXPECT_EQ(Item(locale, machine::LocaleDecimal), ",");
    EXPECT_EQ(Item(locale, machine::LocaleMonetaryDecimal), ",");
    EXPECT_EQ(Item(locale, machine::LocaleMonetaryThousand), ".");
    EXPECT_EQ(Item(locale, machine::LocaleCurrencySymbol), "\x80");
    EXPECT_EQ(locale.DecimalMark(), ',');
    EXPECT_EQ(locale.ShortMonthName(1), "jan");
    EXPECT_EQ(locale.ShortMonthName(3), "mrt");
}

TEST(LocaleTest, AnEnglishMachine) {
    QtLocale locale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(locale.DecimalMark(), '.');
    EXPECT_EQ(Item(locale, machine::LocaleCurrencySymbol), "$");
    EXPECT_EQ(locale.ShortMonthName(3), "Mar");
}

TEST(LocaleTest, FailureIsZero) {
    QtLocale locale(QLocale(QLocale::Dutch, QLocale::Netherlands));
    char buffer[1];
    EXPECT_EQ(locale.GetLocaleInfoA(1043, machine::LocaleDecimal, buffer, 1), 0);
    EXPECT_EQ(locale.GetLocaleInfoA(1043, 9999, nullptr, 0), 0);
    EXPECT_EQ(locale.GetLocaleInfoA(1, machine::LocaleDecimal, nullptr, 0), 0);
}

} // namespace
