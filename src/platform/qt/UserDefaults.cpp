#include "platform/qt/UserDefaults.h"

#include "platform/qt/OptionLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::qt {

namespace {

/// Bytes. A file of thousands of queues has a part of this.
constexpr qsizetype Longest = 16 << 20;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }

  private:
    int number_;
};

/// An empty text if there is no such file; nothing if there is one and it cannot be read, whatever else than
/// a file it may be. Never waits for another process.
std::optional<QByteArray> ReadFile(const QString& name) {
    const QByteArray path = QFile::encodeName(name);
    const Descriptor file(open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.Number() < 0) {
        return errno == ENOENT ? std::optional(QByteArray()) : std::nullopt;
    }
    struct stat status {};
    if (fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    QByteArray text;
    std::array<char, 8192> piece;
    while (text.size() <= Longest) {
        const ssize_t count = read(file.Number(), piece.data(), piece.size());
        if (count == 0) {
            return text;
        }
        if (count > 0) {
            text.append(piece.data(), count);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
    return std::nullopt;
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

} // namespace platform::qt
