#include "machine/modRegistry.h"

#include <array>
#include <limits>

#include "base/Text.h"

namespace machine {
namespace {

struct RootName {
    RegistryKey hKey;
    const char* Name;
};

constexpr std::array<RootName, 4> RootNames = {{
    {HkeyClassesRoot, "HKEY_CLASSES_ROOT"},
    {HkeyCurrentUser, "HKEY_CURRENT_USER"},
    {HkeyLocalMachine, "HKEY_LOCAL_MACHINE"},
    {HkeyUsers, "HKEY_USERS"},
}};

constexpr char Nul = '\0';

} // namespace

std::string machine::modRegistry::GetRegistryValue(RegistryKey hRoot, const std::string& strKey,
                                                   const std::string& strValueName) const {
    std::string strValue;
    RegistryKey hKey = 0;
    if (OpenRegistryKey(hRoot, strKey, hKey)) {
        QueryStringValue(hKey, strValueName, strValue);
        CloseRegistryKey(hKey);
    }
    if (strValue.size() == 1 && strValue.front() == Nul) {
        strValue.clear();
    }
    return strValue;
}

bool machine::modRegistry::SetRegistryValue(RegistryKey hRoot, const std::string& strKey,
                                            const std::string& strValueName,
                                            const std::string& strValue) const {
    RegistryKey hKey = 0;
    if (!OpenRegistryKey(hRoot, strKey, hKey)) {
        return false;
    }
    return WriteStringValue(hKey, strValueName, strValue); // the handle is left open on purpose
}

bool machine::modRegistry::OpenRegistryKey(RegistryKey hRoot, const std::string& strKey,
                                           RegistryKey& hKey) const {
    return registry_.RegOpenKeyA(hRoot, base::text::ToCodePage(strKey), hKey) == RegSuccess;
}

bool machine::modRegistry::CloseRegistryKey(RegistryKey hKey) const {
    return registry_.RegCloseKey(hKey) == RegSuccess;
}

bool machine::modRegistry::QueryStringValue(RegistryKey hKey, const std::string& strValueName,
                                            std::string& strValue) const {
    const std::string name = base::text::ToCodePage(strValueName);
    std::uint32_t type = RegNone;
    std::uint32_t size = 0;
    if (registry_.RegQueryValueExA(hKey, name, type, nullptr, size) != RegSuccess || type != RegSz) {
        return false;
    }
    // The buffer counts whole: a value that got shorter between the two calls keeps blanks behind it.
    std::string buffer(size, ' ');
    if (registry_.RegQueryValueExA(hKey, name, type, buffer.data(), size) != RegSuccess) {
        return false;
    }
    strValue = StripTrailingNul(base::text::FromCodePage(buffer));
    return true;
}

bool machine::modRegistry::WriteStringValue(RegistryKey hKey, const std::string& strValueName,
                                            const std::string& strValue) const {
    if (hKey == 0) {
        return false;
    }
    const std::string bytes = base::text::ToCodePage(strValue) + Nul;
    return registry_.RegSetValueExA(hKey, base::text::ToCodePage(strValueName), RegSz, bytes) == RegSuccess;
}

std::string machine::modRegistry::StripTrailingNul(const std::string& strValue) {
    if (strValue.size() >= 2 && strValue.back() == Nul) {
        return strValue.substr(0, strValue.size() - 1);
    }
    return strValue;
}

std::string machine::modRegistry::RootKeyName(RegistryKey hKey) {
    for (const RootName& root : RootNames) {
        if (root.hKey == hKey) {
            return root.Name;
        }
    }
    return {};
}

std::string machine::modRegistry::KeyDisplayName(RegistryKey hKey) const {
    std::string root = RootKeyName(hKey);
    if (!root.empty()) {
        return root;
    }
    const std::int16_t index = FindOpenKey(hKey);
    return index < 0 ? std::string{} : OpenKeys[static_cast<std::size_t>(index)].strName;
}

std::int16_t machine::modRegistry::FindOpenKey(RegistryKey hKey) const {
    constexpr std::size_t lastIndex = std::numeric_limits<std::int16_t>::max();
    for (std::size_t i = 1; i < OpenKeys.size() && i <= lastIndex; ++i) {
        if (OpenKeys[i].hKey == hKey) {
            return static_cast<std::int16_t>(i);
        }
    }
    return -1;
}

} // namespace machine
