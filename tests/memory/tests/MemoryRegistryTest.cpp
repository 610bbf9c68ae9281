#include "memory/MemoryRegistry.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace memory;
using namespace std::string_literals;

class MemoryRegistryTest : public testing::Test {
  protected:
    machine::RegistryKey Open(const std::string& path) {
        machine::RegistryKey key = 0;
        EXPECT_EQ(registry.RegOpenKeyA(machine::HkeyCurrentUser, path, key), machine::RegSuccess) << path;
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
    const machine::RegistryKey key = Open("A");
    registry.RemoveKey("A");
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), machine::RegFileNotFound);
    EXPECT_EQ(registry.RegSetValueExA(key, "x", machine::RegSz, "2\0"s), machine::RegFileNotFound);
    EXPECT_FALSE(registry.HasKey("A"));
    EXPECT_EQ(registry.RegCloseKey(key), machine::RegSuccess);
}

TEST_F(MemoryRegistryTest, TextIsHeldInTheCodePageWithItsNul) {
    registry.SetText("A", "x", "Zoë");
    char buffer[8] = {};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "X", type, buffer, size), machine::RegSuccess);
    EXPECT_EQ(type, machine::RegSz);
    EXPECT_EQ(std::string(buffer, size), "Zo\xEB\0"s);
    EXPECT_EQ(registry.Text("a", "X"), "Zoë");
}

TEST_F(MemoryRegistryTest, NumbersAreFourBytes) {
    registry.SetNumber("A", "n", 0x01020304);
    char buffer[4] = {};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "n", type, buffer, size), machine::RegSuccess);
    EXPECT_EQ(type, machine::RegDword);
    EXPECT_EQ(std::string(buffer, 4), "\x04\x03\x02\x01");
    EXPECT_EQ(registry.Text("A", "n"), std::nullopt);
}

TEST_F(MemoryRegistryTest, TooSmallABufferTellsTheSizeAndStaysUntouched) {
    registry.SetText("A", "x", "abc");
    char buffer[3] = {'#', '#', '#'};
    size = sizeof buffer;
    EXPECT_EQ(registry.RegQueryValueExA(Open("A"), "x", type, buffer, size), machine::RegMoreData);
    EXPECT_EQ(size, 4U);
    EXPECT_EQ(std::string(buffer, 3), "###");
}

TEST_F(MemoryRegistryTest, RootsAreThereAndNeedNoHandle) {
    machine::RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(machine::HkeyLocalMachine, "", key), machine::RegSuccess);
    EXPECT_EQ(registry.RegOpenKeyA(machine::HkeyLocalMachine, "Software", key), machine::RegFileNotFound);
    EXPECT_EQ(registry.RegSetValueExA(machine::HkeyCurrentUser, "x", machine::RegSz, "1\0"s),
              machine::RegSuccess);
    EXPECT_EQ(registry.Text("", "x"), "1");
    EXPECT_EQ(registry.RegCloseKey(machine::HkeyCurrentUser), machine::RegSuccess);
}

TEST_F(MemoryRegistryTest, PathsBelowAnOpenKey) {
    registry.SetText("A\\B", "x", "1");
    machine::RegistryKey below = 0;
    EXPECT_EQ(registry.RegOpenKeyA(Open("A"), "B", below), machine::RegSuccess);
    EXPECT_EQ(registry.RegQueryValueExA(below, "x", type, nullptr, size), machine::RegSuccess);
    EXPECT_EQ(size, 2U);
}

TEST_F(MemoryRegistryTest, CountsOpenHandlesAndRefusesUnknownOnes) {
    registry.CreateKey("A");
    const machine::RegistryKey first = Open("A");
    const machine::RegistryKey second = Open("A");
    EXPECT_NE(first, second);
    EXPECT_EQ(registry.OpenHandles(), 2U);
    EXPECT_EQ(registry.RegCloseKey(first), machine::RegSuccess);
    EXPECT_EQ(registry.RegCloseKey(first), machine::RegInvalidHandle);
    EXPECT_EQ(registry.OpenHandles(), 1U);
    machine::RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(first, "A", key), machine::RegInvalidHandle);
    EXPECT_EQ(registry.RegQueryValueExA(first, "x", type, nullptr, size), machine::RegInvalidHandle);
    EXPECT_EQ(registry.RegSetValueExA(0, "x", machine::RegSz, "1\0"s), machine::RegInvalidHandle);
}

TEST_F(MemoryRegistryTest, NamesEndAtTheirFirstNul) {
    registry.SetText("A", "x", "1");
    machine::RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyA(machine::HkeyCurrentUser, "A\0B"s, key), machine::RegSuccess);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x\0y"s, type, nullptr, size), machine::RegSuccess);
}

TEST_F(MemoryRegistryTest, TellsOfEveryWrite) {
    std::vector<std::string> told;
    registry.OnWrite = [&told](const std::string& path, const std::string& name, const std::string& value,
                               bool ok) {
        told.push_back(path + "|" + name + "|" + value + (ok ? "|ok" : "|no"));
    };
    registry.CreateKey("Software\\Ondor");
    registry.SetText("Software\\Ondor", "quiet", "1");
    const machine::RegistryKey key = Open("Software\\Ondor");
    EXPECT_EQ(registry.RegSetValueExA(key, "pr\xE9", machine::RegSz, "\x80\0"s), machine::RegSuccess);
    registry.ShouldFail = [](const char*) { return true; };
    EXPECT_EQ(registry.RegSetValueExA(key, "pr\xE9", machine::RegSz, "2\0"s), machine::RegAccessDenied);
    EXPECT_EQ(told, (std::vector<std::string>{"Software\\Ondor|pré|€|ok", "Software\\Ondor|pré|2|no"}));
    EXPECT_EQ(registry.Text("Software\\Ondor", "pré"), "€");
}

TEST_F(MemoryRegistryTest, CallsFailOnRequest) {
    registry.SetText("A", "x", "1");
    const machine::RegistryKey key = Open("A");
    int left = 2;
    registry.ShouldFail = [&left](const char* call) {
        return std::string(call) == "RegQueryValueExA" && left-- > 0;
    };
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), machine::RegAccessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), machine::RegAccessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(key, "x", type, nullptr, size), machine::RegSuccess);

    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegOpenKeyA"; };
    machine::RegistryKey other = 0;
    EXPECT_EQ(registry.RegOpenKeyA(machine::HkeyCurrentUser, "A", other), machine::RegAccessDenied);
    EXPECT_EQ(registry.RegCloseKey(key), machine::RegSuccess);
    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegCloseKey"; };
    EXPECT_EQ(registry.RegCloseKey(key), machine::RegAccessDenied);
}

} // namespace
