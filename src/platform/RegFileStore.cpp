#include "platform/RegFileStore.h"

#include "platform/Text.h"

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <utility>

#include <pwd.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::size_t MaximumFileSize = 512U << 20U; // bytes; a file beyond that holds no settings

/// Another program may write the file between our reading and our writing; its change must stay.
constexpr int WriteAttempts = 3;

// Windows error numbers of what can go wrong with a file.
constexpr std::int32_t ErrorWriteFault = 29;
constexpr std::int32_t ErrorInvalidParameter = 87;
constexpr std::int32_t ErrorDiskFull = 112;

std::int32_t ErrorOf(int number) {
    switch (number) {
    case 0:
        return RegSuccess;
    case ENOENT:
    case ENOTDIR:
        return RegFileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return RegAccessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorDiskFull;
    default:
        return ErrorWriteFault;
    }
}

/// A change within the same tick of the file system's clock leaves no mark on the stamp, so a file that has
/// just changed is not trusted to stay.
bool IsSettled(const FileStamp& stamp) {
    using namespace std::chrono;
    constexpr auto tick = milliseconds(20);
    const auto now = duration_cast<nanoseconds>(system_clock::now().time_since_epoch());
    return now - nanoseconds(stamp.modified) > tick;
}

std::string FolderFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : std::string{};
}

std::string HomeFolder() {
    std::string home = FolderFrom("HOME");
    if (home.empty()) {
        const passwd* const user = getpwuid(getuid());
        home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
    }
    return home;
}

} // namespace

std::string DefaultSettingsPath() {
    std::string folder = FolderFrom("XDG_CONFIG_HOME");
    if (folder.empty()) {
        folder = HomeFolder();
        if (folder.empty()) {
            return {};
        }
        folder += "/.config";
    }
    return folder + "/tarvik/settings.reg";
}

RegFileStore::RegFileStore(std::string path) : path_(std::move(path)) {}

void RegFileStore::Refresh() {
    if (stamp_ && stamp_ == StampOf(path_)) {
        return;
    }
    std::optional<FileContent> content = ReadWholeFile(path_, MaximumFileSize);
    if (!content) { // once more, for a file that was just being written
        content = ReadWholeFile(path_, MaximumFileSize);
    }
    stamp_.reset();
    if (!content) {
        file_ = RegFile();
        return;
    }
    state_ = content->stamp;
    if (content->bytes != file_.Bytes()) {
        file_ = RegFile(std::move(content->bytes));
    }
    if (IsSettled(content->stamp)) {
        stamp_ = content->stamp;
    }
}

std::int32_t RegFileStore::RegOpenKeyA(RegistryKey root, const std::string& path, RegistryKey& key) {
    const std::optional<std::string> above = keys_.PathOf(root);
    if (!above) {
        return RegInvalidHandle;
    }
    std::string full = *above + '\\' + text::FromCodePage(UpToNul(path));
    Refresh();
    if (!file_.HasKey(full)) {
        return RegFileNotFound;
    }
    key = keys_.Open(std::move(full));
    return RegSuccess;
}

std::int32_t RegFileStore::RegCloseKey(RegistryKey key) {
    return keys_.Close(key) ? RegSuccess : RegInvalidHandle;
}

std::int32_t RegFileStore::RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                            char* data, std::uint32_t& size) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return RegInvalidHandle;
    }
    Refresh();
    const std::optional<RegValue> value = file_.Find(*path, text::FromCodePage(UpToNul(name)));
    if (!value) {
        return RegFileNotFound;
    }
    type = value->type;
    return AnswerQuery(IsTextType(type) ? text::ToCodePage(value->data) : value->data, data, size);
}

std::int32_t RegFileStore::RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t type,
                                          std::string_view bytes) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return RegInvalidHandle;
    }
    const RegValue value{type, IsTextType(type) ? text::FromCodePage(bytes) : std::string(bytes)};
    int error = EAGAIN;
    for (int attempt = 0; error == EAGAIN && attempt < WriteAttempts; ++attempt) {
        Refresh();
        if (!file_.HasKey(*path)) {
            return RegFileNotFound;
        }
        const std::optional<std::string> changed =
            file_.WithValue(*path, text::FromCodePage(UpToNul(name)), value);
        if (!changed) {
            return ErrorInvalidParameter;
        }
        error = ReplaceFile(path_, *changed, state_);
        stamp_.reset(); // whatever lies there now is read again
    }
    return ErrorOf(error);
}

} // namespace platform
