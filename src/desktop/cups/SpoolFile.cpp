#include "desktop/cups/SpoolFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/RuntimeError.h"

namespace desktop::cups {

namespace {

constexpr mode_t PrivateFile = 0600;
constexpr mode_t PrivateFolder = 0700;

/// False with errno set where it cannot be made.
bool MakeFolder(const QByteArray& folder, mode_t mode) {
    const QByteArray above = folder.left(folder.lastIndexOf('/'));
    return mkdir(folder.constData(), mode) == 0 || errno == EEXIST ||
           (errno == ENOENT && !above.isEmpty() && MakeFolder(above, 0777) &&
            (mkdir(folder.constData(), mode) == 0 || errno == EEXIST));
}

/// A descriptor, or -1.
int OpenWithoutName(const QByteArray& folder) {
    const int nameless = regfile::Uninterrupted(
        [&] { return open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, PrivateFile); });
    if (nameless >= 0 || (errno != EOPNOTSUPP && errno != EISDIR)) {
        return nameless;
    }
    // A file system that has only files with names, as those of a network: this one loses its own while it is
    // still empty.
    QByteArray name = folder + "/XXXXXX";
    const int named = mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0) {
        unlink(name.constData());
    }
    return named;
}

base::RuntimeError Failure(const QString& folder, int error) {
    const QString text = QStringLiteral("Het document kon niet worden klaargezet.\n%1\n%2")
                             .arg(folder, qt_error_string(error));
    return base::RuntimeError(base::ErrorPrinter, text.toStdString());
}

} // namespace

SpoolFile::SpoolFile(const QString& folder) : folder_(folder) {
    const QByteArray name = QFile::encodeName(folder);
    if (!MakeFolder(name, PrivateFolder)) {
        throw Failure(folder_, errno);
    }
    regfile::Descriptor file(OpenWithoutName(name));
    if (!file.IsOpen()) {
        throw Failure(folder_, errno);
    }
    writer_ = regfile::FileWriter(std::move(file));
    open(WriteOnly);
}

void SpoolFile::Rewind() {
    if (const int error = writer_.Flush(); error != 0) {
        throw Failure(folder_, error);
    }
    if (lseek(Number(), 0, SEEK_SET) != 0) {
        throw Failure(folder_, errno);
    }
}

bool SpoolFile::IsRead() const {
    struct stat status {};
    return fstat(Number(), &status) != 0 || lseek(Number(), 0, SEEK_CUR) >= status.st_size;
}

qint64 SpoolFile::writeData(const char* data, qint64 length) {
    return writer_.Write({data, static_cast<std::size_t>(length)}) == 0 ? length : -1;
}

} // namespace desktop::cups
