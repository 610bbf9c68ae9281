#include "platform/PosixFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

    int Close() {
        const int result = IsOpen() ? close(number_) : 0;
        number_ = -1;
        return result;
    }

  private:
    int number_;
};

FileStamp StampOf(const struct stat& status) {
    constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
    return {status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec};
}

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

/// Gives the new file the owner and the rights of the old one. Only the administrator may give a file away,
/// so a refused owner is no failure.
bool TakeOver(int descriptor, const struct stat& old) {
    if (fchown(descriptor, old.st_uid, old.st_gid) != 0 && errno != EPERM) {
        return false;
    }
    return fchmod(descriptor, old.st_mode & 07777) == 0;
}

/// Makes the new name last through a loss of power. A file system that cannot do it for a folder has the file
/// all the same.
void FlushFolder(const std::string& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) {
        fsync(descriptor.Number());
    }
}

} // namespace

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return StampOf(status);
}

std::optional<FileContent> ReadWholeFile(const std::string& path, std::size_t limit) {
    const Descriptor descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!descriptor.IsOpen() || fstat(descriptor.Number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uint64_t>(status.st_size) > limit) {
        return std::nullopt;
    }
    FileContent content{std::string(static_cast<std::size_t>(status.st_size), '\0'), StampOf(status)};
    std::size_t filled = 0;
    while (filled < content.bytes.size()) {
        const ssize_t count =
            read(descriptor.Number(), content.bytes.data() + filled, content.bytes.size() - filled);
        if (count == 0) {
            break;
        }
        if (count > 0) {
            filled += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
    // Half of what another program is writing must not be taken for the whole.
    if (fstat(descriptor.Number(), &status) != 0 || StampOf(status) != content.stamp) {
        return std::nullopt;
    }
    content.bytes.resize(filled);
    return content;
}

int ReplaceFile(const std::string& path, std::string_view bytes, const FileStamp& before) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    if (!resolved) {
        return errno;
    }
    const std::string target = resolved.get();
    struct stat old {};
    // A rename asks the folder alone for permission; a file that its owner made read-only is to stay so.
    if (stat(target.c_str(), &old) != 0 || access(target.c_str(), W_OK) != 0) {
        return errno;
    }
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    std::string temporary = folder + ".settings-XXXXXX";
    Descriptor descriptor(mkostemp(temporary.data(), O_CLOEXEC));
    if (!descriptor.IsOpen()) {
        return errno;
    }
    const bool stands = WriteAll(descriptor.Number(), bytes) && TakeOver(descriptor.Number(), old) &&
                        fsync(descriptor.Number()) == 0 && descriptor.Close() == 0;
    int error = stands ? 0 : errno;
    if (stands && StampOf(target) != before) {
        error = EAGAIN;
    }
    if (error == 0 && std::rename(temporary.c_str(), target.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        unlink(temporary.c_str());
        return error;
    }
    FlushFolder(folder);
    return 0;
}

} // namespace platform
