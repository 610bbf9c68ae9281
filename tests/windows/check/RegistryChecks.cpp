#include <string>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/WinRegistry.h"
#include "machine/modRegistry.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

constexpr const wchar_t* Path = L"Software\\Drukkeuring check";
constexpr const char* PathA = "Software\\Drukkeuring check";

/// A key of the check's own, gone at its end.
class OwnKey {
  public:
    OwnKey() {
        ::RegCreateKeyExW(HKEY_CURRENT_USER, Path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    ~OwnKey() {
        ::RegCloseKey(key_);
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Path);
    }
    OwnKey(const OwnKey&) = delete;
    OwnKey& operator=(const OwnKey&) = delete;

    void Set(const wchar_t* name, DWORD type, const void* bytes, DWORD size) {
        ::RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(bytes), size);
    }
    std::wstring Text(const wchar_t* name) {
        wchar_t text[64]{};
        DWORD size = sizeof text - sizeof(wchar_t);
        ::RegQueryValueExW(key_, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
        return text;
    }

    DWORD Count() {
        DWORD values = 0;
        ::RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr,
                           nullptr, nullptr, nullptr);
        return values;
    }

  private:
    HKEY key_ = nullptr;
};

void CheckSettings(OwnKey& own) {
    WinRegistry registry;
    const machine::modRegistry settings(registry);
    const auto read = [&settings](const char* name) {
        return settings.GetRegistryValue(machine::HkeyCurrentUser, PathA, name);
    };

    own.Set(L"Stad", REG_SZ, L"K\u00F6ln \u20AC", 14);
    CheckEqual(read("Stad"), "Köln €", "a text of another program is read with its accents");
    own.Set(L"Pl\u00EBk", REG_SZ, L"x", 4);
    CheckEqual(read("Plëk"), "x", "a name with an accent is found");
    own.Set(L"Leeg", REG_SZ, L"", 2);
    CheckEqual(read("Leeg"), "", "an empty text reads as empty");
    const DWORD number = 7;
    own.Set(L"Getal", REG_DWORD, &number, sizeof number);
    CheckEqual(read("Getal"), "", "a number counts as absent");
    CheckEqual(read("Ontbreekt"), "", "a value that is not there reads as empty");

    Check(settings.SetRegistryValue(machine::HkeyCurrentUser, PathA, "Naam", "Zoë Smørgås"),
          "a text is written");
    Check(own.Text(L"Naam") == L"Zo\u00EB Sm\u00F8rg\u00E5s", "another program reads it with its accents");
    CheckEqual(read("Naam"), "Zoë Smørgås", "it reads back as it was written");
    Check(settings.SetRegistryValue(machine::HkeyCurrentUser, PathA, "Naam", ""), "an empty text is written");
    CheckEqual(read("Naam"), "", "and reads back as empty");
    Check(
        !settings.SetRegistryValue(machine::HkeyCurrentUser, "Software\\Drukkeuring is er niet", "Naam", "x"),
        "a text for a key that does not exist is not written");
    HKEY created = nullptr;
    CheckEqual(::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Drukkeuring is er niet", 0, KEY_READ, &created),
               ERROR_FILE_NOT_FOUND, "and the key is not created");
    CheckEqual(read("Nieuw"), "", "a value that is asked for");
    CheckEqual(own.Count(), 5, "is not created either");
    const std::string longText(20000, 'a');
    Check(settings.SetRegistryValue(machine::HkeyCurrentUser, PathA, "Lang", longText) &&
              read("Lang") == longText,
          "a long text comes back whole");
}

void CheckCalls(OwnKey& own) {
    WinRegistry registry;
    machine::RegistryKey key = 0;
    CheckEqual(registry.RegOpenKeyA(machine::HkeyCurrentUser, PathA, key), machine::RegSuccess,
               "the key opens");
    machine::RegistryKey root = 0;
    CheckEqual(registry.RegOpenKeyA(machine::HkeyCurrentUser, "", root), machine::RegSuccess,
               "an empty path is the root");
    CheckEqual(registry.RegOpenKeyA(machine::HkeyCurrentUser, "Nergens", root), machine::RegFileNotFound,
               "a key that is not there is not found");

    own.Set(L"Tekst", REG_SZ, L"abc", 8);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    CheckEqual(registry.RegQueryValueExA(key, "Tekst", type, nullptr, size), machine::RegSuccess,
               "a value without a buffer tells its size");
    CheckEqual(size, 4, "which counts the closing NUL");
    CheckEqual(type, machine::RegSz, "and its type");
    char data[8] = {};
    size = 2;
    CheckEqual(registry.RegQueryValueExA(key, "Tekst", type, data, size), machine::RegMoreData,
               "a buffer that is too small is told");
    size = sizeof data;
    CheckEqual(registry.RegQueryValueExA(key, "Tekst", type, data, size), machine::RegSuccess,
               "the text is read");
    CheckEqual(data, "abc", "it is the text");
    CheckEqual(registry.RegQueryValueExA(key, "Niets", type, data, size), machine::RegFileNotFound,
               "a value that is not there is not found");
    CheckEqual(registry.RegCloseKey(key), machine::RegSuccess, "the key closes");
    CheckEqual(registry.RegCloseKey(key), machine::RegInvalidHandle, "and closes once");
    CheckEqual(registry.RegQueryValueExA(key, "Tekst", type, data, size), machine::RegInvalidHandle,
               "a closed key reads nothing");
}

/// A key without the right to read it, a question after which it has gone: both are no absence.
void CheckRefusals() {
    int told = 0;
    WinRegistry registry([&told](const std::string&) { ++told; });
    const machine::modRegistry settings(registry);
    settings.GetRegistryValue(machine::HkeyCurrentUser, "Software\\Drukkeuring is er niet", "Naam");
    settings.GetRegistryValue(machine::HkeyCurrentUser, PathA, "Ontbreekt");
    CheckEqual(told, 0, "nobody is told of what is not there");

    HKEY key = nullptr;
    ::RegOpenKeyExW(HKEY_CURRENT_USER, Path, 0, KEY_SET_VALUE, &key); // and not KEY_QUERY_VALUE
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    const auto ask = [&] {
        return registry.RegQueryValueExA(reinterpret_cast<machine::RegistryKey>(key), "Naam", type, nullptr,
                                         size);
    };
    CheckEqual(ask(), machine::RegAccessDenied, "a key that may not be read refuses");
    ask();
    CheckEqual(told, 1, "which is told once");
    settings.SetRegistryValue(machine::HkeyCurrentUser, PathA, "Naam", "x");
    CheckEqual(settings.GetRegistryValue(machine::HkeyCurrentUser, PathA, "Naam"), "x",
               "a value that is read again");
    ask();
    CheckEqual(told, 2, "makes the next refusal a new one");
    ::RegCloseKey(key);
}

void CheckConditions() {
    WinRegistry registry([](const std::string& text) { Check(false, text); });
    Check(registry.Condition(PathA).Trouble == machine::StoreTrouble::None,
          "a key that is there has no trouble");
    const machine::StoreCondition gone = registry.Condition("Software\\Drukkeuring is er niet");
    Check(gone.Trouble == machine::StoreTrouble::Missing, "a key that is not there is missing");
    CheckEqual(gone.Where, "HKEY_CURRENT_USER\\Software\\Drukkeuring is er niet", "it is told by its path");
    Check(!gone.Reason.empty(), "and in the system's words");

    HKEY locked = nullptr;
    ::RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Drukkeuring check\\Dicht", 0, nullptr, 0, KEY_ALL_ACCESS,
                      nullptr, &locked, nullptr);
    SECURITY_DESCRIPTOR nobody{};
    ::InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION);
    ACL none{};
    ::InitializeAcl(&none, sizeof none, ACL_REVISION);
    ::SetSecurityDescriptorDacl(&nobody, TRUE, &none, FALSE);
    CheckEqual(::RegSetKeySecurity(locked, DACL_SECURITY_INFORMATION, &nobody), ERROR_SUCCESS,
               "a key can be locked");
    const machine::StoreCondition refused = registry.Condition("Software\\Drukkeuring check\\Dicht");
    Check(refused.Trouble == machine::StoreTrouble::Unreadable, "a key that nobody may read is unreadable");
    Check(!refused.Reason.empty(), "in the system's words");
    ::RegCloseKey(locked);
}

} // namespace

void CheckRegistry() {
    OwnKey own;
    CheckSettings(own);
    CheckRefusals();
    CheckConditions();
    CheckCalls(own);
}
