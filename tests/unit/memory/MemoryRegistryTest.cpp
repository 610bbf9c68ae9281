#include "memory/MemoryRegistry.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace platform;
using namespace std::string_literals;

class MemoryRegistryTest : public testing::Test {
  protected:
    RegistryKey Open(const std::string& path) {
        RegistryKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyA(HkeyCurrentUser, path, key), RegSuccess) << path;
        return key;
    }

    MemoryRegistry registry;
    std::uint32_t type = 99;
    std::uint32_t size = 0;
};

TEST_F(MemoryRegistryTest, KeysCreateThoseAboveThem) {
    registry.CreateKey("Software\\Ondor\\Tarvik");
    EXPECT_TRUE(registry.HasKey("SOFTWARE\\ondor"));
    EXPECT_FALSE(registry.HasKey("Software\\Ondor\\Tarvik\\CurrentVersion"));
}

TEST_F(MemoryRegistryTest, RemovingAKeyTakesAllBelowButNotItsNeighbour) {
    registry.SetText("A\\B\\C", "x", "1");
    registry.CreateKey("A\\BB");
    registry.RemoveKey("a\\b");
    EXPECT_TRUE(registry.HasKey("A"));
    EXPECT_TRUE(registry.HasKey("A\\BB"));
    EXPECT_FALSE(registry.HasKey("A\\B"));
    EXPECT_FALSE(registry.HasKey("A\\B\\C"));
    EXPECT_EQ(registry.Text("A\\B\\C", "x"), std::nullopt);
}

TEST_F(MemoryRegistryTest, HandleOfARemovedKeyFindsNothing) {
    registry.SetText("A", "x", "1");
    const RegistryKey key = Open("A");
    registry.RemoveKey("A");
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), RegFileNotFound);
    EXPECT_EQ(registry.RegSetValueExA(key, "x", RegSz, "2\0"s), RegFileNotFound);
    EXPECT_FALSE(registry.HasKey("A"));
    EXPECT_EQ(registry.RegCloseKey(key), RegSuccess);
}

TEST_F(MemoryRegistryTest, TextIsHeldInTheCodePageWithItsNul) {
    registry.SetText("A", "x", "Zoë");
    char buffer[8] = {};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "X", type, buffer, size), RegSuccess);
    EXPECT_EQ(type, RegSz);
    EXPECT_EQ(std::string(buffer, size), "Zo\xEB\0"s);
    EXPECT_EQ(registry.Text("a", "X"), "Zoë");
}

TEST_F(MemoryRegistryTest, NumbersAreFourBytes) {
    registry.SetNumber("A", "n", 0x01020304);
    char buffer[4] = {};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "n", type, buffer, size), RegSuccess);
    EXPECT_EQ(type, RegDword);
    EXPECT_EQ(std::string(buffer, 4), "\x04\x03\x02\x01");
    EXPECT_EQ(registry.Text("A", "n"), std::nullopt);
}

TEST_F(MemoryRegistryTest, TooSmallABufferTellsTheSizeAndStaysUntouched) {
    registry.SetText("A", "x", "abc");
    char buffer[3] = {'#', '#', '#'};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "x", type, buffer, size), RegMoreData);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(std::string(buffer, 3), "###");
}

TEST_F(MemoryRegistryTest, RootsAreThereAndNeedNoHandle) {
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(HkeyLocalMachine, "", key), RegSuccess);
    EXPECT_EQ(registry.RegOpenKeyA(HkeyLocalMachine, "Software", key), RegFileNotFound);
    EXPECT_EQ(registry.RegSetValueExA(HkeyCurrentUser, "x", RegSz, "1\0"s), RegSuccess);
    EXPECT_EQ(registry.Text("", "x"), "1");
    EXPECT_EQ(registry.RegCloseKey(HkeyCurrentUser), RegSuccess);
}

TEST_F(MemoryRegistryTest, PathsBelowAnOpenKey) {
    registry.SetText("A\\B", "x", "1");
    RegistryKey below = 0;
    EXPECT_EQ(registry.RegOpenKeyA(Open("A"), "B", below), RegSuccess);
    EXPECT_EQ(registry.RegQueryValueExA(below, "x", type, nullptr, size), RegSuccess);
    EXPECT_EQ(size, 2U);
}

TEST_F(MemoryRegistryTest, CountsOpenHandlesAndRefusesUnknownOnes) {
    registry.CreateKey("A");
    const RegistryKey first = Open("A");
    const RegistryKey second = Open("A");
    EXPECT_NE(first, second);
    EXPECT_EQ(registry.OpenHandles(), 2U);
    EXPECT_EQ(registry.RegCloseKey(first), RegSuccess);
    EXPECT_EQ(registry.RegCloseKey(first), RegInvalidHandle);
    EXPECT_EQ(registry.OpenHandles(), 1U);
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(first, "A", key), RegInvalidHandle);
    EXPECT_EQ(registry.RegQueryValueExA(first, "x", type, nullptr, size), RegInvalidHandle);
    EXPECT_EQ(registry.RegSetValueExA(0, "x", RegSz, "1\0"s), RegInvalidHandle);
}

TEST_F(MemoryRegistryTest, NamesEndAtTheirFirstNul) {
    registry.SetText("A", "x", "1");
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(HkeyCurrentUser, "A\0B"s, key), RegSuccess);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x\0y"s, type, nullptr, size), RegSuccess);
}

TEST_F(MemoryRegistryTest, TellsOfEveryWrite) {
    std::vector<std::string> told;
    registry.OnWrite = [&told](const std::string& path, const std::string& name, const std::string& value,
                               bool ok) {
        told.push_back(path + "|" + name + "|" + value + (ok ? "|ok" : "|no"));
    };
    registry.CreateKey("Software\\Ondor");
    registry.SetText("Software\\Ondor", "quiet", "1");
    const RegistryKey key = Open("Software\\Ondor");
    EXPECT_EQ(registry.RegSetValueExA(key, "pr\xE9", RegSz, "\x80\0"s), RegSuccess);
    registry.ShouldFail = [](const char*) { return true; };
    EXPECT_EQ(registry.RegSetValueExA(key, "pr\xE9", RegSz, "2\0"s), RegAccessDenied);
    EXPECT_EQ(told, (std::vector<std::string>{"Software\\Ondor|pré|€|ok", "Software\\Ondor|pré|2|no"}));
    EXPECT_EQ(registry.Text("Software\\Ondor", "pré"), "€");
}

TEST_F(MemoryRegistryTest, CallsFailOnRequest) {
    registry.SetText("A", "x", "1");
    const RegistryKey key = Open("A");
    int left = 2;
    registry.ShouldFail = [&left](const char* call) {
        return std::string(call) == "RegQueryValueExA" && left-- > 0;
    };
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), RegAccessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), RegAccessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), RegSuccess);

    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegOpenKeyA"; };
    RegistryKey other = 0;
    EXPECT_EQ(registry.RegOpenKeyA(HkeyCurrentUser, "A", other), RegAccessDenied);
    EXPECT_EQ(registry.RegCloseKey(key), RegSuccess);
    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegCloseKey"; };
    EXPECT_EQ(registry.RegCloseKey(key), RegAccessDenied);
}

} // namespace
