#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "machine/Registry.h"

namespace machine {

/// The program's whole access to its settings: text values under keys of the main application. It creates no
/// key, deletes nothing and knows no default: an absent value reads as the empty text, and a value of another
/// type than text counts as absent. Texts are UTF-8 here and in the machine's code page at the registry's
/// calls. No operation throws or shows a message.
class modRegistry {
  public:
    /// A key that is known to be open, with the name to show for it.
    struct OpenKey {
        RegistryKey hKey = 0;
        std::string strName;
    };

    explicit modRegistry(Registry& registry) : registry_(registry) {}

    /// The value's text; empty if the key or the value is missing or is no text.
    std::string GetRegistryValue(RegistryKey hRoot, const std::string& strKey,
                                 const std::string& strValueName) const;

    /// True if the value was written; a key that does not exist is not created. The key's handle stays open
    /// to the end of the process.
    bool SetRegistryValue(RegistryKey hRoot, const std::string& strKey, const std::string& strValueName,
                          const std::string& strValue) const;

    /// True if the key exists and was opened into `hKey`.
    bool OpenRegistryKey(RegistryKey hRoot, const std::string& strKey, RegistryKey& hKey) const;
    bool CloseRegistryKey(RegistryKey hKey) const;

    /// True if a text was read; else `strValue` stays as it was. An empty value gives a single NUL.
    bool QueryStringValue(RegistryKey hKey, const std::string& strValueName, std::string& strValue) const;

    /// True if the text was written with its closing NUL. Handle 0 is refused without a call.
    bool WriteStringValue(RegistryKey hKey, const std::string& strValueName,
                          const std::string& strValue) const;

    /// Without one closing NUL; a text of one character alone stays as it is.
    static std::string StripTrailingNul(const std::string& strValue);

    /// "HKEY_CURRENT_USER" and so on; empty if the handle is no predefined root.
    static std::string RootKeyName(RegistryKey hKey);

    /// The root's name or else the name in OpenKeys; empty if neither knows the handle.
    std::string KeyDisplayName(RegistryKey hKey) const;

    /// Index in OpenKeys, from 1 on, or -1.
    std::int16_t FindOpenKey(RegistryKey hKey) const;

    /// Nothing in the program fills this table; element 0 is never looked at.
    std::vector<OpenKey> OpenKeys;

  private:
    Registry& registry_;
};

} // namespace machine
