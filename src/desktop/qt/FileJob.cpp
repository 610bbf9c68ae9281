#include "desktop/qt/FileJob.h"

#include <QDir>
#include <QFile>

namespace desktop::qt {

FileJob::FileJob(const std::optional<QString>& path) : path_(path) {
    if (!path_) {
        return;
    }
    if (const int error = file_.Begin(QFile::encodeName(*path_).toStdString()); error != 0) {
        throw Failure(error);
    }
}

int FileJob::Write(std::string_view bytes) {
    file_.Write(bytes);
    return 0;
}

void FileJob::Finish() {
    if (!path_) {
        return;
    }
    if (const int error = file_.Commit(); error != 0) {
        throw Failure(error);
    }
}

base::RuntimeError FileJob::Failure(int error) const {
    const QString text = QStringLiteral("Het bestand kon niet worden geschreven.\n%1\n%2")
                             .arg(QDir::toNativeSeparators(*path_), qt_error_string(error));
    return base::RuntimeError(base::ErrorPrinter, text.toStdString());
}

} // namespace desktop::qt
