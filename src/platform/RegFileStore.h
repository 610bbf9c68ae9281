#pragma once

#include "platform/PosixFile.h"
#include "platform/RegFile.h"
#include "platform/Registry.h"
#include "platform/RegistryKeys.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Where the main application's settings lie for the current user: tarvik/settings.reg below
/// $XDG_CONFIG_HOME, or below ~/.config where that is not set. Empty if the user has no home.
std::string DefaultSettingsPath();

/// The registry's stand-in on a machine without one: an exported registry file. The file is made by others;
/// as long as it is missing no key exists, so nothing can be read or written. A change that another program
/// makes to the file is seen at the next call. A write replaces the file as a whole or leaves it as it was.
class RegFileStore : public Registry {
  public:
    explicit RegFileStore(std::string path);

    std::int32_t RegOpenKeyA(RegistryKey root, const std::string& path, RegistryKey& key) override;
    std::int32_t RegCloseKey(RegistryKey key) override;
    std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type, char* data,
                                  std::uint32_t& size) override;
    std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                std::string_view bytes) override;

  private:
    void Refresh();

    std::string path_;
    RegFile file_;
    FileStamp state_;                // of what `file_` was read from
    std::optional<FileStamp> stamp_; // of the state that was read; nothing if the next call has to read again
    OpenRegistryKeys keys_;
};

} // namespace platform
