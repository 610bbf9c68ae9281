#pragma once

#include <functional>

#include "machine/Registry.h"

namespace desktop::windows {

/// The registry of the machine. Where the machine's code page is not Windows-1252, texts are read and written
/// as UTF-16, so that a letter that the machine's code page lacks is kept all the same.
///
/// A key or a value that is there and cannot be read counts as absent to those who ask, and whoever prints
/// with settings that are absent spoils the batch: so the user is told, once until a value can be read again.
class WinRegistry final : public machine::Registry {
  public:
    using RefusalTeller = std::function<void(const std::string& text)>;

    explicit WinRegistry(RefusalTeller teller = {});

    machine::StoreCondition Condition(const std::string& path) override;

    std::int32_t RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                             machine::RegistryKey& key) override;
    std::int32_t RegCloseKey(machine::RegistryKey key) override;
    std::int32_t RegQueryValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t& type,
                                  char* data, std::uint32_t& size) override;
    std::int32_t RegSetValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t type,
                                std::string_view bytes) override;

  private:
    /// Looks at the answer to a question, and passes it on.
    std::int32_t Answered(std::int32_t status);
    std::int32_t Query(machine::RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                       std::uint32_t& size);

    RefusalTeller teller_;
    bool told_ = false;
};

} // namespace desktop::windows
