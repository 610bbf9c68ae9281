#include "state/Settings.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace state
