#include "memory/MemoryLocale.h"

#include <string>

#include <gtest/gtest.h>

#include "memory/tests/Events.h"

namespace {

using namespace memory;

class MemoryLocaleTest : public testing::Test {
  protected:
    std::string Item(std::int32_t item) {
        MemoryLocale& locale = watched.memory.locale;
        const std::int32_t size = locale.GetLocaleInfoA(locale.GetUserDefaultLCID(), item, nullptr, 0);
        std::string text(static_cast<std::size_t>(size), '\0');
        EXPECT_EQ(locale.GetLocaleInfoA(1043, item, text.data(), size), size);
        return text;
    }

    WatchedPlatform watched;
};

TEST_F(MemoryLocaleTest, SpeaksDutch) {
    EXPECT_EQ(Item(machine::LocaleCurrencySymbol), std::string("\x80\0", 2))
        << "the euro sign of the code page";
    EXPECT_EQ(Item(machine::LocaleMonetaryDecimal), std::string(",\0", 2));
    EXPECT_EQ(Item(machine::LocaleMonetaryThousand), std::string(".\0", 2));
    EXPECT_EQ(watched.memory.locale.DecimalMark(), ',');
    EXPECT_EQ(watched.memory.locale.ShortMonthName(3), "mrt");
    EXPECT_EQ(watched.memory.locale.ShortMonthName(13), "");
}

TEST_F(MemoryLocaleTest, TheDecimalMarkCanBeThePoint) {
    watched.memory.locale.SetDecimalMark('.');
    EXPECT_EQ(watched.memory.locale.DecimalMark(), '.');
    EXPECT_EQ(Item(machine::LocaleDecimal), std::string(".\0", 2));
    EXPECT_EQ(Item(machine::LocaleMonetaryThousand), std::string(",\0", 2));
}

TEST_F(MemoryLocaleTest, FailsForAnUnknownItemOrASmallBuffer) {
    MemoryLocale& locale = watched.memory.locale;
    EXPECT_EQ(locale.GetLocaleInfoA(1043, 999, nullptr, 0), 0);
    char small = 'x';
    EXPECT_EQ(locale.GetLocaleInfoA(1043, machine::LocaleDecimal, &small, 1), 0);
    EXPECT_EQ(small, 'x');
    watched.memory.recorder.Fail("GetLocaleInfoA");
    EXPECT_EQ(locale.GetLocaleInfoA(1043, machine::LocaleDecimal, nullptr, 0), 0);
}

} // namespace
