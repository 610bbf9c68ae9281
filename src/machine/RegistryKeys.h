#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "machine/Registry.h"

/// What every stand-in for the registry needs: how keys are named and compared, the handles of open keys, and
/// the way a query is answered.
namespace machine {

/// A key's or value's name as it is compared: capitals and small letters are the same to the registry.
std::string FoldedName(std::string_view name);

/// The names along a path. Backslashes in front, at the end or doubled count for nothing.
std::vector<std::string_view> KeyNames(std::string_view path);

/// A text as the registry's calls see it: up to its first NUL.
std::string_view UpToNul(std::string_view text);

/// Answers RegQueryValueExA for a value of these bytes: its size and, where `data` is given, the bytes.
std::int32_t AnswerQuery(std::string_view bytes, char* data, std::uint32_t& size);

/// The handles that are open and the full paths they stand for, root name first
/// ("HKEY_CURRENT_USER\Software").
class OpenRegistryKeys {
  public:
    RegistryKey Open(std::string path);

    /// False for a number that is no open handle. A predefined root closes without effect.
    bool Close(RegistryKey key);

    /// Path of an open handle or of a predefined root.
    std::optional<std::string> PathOf(RegistryKey key) const;

    std::size_t Count() const { return paths_.size(); }

  private:
    std::map<RegistryKey, std::string> paths_;
};

} // namespace machine
