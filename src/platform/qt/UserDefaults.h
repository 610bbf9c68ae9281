#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <optional>
#include <string>

namespace platform::qt {

/// Options of a queue by name.
using CupsOptions = std::map<std::string, std::string>;

/// The user's own defaults of queues, as `lpoptions` keeps them: a file of the user's with a line for each
/// queue, below which lies one for all users. The server need not be there to read or write them.
///
/// A change touches the queue's line alone. The client library would write the whole file anew: it forgets
/// queues that the server does not list at the moment, and makes the server's default printer the user's.
///
/// A program that ends puts back what it has changed and not put back before, byte for byte.
class UserDefaults {
  public:
    /// The files of this user and of this machine.
    UserDefaults();
    UserDefaults(const QString& userFile, const QString& machineFile)
        : userFile_(userFile), machineFile_(machineFile) {}
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The queue's options, the user's over the machine's.
    CupsOptions Options(const std::string& queue) const;

    /// The queue that the user's file, else the machine's, names as the default; an empty text if none does.
    std::string PreferredQueue() const;

    /// Changes options of a queue; an empty value takes the option away. False if the file could not be
    /// written, or a value cannot stand in it.
    bool Change(const std::string& queue, const CupsOptions& changes);
    /// The options before the first change that was not put back; nothing if there is none.
    std::optional<CupsOptions> Before(const std::string& queue) const;
    /// Undoes all changes of the queue. An option that someone else has changed since stays.
    bool PutBack(const std::string& queue);

  private:
    struct Changed {
        CupsOptions Before;
        std::optional<QByteArray> OldLine;
        QByteArray NewLine;
        CupsOptions Written;
    };

    bool Write(const QByteArray& text);

    QString userFile_;
    QString machineFile_;
    bool madeFile_ = false;
    bool madeFolder_ = false;
    std::map<std::string, Changed> changed_;
};

} // namespace platform::qt
