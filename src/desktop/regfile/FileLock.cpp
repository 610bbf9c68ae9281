#include "desktop/regfile/FileLock.h"

#include <cerrno>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop::regfile {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds Pause{2};

/// Is this still the file of that name? Who lets go of a lock takes the name away.
bool HasName(int descriptor, const std::string& path) {
    struct stat open {};
    struct stat named {};
    return fstat(descriptor, &open) == 0 && stat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(std::string lockFile, std::chrono::milliseconds patience)
    : lockFile_(std::move(lockFile)) {
    const auto end = steady_clock::now() + patience;
    int error = Try();
    while (error == EWOULDBLOCK && steady_clock::now() < end) {
        std::this_thread::sleep_for(Pause);
        error = Try();
    }
    isHeldByAnother_ = error == EWOULDBLOCK;
}

FileLock::~FileLock() {
    if (descriptor_.IsOpen()) {
        unlink(lockFile_.c_str()); // while it is still held, so that nobody holds a lock on another file
    }
}

int FileLock::Try() {
    constexpr mode_t privateFile = 0600;
    Descriptor descriptor(Uninterrupted(
        [&] { return open(lockFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, privateFile); }));
    if (!descriptor.IsOpen()) {
        return errno;
    }
    if (Uninterrupted([&] { return flock(descriptor.Number(), LOCK_EX | LOCK_NB); }) != 0) {
        const int error = errno;
        if (error == EOPNOTSUPP || error == ENOSYS || error == ENOLCK) {
            unlink(lockFile_.c_str()); // a place without locks: nobody holds it
        }
        return error;
    }
    if (!HasName(descriptor.Number(), lockFile_)) {
        return EWOULDBLOCK; // it has changed hands meanwhile
    }
    descriptor_ = std::move(descriptor);
    return 0;
}

} // namespace desktop::regfile
