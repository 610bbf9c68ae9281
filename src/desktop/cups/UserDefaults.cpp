#include "desktop/cups/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

#include "desktop/cups/OptionLine.h"
#include "desktop/regfile/PosixFile.h"

namespace desktop::cups {

namespace {

/// Bytes. A file of thousands of queues has a part of this.
constexpr std::size_t Longest = 16U << 20U;

/// Another program may be writing the file.
constexpr int Tries = 3;

/// An empty text if there is no such file; nothing if there is one and it cannot be read, whatever else than
/// a file it may be. Never waits for another process.
std::optional<QByteArray> ReadFile(const QString& name) {
    const std::string path = QFile::encodeName(name).toStdString();
    regfile::FileContent content;
    int error = EAGAIN;
    for (int tries = 0; error == EAGAIN && tries < Tries; ++tries) {
        error = regfile::ReadWholeFile(path, Longest, content);
    }
    if (error == ENOENT) {
        return QByteArray();
    }
    return error == 0 ? std::optional(QByteArray::fromStdString(content.bytes)) : std::nullopt;
}

CupsOptions OptionsIn(const QString& file, const std::string& queue) {
    return OptionsOf(LineOf(ReadFile(file).value_or(QByteArray()), queue));
}

QString MachineFile() {
    const QString folder = qEnvironmentVariable("CUPS_SERVERROOT", QStringLiteral("/etc/cups"));
    return folder + QStringLiteral("/lpoptions");
}

} // namespace

UserDefaults::UserDefaults()
    : UserDefaults(QDir::homePath() + QStringLiteral("/.cups/lpoptions"), MachineFile()) {}

CupsOptions UserDefaults::Options(const std::string& queue) const {
    CupsOptions options = OptionsIn(userFile_, queue);
    options.merge(OptionsIn(machineFile_, queue));
    return options;
}

std::string UserDefaults::PreferredQueue() const {
    const std::string own = PreferredIn(ReadFile(userFile_).value_or(QByteArray()));
    return own.empty() ? PreferredIn(ReadFile(machineFile_).value_or(QByteArray())) : own;
}

std::string UserDefaults::Trouble() const {
    for (const QString& file : {userFile_, machineFile_}) {
        if (!ReadFile(file)) {
            return QFileInfo(file).fileName().toStdString() + UnreadableText;
        }
    }
    return {};
}

} // namespace desktop::cups
