#include "platform/qt/SpoolFile.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace platform::qt {

namespace {

constexpr mode_t PrivateFile = 0600;
constexpr auto PrivateFolder = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

/// A descriptor, or -1.
int OpenWithoutName(const QByteArray& folder) {
    const int nameless = open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, PrivateFile);
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

RuntimeError Failure(const QString& reason) {
    return RuntimeError(ErrorPrinter, "Het document kon niet worden klaargezet.\n" + reason.toStdString());
}

} // namespace

SpoolFile::SpoolFile(const QString& folder) {
    if (!QFile::exists(folder)) {
        QDir().mkpath(QFileInfo(folder).path());
        QDir().mkdir(folder, PrivateFolder);
    }
    const int descriptor = OpenWithoutName(QFile::encodeName(folder));
    if (descriptor < 0) {
        throw Failure(qt_error_string());
    }
    if (!open(descriptor, ReadWrite, AutoCloseHandle)) {
        ::close(descriptor);
        throw Failure(errorString());
    }
}

void SpoolFile::Rewind() {
    if (!failure_.isEmpty()) {
        throw Failure(failure_);
    }
    if (!flush() || lseek(handle(), 0, SEEK_SET) != 0) {
        throw Failure(errorString());
    }
}

qint64 SpoolFile::writeData(const char* data, qint64 length) {
    const qint64 written = QFile::writeData(data, length);
    if (written != length && failure_.isEmpty()) {
        failure_ = errorString(); // what is drawn next may fit again
    }
    return written;
}

} // namespace platform::qt
