#include "desktop/regfile/PosixFile.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "desktop/regfile/Descriptor.h"

namespace desktop::regfile {

FileStamp StampOf(const struct stat& status) {
    constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
    return {status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec};
}

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return StampOf(status);
}

int ReadWholeFile(const std::string& path, std::size_t limit, FileContent& content) {
    const Descriptor descriptor(
        Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    struct stat status {};
    if (!descriptor.IsOpen() || fstat(descriptor.Number(), &status) != 0) {
        return errno;
    }
    if (!S_ISREG(status.st_mode)) {
        return EINVAL;
    }
    if (static_cast<std::uint64_t>(status.st_size) > limit) {
        return EFBIG;
    }
    content.Stamp = StampOf(status);
    content.Bytes.assign(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t filled = 0;
    while (filled < content.Bytes.size()) {
        const ssize_t count = Uninterrupted([&] {
            return read(descriptor.Number(), content.Bytes.data() + filled, content.Bytes.size() - filled);
        });
        if (count < 0) {
            return errno;
        }
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    content.Bytes.resize(filled);
    if (fstat(descriptor.Number(), &status) != 0) {
        return errno;
    }
    // Half of what another program is writing must not be taken for the whole.
    return StampOf(status) == content.Stamp ? 0 : EAGAIN;
}

bool IsAbsence(int error) {
    return error == ENOENT || error == ENOTDIR;
}

} // namespace desktop::regfile
