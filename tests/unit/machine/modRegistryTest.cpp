#include "machine/modRegistry.h"

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "memory/MemoryRegistry.h"

namespace {

using namespace machine;
using namespace std::string_literals;

const std::string SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";

/// Writes down every call and lets a test answer the second query as a registry that changed meanwhile.
class ScriptedRegistry : public Registry {
  public:
    std::vector<std::string> calls;
    std::string first = "A\0"s;
    std::string second = "A\0"s;
    std::uint32_t type = RegSz;
    std::int32_t secondResult = RegSuccess;
    std::string written;

    StoreCondition Condition(const std::string&) override { return {}; }
    std::int32_t RegOpenKeyA(RegistryKey, const std::string& path, RegistryKey& opened) override {
        calls.push_back("open " + path);
        opened = 77;
        return RegSuccess;
    }
    std::int32_t RegCloseKey(RegistryKey closed) override {
        calls.push_back("close " + std::to_string(closed));
        return RegSuccess;
    }
    std::int32_t RegQueryValueExA(RegistryKey, const std::string& name, std::uint32_t& typeOut, char* data,
                                  std::uint32_t& size) override {
        calls.push_back((data == nullptr ? "size " : "data ") + name);
        typeOut = type;
        if (data == nullptr) {
            size = static_cast<std::uint32_t>(first.size());
            return RegSuccess;
        }
        EXPECT_EQ(std::string(data, size), std::string(first.size(), ' '));
        if (secondResult == RegSuccess) {
            second.copy(data, size);
            size = static_cast<std::uint32_t>(second.size());
        }
        return secondResult;
    }
    std::int32_t RegSetValueExA(RegistryKey, const std::string& name, std::uint32_t typeIn,
                                std::string_view bytes) override {
        calls.push_back("set " + name + " " + std::to_string(typeIn));
        written = bytes;
        return RegSuccess;
    }
};

class modRegistryTest : public testing::Test {
  protected:
    std::string Read(const std::string& name) const {
        return settings.GetRegistryValue(HkeyCurrentUser, SettingsPath, name);
    }
    bool Write(const std::string& name, const std::string& text) const {
        return settings.SetRegistryValue(HkeyCurrentUser, SettingsPath, name, text);
    }

    memory::MemoryRegistry registry;
    modRegistry settings{registry};
};

TEST_F(modRegistryTest, ReadsAText) {
    registry.SetText(SettingsPath, "GMUContractVorm", "31");
    EXPECT_EQ(Read("GMUContractVorm"), "31");
    EXPECT_EQ(Read("gmucontractvorm"), "31");
}

TEST_F(modRegistryTest, EmptyValueReadsAsEmpty) {
    registry.SetText(SettingsPath, "GMUCode", "");
    EXPECT_EQ(Read("GMUCode"), "");
}

TEST_F(modRegistryTest, OneCharacterIsStoredAsTwoBytes) {
    registry.SetBytes(SettingsPath, "GMUCode", RegSz, "A\0"s);
    EXPECT_EQ(Read("GMUCode"), "A");
}

TEST_F(modRegistryTest, ValueWithoutClosingNulReadsWhole) {
    registry.SetBytes(SettingsPath, "a", RegSz, "A");
    registry.SetBytes(SettingsPath, "b", RegSz, "AB");
    registry.SetBytes(SettingsPath, "c", RegSz, "");
    EXPECT_EQ(Read("a"), "A");
    EXPECT_EQ(Read("b"), "AB");
    EXPECT_EQ(Read("c"), "");
}

TEST_F(modRegistryTest, OtherTypesReadAsEmpty) {
    registry.SetNumber(SettingsPath, "GMUVerkeer", 1);
    registry.SetBytes(SettingsPath, "expandable", 2, "A\0"s);
    registry.SetBytes(SettingsPath, "none", RegNone, "A\0"s);
    EXPECT_EQ(Read("GMUVerkeer"), "");
    EXPECT_EQ(Read("expandable"), "");
    EXPECT_EQ(Read("none"), "");
}

TEST_F(modRegistryTest, MissingKeyReadsAsEmptyAndOpensNothing) {
    EXPECT_EQ(Read("GMUVerkeer"), "");
    EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(modRegistryTest, MissingValueReadsAsEmptyAndClosesTheKey) {
    registry.CreateKey(SettingsPath);
    EXPECT_EQ(Read("GMUVerkeer"), "");
    EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(modRegistryTest, WritingIntoAMissingKeyFailsAndCreatesNothing) {
    EXPECT_FALSE(Write("GMUFontSize", "12"));
    EXPECT_FALSE(registry.HasKey(SettingsPath));
    EXPECT_FALSE(registry.HasKey("Software"));
}

TEST_F(modRegistryTest, WritesAndReadsBack) {
    registry.CreateKey(SettingsPath);
    EXPECT_TRUE(Write("GMUFontSize", "12"));
    EXPECT_EQ(Read("GMUFontSize"), "12");
    EXPECT_TRUE(Write("GMUFontSize", "10"));
    EXPECT_EQ(Read("GMUFontSize"), "10");
}

TEST_F(modRegistryTest, RefusedWriteAnswersFalse) {
    registry.SetText(SettingsPath, "GMUFontSize", "10");
    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegSetValueExA"; };
    EXPECT_FALSE(Write("GMUFontSize", "12"));
    EXPECT_EQ(Read("GMUFontSize"), "10");
}

TEST_F(modRegistryTest, ReadThatFailsGivesEmptyAndClosesTheKey) {
    registry.SetText(SettingsPath, "GMUFontSize", "10");
    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegQueryValueExA"; };
    EXPECT_EQ(Read("GMUFontSize"), "");
    EXPECT_EQ(registry.OpenHandles(), 0U);
}

TEST_F(modRegistryTest, ReadingClosesItsHandleAndWritingDoesNot) {
    registry.SetText(SettingsPath, "GMUFontSize", "10");
    Read("GMUFontSize");
    EXPECT_EQ(registry.OpenHandles(), 0U);
    Write("GMUFontSize", "12");
    Write("GMUFontSize", "12");
    EXPECT_EQ(registry.OpenHandles(), 2U);
    Read("GMUFontSize");
    EXPECT_EQ(registry.OpenHandles(), 2U);
}

TEST_F(modRegistryTest, RefusedWriteLeavesItsHandleOpenToo) {
    registry.CreateKey(SettingsPath);
    registry.ShouldFail = [](const char* call) { return std::string(call) == "RegSetValueExA"; };
    Write("GMUFontSize", "12");
    EXPECT_EQ(registry.OpenHandles(), 1U);
}

TEST_F(modRegistryTest, EmptyTextIsStoredAsOneNul) {
    ScriptedRegistry script;
    EXPECT_TRUE(modRegistry(script).SetRegistryValue(HkeyCurrentUser, SettingsPath, "CurrentPrinter", ""));
    EXPECT_EQ(script.written, "\0"s);

    registry.CreateKey(SettingsPath);
    Write("CurrentPrinter", "");
    EXPECT_EQ(Read("CurrentPrinter"), "");
    EXPECT_EQ(registry.Text(SettingsPath, "CurrentPrinter"), "");
}

TEST_F(modRegistryTest, ReadingMakesFourCallsInOrder) {
    ScriptedRegistry script;
    EXPECT_EQ(modRegistry(script).GetRegistryValue(HkeyCurrentUser, "Software", "naam"), "A");
    EXPECT_EQ(script.calls,
              (std::vector<std::string>{"open Software", "size naam", "data naam", "close 77"}));
}

TEST_F(modRegistryTest, WritingMakesTwoCallsAsText) {
    ScriptedRegistry script;
    EXPECT_TRUE(modRegistry(script).SetRegistryValue(HkeyCurrentUser, "Software", "naam", "waarde"));
    EXPECT_EQ(script.calls, (std::vector<std::string>{"open Software", "set naam 1"}));
    EXPECT_EQ(script.written, "waarde\0"s);
}

TEST_F(modRegistryTest, OtherTypeIsNotAskedForItsData) {
    ScriptedRegistry script;
    script.type = RegDword;
    EXPECT_EQ(modRegistry(script).GetRegistryValue(HkeyCurrentUser, "Software", "naam"), "");
    EXPECT_EQ(script.calls, (std::vector<std::string>{"open Software", "size naam", "close 77"}));
}

TEST_F(modRegistryTest, ValueThatGrewBetweenTheCallsIsNoValue) {
    ScriptedRegistry script;
    script.secondResult = RegMoreData;
    std::string text = "as it was";
    EXPECT_FALSE(modRegistry(script).QueryStringValue(77, "naam", text));
    EXPECT_EQ(text, "as it was");
}

TEST_F(modRegistryTest, ValueThatShrankBetweenTheCallsKeepsItsBlanks) {
    ScriptedRegistry script;
    script.first = "ABCD\0"s;
    script.second = "A\0"s;
    EXPECT_EQ(modRegistry(script).GetRegistryValue(HkeyCurrentUser, "Software", "naam"), "A\0   "s);
}

TEST_F(modRegistryTest, QueryLeavesTheTextAloneOnFailure) {
    registry.SetNumber(SettingsPath, "number", 1);
    RegistryKey handle = 0;
    ASSERT_TRUE(settings.OpenRegistryKey(HkeyCurrentUser, SettingsPath, handle));
    std::string text = "as it was";
    EXPECT_FALSE(settings.QueryStringValue(handle, "number", text));
    EXPECT_FALSE(settings.QueryStringValue(handle, "missing", text));
    EXPECT_FALSE(settings.QueryStringValue(handle + 1, "number", text));
    EXPECT_EQ(text, "as it was");
}

TEST_F(modRegistryTest, QueryOfAnEmptyValueGivesItsNul) {
    registry.SetText(SettingsPath, "empty", "");
    RegistryKey handle = 0;
    ASSERT_TRUE(settings.OpenRegistryKey(HkeyCurrentUser, SettingsPath, handle));
    std::string text;
    EXPECT_TRUE(settings.QueryStringValue(handle, "empty", text));
    EXPECT_EQ(text, "\0"s);
}

TEST_F(modRegistryTest, OpensAndClosesExistingKeysOnly) {
    registry.CreateKey(SettingsPath);
    RegistryKey handle = 0;
    EXPECT_FALSE(settings.OpenRegistryKey(HkeyCurrentUser, SettingsPath + "\\PrinterSetting", handle));
    EXPECT_FALSE(settings.OpenRegistryKey(HkeyLocalMachine, SettingsPath, handle));
    EXPECT_EQ(handle, 0U);
    EXPECT_TRUE(settings.OpenRegistryKey(HkeyCurrentUser, SettingsPath, handle));
    EXPECT_TRUE(settings.CloseRegistryKey(handle));
    EXPECT_FALSE(settings.CloseRegistryKey(handle));
}

TEST_F(modRegistryTest, HandleZeroIsRefusedWithoutACall) {
    ScriptedRegistry script;
    EXPECT_FALSE(modRegistry(script).WriteStringValue(0, "naam", "waarde"));
    EXPECT_TRUE(script.calls.empty());
}

TEST_F(modRegistryTest, TextPassesInTheCodePage) {
    ScriptedRegistry script;
    modRegistry(script).SetRegistryValue(HkeyCurrentUser, "Café", "prijs €", "Zoë – één");
    EXPECT_EQ(script.calls, (std::vector<std::string>{"open Caf\xE9", "set prijs \x80 1"}));
    EXPECT_EQ(script.written, "Zo\xEB \x96 \xE9\xE9n\0"s);
    script.first = script.second = "\x80 10\0"s;
    EXPECT_EQ(modRegistry(script).GetRegistryValue(HkeyCurrentUser, "Café", "prijs"), "€ 10");
}

TEST_F(modRegistryTest, CharacterOutsideTheCodePageBecomesAQuestionMark) {
    registry.CreateKey(SettingsPath);
    EXPECT_TRUE(Write("naam", "Ωmega 😀"));
    EXPECT_EQ(Read("naam"), "?mega ?");
}

TEST_F(modRegistryTest, AnyLengthGoesThrough) {
    registry.CreateKey(SettingsPath);
    std::string text;
    for (int i = 0; i < 200'000; ++i) {
        text += i % 7 == 0 ? "é" : "x";
    }
    EXPECT_TRUE(Write("naam", text));
    EXPECT_EQ(Read("naam"), text);
}

TEST_F(modRegistryTest, NulsInsideATextStay) {
    registry.CreateKey(SettingsPath);
    EXPECT_TRUE(Write("inside", "A\0B"s));
    EXPECT_EQ(Read("inside"), "A\0B"s);
    EXPECT_TRUE(Write("behind", "A\0"s));
    EXPECT_EQ(Read("behind"), "A\0"s); // the closing one alone is taken off
    EXPECT_TRUE(Write("alone", "\0"s));
    EXPECT_EQ(Read("alone"), "");
}

TEST_F(modRegistryTest, StripTrailingNulTakesOneOffAndLeavesALoneOne) {
    EXPECT_EQ(modRegistry::StripTrailingNul(""), "");
    EXPECT_EQ(modRegistry::StripTrailingNul("\0"s), "\0"s);
    EXPECT_EQ(modRegistry::StripTrailingNul("A"), "A");
    EXPECT_EQ(modRegistry::StripTrailingNul("A\0"s), "A");
    EXPECT_EQ(modRegistry::StripTrailingNul("\0\0"s), "\0"s);
    EXPECT_EQ(modRegistry::StripTrailingNul("A\0\0"s), "A\0"s);
    EXPECT_EQ(modRegistry::StripTrailingNul("A\0B"s), "A\0B"s);
}

TEST_F(modRegistryTest, RootsHaveTheirNames) {
    EXPECT_EQ(modRegistry::RootKeyName(0x80000000U), "HKEY_CLASSES_ROOT");
    EXPECT_EQ(modRegistry::RootKeyName(0x80000001U), "HKEY_CURRENT_USER");
    EXPECT_EQ(modRegistry::RootKeyName(0x80000002U), "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(modRegistry::RootKeyName(0x80000003U), "HKEY_USERS");
    EXPECT_EQ(modRegistry::RootKeyName(0x80000004U), "");
    EXPECT_EQ(modRegistry::RootKeyName(0x7FFFFFFFU), "");
    EXPECT_EQ(modRegistry::RootKeyName(0), "");
}

TEST_F(modRegistryTest, DisplayNameKnowsTheRootsAlone) {
    registry.CreateKey(SettingsPath);
    RegistryKey handle = 0;
    ASSERT_TRUE(settings.OpenRegistryKey(HkeyCurrentUser, SettingsPath, handle));
    EXPECT_EQ(settings.KeyDisplayName(HkeyUsers), "HKEY_USERS");
    EXPECT_EQ(settings.KeyDisplayName(handle), "");
    EXPECT_EQ(settings.FindOpenKey(handle), -1);
    EXPECT_TRUE(settings.OpenKeys.empty());
}

TEST_F(modRegistryTest, OpenKeysAreSearchedFromIndexOne) {
    settings.OpenKeys = {{5, "first"}, {6, "second"}, {7, "third"}, {6, "again"}};
    EXPECT_EQ(settings.FindOpenKey(5), -1);
    EXPECT_EQ(settings.FindOpenKey(6), 1);
    EXPECT_EQ(settings.FindOpenKey(7), 2);
    EXPECT_EQ(settings.FindOpenKey(8), -1);
    EXPECT_EQ(settings.KeyDisplayName(7), "third");
    EXPECT_EQ(settings.KeyDisplayName(5), "");
}

} // namespace
