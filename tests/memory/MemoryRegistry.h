#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "machine/Registry.h"
#include "machine/RegistryKeys.h"

namespace memory {

/// A registry that lives in memory and answers as the real one does. The paths of its own operations are
/// those below the current user's root ("Software\Ondor"); texts are UTF-8. The other roots are empty.
class MemoryRegistry : public machine::Registry {
  public:
    MemoryRegistry();

    /// Creates a key and those above it.
    void CreateKey(const std::string& path);

    /// Takes a key away with all below it. Handles of it stay open and find nothing.
    void RemoveKey(const std::string& path);

    bool HasKey(const std::string& path) const;

    /// Put a value into a key, which is created where needed: text, a number, or any bytes of any type. They
    /// pass neither OnWrite nor ShouldFail.
    void SetText(const std::string& path, const std::string& name, const std::string& text);
    void SetNumber(const std::string& path, const std::string& name, std::uint32_t number);
    void SetBytes(const std::string& path, const std::string& name, std::uint32_t type,
                  std::string_view bytes);

    /// A text value without its closing NUL; nothing if it is missing or of another type.
    std::optional<std::string> Text(const std::string& path, const std::string& name) const;

    std::size_t OpenHandles() const { return keys_.Count(); }

    /// Told of every call of RegSetValueExA: the path as it was opened, the name, the text without its
    /// closing NUL and whether it was written.
    std::function<void(const std::string& path, const std::string& name, const std::string& value, bool ok)>
        OnWrite;

    /// Asked at each call of the registry, by the call's name ("RegOpenKeyA"); true makes it fail with
    /// RegAccessDenied.
    std::function<bool(const char* call)> ShouldFail;

    /// What Condition answers of a key that is there, for tests of settings that cannot be read.
    machine::StoreCondition Present{};

    machine::StoreCondition Condition(const std::string& path) override;
    std::int32_t RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                             machine::RegistryKey& key) override;
    std::int32_t RegCloseKey(machine::RegistryKey key) override;
    std::int32_t RegQueryValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t& type,
                                  char* data, std::uint32_t& size) override;
    std::int32_t RegSetValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t type,
                                std::string_view bytes) override;

  private:
    struct Value {
        std::uint32_t type = machine::RegNone;
        std::string bytes;
    };
    using Values = std::map<std::string, Value>;

    bool Fails(const char* call) const { return ShouldFail && ShouldFail(call); }
    std::int32_t Write(machine::RegistryKey key, const std::string& name, std::uint32_t type,
                       std::string_view bytes);
    const Value* Find(const std::string& fullPath, const std::string& name) const;

    std::map<std::string, Values> values_; // by full path, folded
    machine::OpenRegistryKeys keys_;
};

} // namespace memory
