#pragma once

#include <map>
#include <string>
#include <utility>

namespace desktop::cups {

/// Options of a queue by name.
using CupsOptions = std::map<std::string, std::string>;

/// What the user is told of a file of theirs that is there and cannot be read, behind its name.
inline constexpr const char* UnreadableText = " is niet te lezen";

/// The user's own defaults of queues, as `lpoptions` keeps them: a file of the user's with a line for each
/// queue, below which lies one for all users. They are read anew at each question and never written, and the
/// server need not be there.
class UserDefaults {
  public:
    /// The files of this user and of this machine.
    UserDefaults();
    /// An empty name stands for a file that is not there.
    UserDefaults(std::string userFile, std::string machineFile)
        : userFile_(std::move(userFile)), machineFile_(std::move(machineFile)) {}

    /// The queue's options, the user's over the machine's. A file that cannot be read counts as empty.
    CupsOptions Options(const std::string& queue) const;

    /// The queue that the user's file, else the machine's, names as the default; an empty text if none does.
    std::string PreferredQueue() const;

    /// That one of the files is there and cannot be read, in the user's words; empty if that is not so.
    std::string Trouble() const;

  private:
    std::string userFile_;
    std::string machineFile_;
};

} // namespace desktop::cups
