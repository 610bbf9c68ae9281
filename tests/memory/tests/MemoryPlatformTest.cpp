#include "memory/MemoryPlatform.h"

#include <gmock/gmock.h>

#include "machine/modRegistry.h"
#include "memory/tests/Events.h"

namespace {

using namespace memory;
using testing::ElementsAre;

const std::string OndorPath = R"(Software\Ondor)";

TEST(MemoryPlatformTest, BundlesItsParts) {
    MemoryPlatform memory;
    const machine::Platform& services = memory.Services();
    EXPECT_EQ(&services.Desktop, &memory.desktop);
    EXPECT_EQ(&services.Registry, &memory.registry);
    EXPECT_EQ(&services.Locale, &memory.locale);
    EXPECT_EQ(&services.Clock, &memory.clock);
    EXPECT_EQ(&services.Random, &memory.random);
    EXPECT_EQ(&services.Spooler, &memory.spooler);
    EXPECT_EQ(&services.Printers, &memory.printers);
    EXPECT_EQ(&services.Printer, &memory.printer);
}

TEST(MemoryPlatformTest, RecordsWritesToTheStore) {
    WatchedPlatform watched;
    watched.memory.registry.CreateKey(OndorPath);
    const machine::modRegistry registry(watched.memory.registry);
    EXPECT_TRUE(registry.SetRegistryValue(machine::HkeyCurrentUser, OndorPath, "GMUFontSize", "12"));
    watched.memory.recorder.Fail("RegSetValueExA");
    EXPECT_FALSE(registry.SetRegistryValue(machine::HkeyCurrentUser, OndorPath, "GMUFontSize", "13"));
    const auto store = [](const char* value, bool ok) {
        return Event{"store", {{"path", OndorPath}, {"name", "GMUFontSize"}, {"value", value}, {"ok", ok}}};
    };
    EXPECT_THAT(watched.events, ElementsAre(store("12", true), store("13", false)));
    EXPECT_EQ(registry.GetRegistryValue(machine::HkeyCurrentUser, OndorPath, "GMUFontSize"), "12");
}

TEST(MemoryPlatformTest, TheStoreCanFailToOpen) {
    WatchedPlatform watched;
    watched.memory.registry.SetText(OndorPath, "A", "1");
    const machine::modRegistry registry(watched.memory.registry);
    watched.memory.recorder.Fail("RegOpenKeyA");
    EXPECT_EQ(registry.GetRegistryValue(machine::HkeyCurrentUser, OndorPath, "A"), "");
    EXPECT_EQ(registry.GetRegistryValue(machine::HkeyCurrentUser, OndorPath, "A"), "1");
}

TEST(MemoryPlatformTest, TheClockStandsWhereItIsSet) {
    MemoryClock clock;
    EXPECT_GE(clock.Now().Year, 2020) << "the machine's own time until then";
    clock.Set({2014, 2, 28, 23, 59, 58, 500});
    EXPECT_EQ(clock.Now().Day, 28);
    EXPECT_DOUBLE_EQ(clock.Now().SecondsSinceMidnight(), 86398.5);
}

TEST(MemoryPlatformTest, ASeededGeneratorIgnoresTheClock) {
    MemoryRandom one;
    MemoryRandom other;
    one.Seed(7);
    other.Seed(7);
    one.Randomize(1);
    other.Randomize(2);
    EXPECT_EQ(one.Rnd(), other.Rnd());
    MemoryRandom unseeded;
    MemoryRandom unseededToo;
    unseeded.Randomize(1);
    unseededToo.Randomize(2);
    EXPECT_NE(unseeded.Rnd(), unseededToo.Rnd());
}

} // namespace
