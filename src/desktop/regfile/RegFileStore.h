#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/regfile/PosixFile.h"
#include "desktop/regfile/RegFile.h"
#include "machine/Registry.h"
#include "machine/RegistryKeys.h"

namespace desktop::regfile {

/// Where the main application's settings lie for the current user: tarvik/settings.reg below
/// $XDG_CONFIG_HOME, or below ~/.config where that is not set. Empty if the user has no home.
std::string DefaultSettingsPath();

/// The branch of the registry that the main application keeps its settings in, as RegFile takes it.
inline constexpr const char* SettingsBranch = "HKEY_CURRENT_USER\\Software\\Ondor\\Tarvik";

/// Is told, as a text for the user, that the settings are there and cannot be read: once, until they can be
/// read again.
using SettingsTeller = std::function<void(const std::string& text)>;

/// The registry's stand-in on a machine without one: an exported registry file. The file is made by others;
/// as long as it is missing no key exists, so nothing can be read or written. A change that another program
/// makes to the file is seen at the next call, and once it is complete: what was read before holds while the
/// file is empty, cut off or cannot be read. A write replaces the file as a whole or leaves it as it was.
class RegFileStore : public machine::Registry {
  public:
    /// With a `branch` the file is read for the keys of that branch alone.
    explicit RegFileStore(std::string path, std::string branch = {}, SettingsTeller teller = {});

    /// Asks no user and tells nothing. A file whose last line has been cut off counts as half of one, also
    /// where all of it that there is has been read.
    machine::StoreCondition Condition(const std::string& path) override;

    std::int32_t RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                             machine::RegistryKey& key) override;
    std::int32_t RegCloseKey(machine::RegistryKey key) override;
    std::int32_t RegQueryValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t& type,
                                  char* data, std::uint32_t& size) override;
    std::int32_t RegSetValueExA(machine::RegistryKey key, const std::string& name, std::uint32_t type,
                                std::string_view bytes) override;

  private:
    using Clock = std::chrono::steady_clock;

    void Refresh();
    void Look();
    machine::StoreTrouble TroubleOf(const std::string& fullPath) const;
    int ReadAgain(int error);
    int TakeIn();
    bool IsBeingWritten(const FileContent& content) const;
    bool IsLeftAlone(const FileStamp& present) const;
    void Tell();
    std::int32_t Store(const std::string& path, const std::string& name, const RegValue& value);
    void ClearLeftovers() const;

    std::string path_;
    std::string branch_;
    SettingsTeller teller_;
    RegFile file_;
    bool isKnown_ = false;           // has `file_` been read from a whole file?
    bool isCut_ = false;             // or from one that was waited for in vain?
    int failure_ = 0;                // errno of what cannot be read; 0 if nothing is to be told
    bool isTold_ = false;            // it has been
    FileStamp state_;                // of what `file_` was read from
    std::optional<FileStamp> stamp_; // of the state that was read; nothing if the next call has to read again
    std::optional<FileStamp> seen_;  // the last state of the file, and since when it is known
    Clock::time_point seenAt_;
    machine::OpenRegistryKeys keys_;
};

} // namespace desktop::regfile
