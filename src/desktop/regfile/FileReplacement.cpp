#include "desktop/regfile/FileReplacement.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

namespace desktop::regfile {
namespace {

constexpr mode_t NewFile = 0666;     // less what the user's mask takes away
constexpr mode_t PrivateFile = 0600; // until it has the rights of the file that it replaces
constexpr int NameAttempts = 100;
constexpr std::size_t RandomLetters = 20; // more than any word of the user's
constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyz012345";

int ErrorIf(bool failed) {
    return failed ? errno : 0;
}

/// Where the system shows an open file, which gives one without a name its name.
std::string SystemPathOf(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

/// Calls `make` with names that begin with `prefix` until one is free; the name, or an empty text with errno
/// set.
template <class Make>
std::string WithFreeName(const std::string& prefix, const Make& make) {
    for (int attempt = 0; attempt < NameAttempts; ++attempt) {
        std::array<unsigned char, RandomLetters> random{};
        if (Uninterrupted([&] { return getrandom(random.data(), random.size(), 0); }) < 0) {
            return {};
        }
        std::string name = prefix;
        for (const unsigned char byte : random) {
            name.push_back(Letters[byte % Letters.size()]);
        }
        if (make(name.c_str())) {
            return name;
        }
        if (errno != EEXIST) {
            return {};
        }
    }
    return {};
}

/// Is this what a file system, or the user's rights on it, can never do? (An owner that a container does not
/// know is EINVAL.)
bool IsBeyondThisPlace(int error) {
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

/// Makes a new name last through a loss of power. A file system that cannot do it for a folder has the file
/// all the same.
void FlushFolder(const std::string& folder) {
    const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.IsOpen()) {
        fsync(descriptor.Number());
    }
}

} // namespace

bool IsNameOfReplacement(std::string_view name, std::string_view mark) {
    return name.size() == mark.size() + RandomLetters && name.starts_with(mark) &&
           name.find_first_not_of(Letters, mark.size()) == std::string_view::npos;
}

FileReplacement::~FileReplacement() {
    if (!name_.empty()) {
        unlink(name_.c_str());
    }
}

int FileReplacement::Keep(int error) {
    if (error_ == 0) {
        error_ = error;
    }
    return error_;
}

int FileReplacement::Begin(const std::string& path, std::string_view mark) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    struct stat status {};
    if (resolved) {
        target_ = resolved.get();
        if (stat(target_.c_str(), &status) != 0) {
            return Keep(errno);
        }
        if (!S_ISREG(status.st_mode)) {
            return Keep(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
        }
        // A name in a folder asks the folder alone for permission; a file that its owner made read-only
        // stays.
        if (access(target_.c_str(), W_OK) != 0) {
            return Keep(errno);
        }
        old_ = status;
    } else if (errno != ENOENT) {
        return Keep(errno);
    } else if (lstat(path.c_str(), &status) == 0 || errno != ENOENT) { // a link that leads nowhere
        return Keep(ENOENT);
    } else {
        target_ = path;
    }
    folder_ = target_.substr(0, target_.rfind('/') + 1);
    if (folder_.empty()) {
        folder_ = "./";
    }
    mark_ = mark;
    return Keep(OpenBesideTarget());
}

int FileReplacement::OpenBesideTarget() {
    const mode_t mode = old_ ? PrivateFile : NewFile;
    Descriptor descriptor(
        Uninterrupted([&] { return open(folder_.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode); }));
    if (descriptor.IsOpen()) {
        if (access(SystemPathOf(descriptor.Number()).c_str(), F_OK) == 0) {
            writer_ = FileWriter(std::move(descriptor));
            return 0;
        } // else it could never be given a name
    } else if (errno != EOPNOTSUPP && errno != EISDIR) {
        return errno;
    }
    name_ = WithFreeName(folder_ + mark_, [&](const char* name) {
        descriptor = Descriptor(
            Uninterrupted([&] { return open(name, O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode); }));
        return descriptor.IsOpen();
    });
    if (name_.empty()) {
        return errno;
    }
    writer_ = FileWriter(std::move(descriptor));
    return 0;
}

int FileReplacement::Write(std::string_view bytes) {
    return error_ != 0 ? error_ : Keep(writer_.Write(bytes));
}

/// Only the administrator may give a file away, and not every file system keeps rights: what is refused for
/// good is no failure.
int FileReplacement::TakeOverRights() {
    if (!old_) {
        return 0;
    }
    const int file = writer_.File().Number();
    if (fchown(file, old_->st_uid, old_->st_gid) != 0 && !IsBeyondThisPlace(errno)) {
        return errno;
    }
    return ErrorIf(fchmod(file, old_->st_mode & 07777) != 0 && !IsBeyondThisPlace(errno));
}

int FileReplacement::BringToDisk() {
    if (const int error = writer_.Flush(); error != 0) {
        return error;
    }
    if (const int error = TakeOverRights(); error != 0) {
        return error;
    }
    return ErrorIf(Uninterrupted([&] { return fsync(writer_.File().Number()); }) != 0);
}

int FileReplacement::LinkBesideTarget() {
    if (name_.empty()) {
        const std::string from = SystemPathOf(writer_.File().Number());
        name_ = WithFreeName(folder_ + mark_, [&](const char* name) {
            return linkat(AT_FDCWD, from.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
        });
    }
    return ErrorIf(name_.empty());
}

/// In the place of the old file.
int FileReplacement::PutInPlace() {
    if (const int error = LinkBesideTarget(); error != 0) {
        return error;
    }
    if (std::rename(name_.c_str(), target_.c_str()) != 0) {
        return errno;
    }
    name_.clear();
    return 0;
}

/// Where no file was. A file that has appeared there since is somebody's.
int FileReplacement::Appear() {
    if (name_.empty()) {
        const std::string from = SystemPathOf(writer_.File().Number());
        return ErrorIf(linkat(AT_FDCWD, from.c_str(), AT_FDCWD, target_.c_str(), AT_SYMLINK_FOLLOW) != 0);
    }
    if (link(name_.c_str(), target_.c_str()) == 0) {
        return 0; // the first name goes with this object
    }
    if (!IsBeyondThisPlace(errno)) {
        return errno;
    }
    // A file system on which each file has one name.
    struct stat status {};
    if (lstat(target_.c_str(), &status) == 0) {
        return EEXIST;
    }
    return errno == ENOENT ? PutInPlace() : errno;
}

int FileReplacement::Commit(const std::optional<FileStamp>& before) {
    if (error_ != 0) {
        return error_;
    }
    if (const int error = BringToDisk(); error != 0) {
        return Keep(error);
    }
    if (before && StampOf(target_) != before) {
        return Keep(EAGAIN);
    }
    if (const int error = old_ ? PutInPlace() : Appear(); error != 0) {
        return Keep(error);
    }
    FlushFolder(folder_);
    return 0;
}

int ReplaceFile(const std::string& path, std::string_view mark, std::string_view bytes,
                const FileStamp& before) {
    FileReplacement file;
    file.Begin(path, mark);
    file.Write(bytes);
    return file.Commit(before);
}

} // namespace desktop::regfile
