#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace machine {

/// Handle of an open key or of a predefined root. Pointer-wide, as on the machine that it comes from.
using RegistryKey = std::uintptr_t;

inline constexpr RegistryKey HkeyClassesRoot = 0x80000000U;
inline constexpr RegistryKey HkeyCurrentUser = 0x80000001U;
inline constexpr RegistryKey HkeyLocalMachine = 0x80000002U;
inline constexpr RegistryKey HkeyUsers = 0x80000003U;

// Value types and results of the registry calls, by their Windows values.
inline constexpr std::uint32_t RegNone = 0;
inline constexpr std::uint32_t RegSz = 1;
inline constexpr std::uint32_t RegDword = 4;

inline constexpr std::int32_t RegSuccess = 0;
inline constexpr std::int32_t RegFileNotFound = 2;
inline constexpr std::int32_t RegAccessDenied = 5;
inline constexpr std::int32_t RegInvalidHandle = 6;
inline constexpr std::int32_t RegMoreData = 234;

/// What keeps a key of the settings from being read.
enum class StoreTrouble {
    None,
    Missing,         ///< no such key, or no file of settings
    NoKey,           ///< the file is there, and has other keys
    Unreadable,      ///< it is there, and the machine does not give it
    UnknownEncoding, ///< it is in no encoding or form that can be read
    CutOff,          ///< only the beginning of it is there
};

/// How a key of the settings stands.
struct StoreCondition {
    StoreTrouble Trouble = StoreTrouble::None;
    std::string Where{};  ///< the key, or the file that holds it, as the user finds it
    std::string Reason{}; ///< in the machine's own words; may be empty
    /// It cannot be read now, and what was read before is given until it can.
    bool EarlierHolds = false;
};

/// The four calls of the registry that the program makes, answered by the platform: the registry itself on
/// Windows, a store with the same properties elsewhere. They speak 8-bit text in the machine's code page and
/// return 0 for success, else a Windows error number; none of them throws.
class Registry {
  public:
    virtual ~Registry() = default;

    /// Opens an existing key below `root`; never creates one. An empty path opens the root itself.
    virtual std::int32_t RegOpenKeyA(RegistryKey root, const std::string& path, RegistryKey& key) = 0;
    virtual std::int32_t RegCloseKey(RegistryKey key) = 0;

    /// Type and size in bytes of a value and, where `data` is given, its bytes. `size` holds the room in
    /// `data` on the way in; RegMoreData if it is too small. A text value's bytes include its closing NUL.
    virtual std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                          char* data, std::uint32_t& size) = 0;

    /// Writes a value. For text, `bytes` includes the closing NUL.
    virtual std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                        std::string_view bytes) = 0;

    /// How a key below the current user's root stands: for who tells the user why there are no settings.
    virtual StoreCondition Condition(const std::string& path) = 0;
};

} // namespace machine
