#include "desktop/qt/FileJob.h"

#include <QDir>
#include <QFile>

namespace desktop::qt {

FileJob::FileJob(const std::optional<QString>& path) : path_(path.value_or(QString())) {
    if (!path) {
        return;
    }
    if (const int error = file_.Begin(QFile::encodeName(path_).toStdString()); error != 0) {
        throw Failure(error);
    }
    device_.open(QIODevice::WriteOnly);
}

void FileJob::Finish() {
    if (!device_.isOpen()) {
        return;
    }
    if (const int error = file_.Commit(); error != 0) {
        throw Failure(error);
    }
}

qint64 FileJob::Device::writeData(const char* data, qint64 length) {
    return file_.Write({data, static_cast<std::size_t>(length)}) == 0 ? length : -1;
}

base::RuntimeError FileJob::Failure(int error) const {
    const QString text = QStringLiteral("Het bestand kon niet worden geschreven.\n%1\n%2")
                             .arg(QDir::toNativeSeparators(path_), qt_error_string(error));
    return base::RuntimeError(base::ErrorPrinter, text.toStdString());
}

} // namespace desktop::qt
