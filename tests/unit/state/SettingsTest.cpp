#include "state/Settings.h"

#include <gtest/gtest.h>

#include "machine/Locale.h"
#include "memory/MemoryPlatform.h"

namespace state {
namespace {

TEST(SettingsTest, OnIsTheTextOneAlone) {
    EXPECT_TRUE(IsAan("1"));
    for (const char* text : {"", "0", "11", " 1", "-1", "ja"}) {
        EXPECT_FALSE(IsAan(text)) << text;
    }
}

TEST(SettingsTest, WhatIsWrittenIsReadAgain) {
    memory::MemoryPlatform memory;
    AppState settings;
    settings.SettingsKey = "Software\\Proef";
    SchrijfInstelling(settings, memory.registry, "Naam", "Voorbeeld");
    EXPECT_EQ(LeesInstelling(settings, memory.registry, "Naam"), "") << "no key is made";
    memory.registry.CreateKey(settings.SettingsKey);
    SchrijfInstelling(settings, memory.registry, "Naam", "Voorbeeld");
    EXPECT_EQ(LeesInstelling(settings, memory.registry, "Naam"), "Voorbeeld");
    EXPECT_EQ(LeesInstelling(settings, memory.registry, "Anders"), "");
}

TEST(SettingsTest, NumbersThatDoNotFitCountAsNone) {
    EXPECT_EQ(GetalInstelling("31"), 31);
    EXPECT_EQ(GetalInstelling(""), 0);
    EXPECT_EQ(GetalInstelling("40000"), 0);
}

TEST(LeesLocaleTekstTest, IsEmptyForAnItemThatFails) {
    struct Broken : machine::Locale {
        int calls = 0;
        int failAt;
        explicit Broken(int at) : failAt(at) {}
        std::int32_t GetUserDefaultLCID() override { return 0; }
        std::int32_t GetLocaleInfoA(std::int32_t, std::int32_t, char* buffer, std::int32_t size) override {
            if (++calls == failAt) {
                return 0;
            }
            if (buffer != nullptr && size >= 2) {
                buffer[0] = 'x';
                buffer[1] = '\0';
            }
            return 2;
        }
        char DecimalMark() override { return ','; }
        std::string ShortMonthName(int) override { return {}; }
    };
    Broken first(1);
    EXPECT_EQ(LeesLocaleTekst(first, 0, machine::LocaleCurrencySymbol), "");
    Broken second(2);
    EXPECT_EQ(LeesLocaleTekst(second, 0, machine::LocaleCurrencySymbol), "");
    Broken none(0);
    EXPECT_EQ(LeesLocaleTekst(none, 0, machine::LocaleCurrencySymbol), "x");
}

} // namespace
} // namespace state
