#include "desktop/cups/SpoolFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/RuntimeError.h"

namespace desktop::cups {

namespace {

constexpr mode_t PrivateFile = 0600;
constexpr mode_t PrivateFolder = 0700;

/// False with errno set where it cannot be made.
bool MakeFolder(const std::string& folder, mode_t mode) {
    const std::size_t slash = folder.rfind('/');
    const std::string above = slash == std::string::npos ? std::string() : folder.substr(0, slash);
    return mkdir(folder.c_str(), mode) == 0 || errno == EEXIST ||
           (errno == ENOENT && !above.empty() && MakeFolder(above, 0777) &&
            (mkdir(folder.c_str(), mode) == 0 || errno == EEXIST));
}

/// A descriptor, or -1.
int OpenWithoutName(const std::string& folder) {
    const int nameless = regfile::Uninterrupted(
        [&] { return open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, PrivateFile); });
    if (nameless >= 0 || (errno != EOPNOTSUPP && errno != EISDIR)) {
        return nameless;
    }
    // A file system that has only files with names, as those of a network: this one loses its own while it is
    // still empty.
    std::string name = folder + "/XXXXXX";
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) {
        unlink(name.c_str());
    }
    return named;
}

} // namespace

std::string LibrarysReason(int error) {
    return std::strerror(error);
}

SpoolFile::SpoolFile(std::string folder, SystemReason reason)
    : folder_(std::move(folder)), reason_(std::move(reason)) {
    if (!MakeFolder(folder_, PrivateFolder)) {
        Fail(errno);
    }
    regfile::Descriptor file(OpenWithoutName(folder_));
    if (!file.IsOpen()) {
        Fail(errno);
    }
    writer_ = regfile::FileWriter(std::move(file));
}

void SpoolFile::Rewind() {
    if (const int error = writer_.Flush(); error != 0) {
        Fail(error);
    }
    if (lseek(Number(), 0, SEEK_SET) != 0) {
        Fail(errno);
    }
}

bool SpoolFile::IsRead() const {
    struct stat status {};
    return fstat(Number(), &status) != 0 || lseek(Number(), 0, SEEK_CUR) >= status.st_size;
}

std::string SpoolFile::Loss(int error) const {
    return "Het document kon niet worden klaargezet.\n" + folder_ + "\n" + reason_(error);
}

void SpoolFile::Fail(int error) const {
    throw base::RuntimeError(base::ErrorPrinter, Loss(error));
}

} // namespace desktop::cups
