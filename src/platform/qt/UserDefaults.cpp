#include "platform/qt/UserDefaults.h"

#include "platform/qt/OptionLine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace platform::qt {

namespace {

/// Nothing if there is a file that cannot be read; it must not be written anew then.
std::optional<QByteArray> ReadFile(const QString& name) {
    QFile file(name);
    if (!file.exists()) {
        return QByteArray();
    }
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

CupsOptions OptionsIn(const QString& file, const std::string& queue) {
    return OptionsOf(OptionLine(ReadFile(file).value_or(QByteArray()), queue).Line());
}

/// Names and values come from the server, and one that is no plain word would not stay within its place.
bool IsPlainWord(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return c > ' ' && c < '\x7f' && c != '"' && c != '\'' && c != '\\' && c != '{' && c != '}';
    });
}

QString MachineFile() {
    const QString folder = qEnvironmentVariable("CUPS_SERVERROOT", QStringLiteral("/etc/cups"));
    return folder + QStringLiteral("/lpoptions");
}

} // namespace

UserDefaults::UserDefaults()
    : UserDefaults(QDir::homePath() + QStringLiteral("/.cups/lpoptions"), MachineFile()) {}

UserDefaults::~UserDefaults() {
    while (!changed_.empty()) {
        const std::string queue = changed_.begin()->first;
        PutBack(queue);
        changed_.erase(queue);
    }
}

CupsOptions UserDefaults::Options(const std::string& queue) const {
    CupsOptions options = OptionsIn(userFile_, queue);
    options.merge(OptionsIn(machineFile_, queue));
    return options;
}

std::string UserDefaults::PreferredQueue() const {
    const std::string own = PreferredIn(ReadFile(userFile_).value_or(QByteArray()));
    return own.empty() ? PreferredIn(ReadFile(machineFile_).value_or(QByteArray())) : own;
}

bool UserDefaults::Change(const std::string& queue, const CupsOptions& changes) {
    for (const auto& [name, value] : changes) {
        if (!IsPlainWord(name) || !IsPlainWord(value)) {
            return false;
        }
    }
    const std::optional<QByteArray> text = ReadFile(userFile_);
    if (!IsPlainWord(queue) || !text) {
        return false;
    }
    const OptionLine line(*text, queue);
    const CupsOptions before = Options(queue);
    const QByteArray newLine = WithOptions(line.Line(), queue, changes);
    if (!Write(line.Replaced(newLine))) {
        return false;
    }
    const auto [entry, isFirst] = changed_.try_emplace(queue);
    Changed& changed = entry->second;
    if (isFirst) {
        changed.Before = before;
        if (line.Exists()) {
            changed.OldLine = line.Line();
        }
    }
    changed.NewLine = newLine;
    for (const auto& [name, value] : changes) {
        changed.Written[name] = value;
    }
    return true;
}

std::optional<CupsOptions> UserDefaults::Before(const std::string& queue) const {
    const auto found = changed_.find(queue);
    return found == changed_.end() ? std::nullopt : std::optional(found->second.Before);
}

bool UserDefaults::PutBack(const std::string& queue) {
    const auto found = changed_.find(queue);
    if (found == changed_.end()) {
        return true;
    }
    const Changed& changed = found->second;
    const std::optional<QByteArray> text = ReadFile(userFile_);
    if (!text) {
        return false;
    }
    const OptionLine line(*text, queue);
    QByteArray restored = changed.OldLine.value_or(QByteArray());
    if (line.Line() != changed.NewLine) { // someone else has written since
        const CupsOptions old = OptionsOf(restored);
        const CupsOptions now = OptionsOf(line.Line());
        CupsOptions changes;
        for (const auto& [name, value] : changed.Written) {
            const auto present = now.find(name);
            if ((present == now.end() ? std::string() : present->second) == value) {
                const auto before = old.find(name);
                changes[name] = before == old.end() ? std::string() : before->second;
            }
        }
        restored = line.Exists() ? WithOptions(line.Line(), queue, changes) : QByteArray();
        if (!changed.OldLine && IsBare(restored)) {
            restored.clear();
        }
    }
    if (!Write(line.Replaced(restored))) {
        return false;
    }
    changed_.erase(found);
    return true;
}

bool UserDefaults::Write(const QByteArray& text) {
    const QFileInfo file(userFile_);
    const QString folder = file.absolutePath();
    if (text.isEmpty() && madeFile_) {
        if (file.exists() && !QFile::remove(userFile_)) {
            return false;
        }
        madeFile_ = false;
        if (madeFolder_ && QDir().rmdir(folder)) {
            madeFolder_ = false;
        }
        return true;
    }
    const bool isNew = !file.exists();
    if (isNew && !QFileInfo::exists(folder)) {
        if (!QDir().mkpath(folder)) {
            return false;
        }
        madeFolder_ = true;
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QSaveFile saved(userFile_);
    if (!saved.open(QIODevice::WriteOnly)) {
        return false;
    }
    saved.write(text);
    if (!saved.commit()) {
        return false;
    }
    madeFile_ = madeFile_ || isNew;
    return true;
}

} // namespace platform::qt
