#pragma once

#include "platform/Registry.h"

namespace platform::windows {

/// The registry of the machine. Where the machine's code page is not Windows-1252, texts are read and written
/// as UTF-16, so that a letter that the machine's code page lacks is kept all the same.
class WinRegistry final : public Registry {
  public:
    std::int32_t RegOpenKeyA(RegistryKey root, const std::string& path, RegistryKey& key) override;
    std::int32_t RegCloseKey(RegistryKey key) override;
    std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                  std::uint32_t& size) override;
    std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                std::string_view bytes) override;
};

} // namespace platform::windows
