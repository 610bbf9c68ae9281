#include "desktop/cups/UserDefaults.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <optional>

#include "desktop/cups/OptionLine.h"
#include "desktop/regfile/PosixFile.h"
#include "desktop/regfile/UserFolders.h"

namespace desktop::cups {

namespace {

/// Bytes. A file of thousands of queues has a part of this.
constexpr std::size_t Longest = 16U << 20U;

/// Another program may be writing the file.
constexpr int Tries = 3;

/// An empty text if there is no such file; nothing if there is one and it cannot be read, whatever else than
/// a file it may be. Never waits for another process.
std::optional<std::string> ReadFile(const std::string& path) {
    regfile::FileContent content;
    int error = EAGAIN;
    for (int tries = 0; error == EAGAIN && tries < Tries; ++tries) {
        error = regfile::ReadWholeFile(path, Longest, content);
    }
    if (error == ENOENT) {
        return std::string();
    }
    return error == 0 ? std::optional(content.Bytes) : std::nullopt;
}

CupsOptions OptionsIn(const std::string& file, const std::string& queue) {
    return OptionsOf(LineOf(ReadFile(file).value_or(std::string()), queue));
}

std::string PreferredInFile(const std::string& file) {
    return PreferredIn(ReadFile(file).value_or(std::string()));
}

std::string MachineFile() {
    const char* const folder = std::getenv("CUPS_SERVERROOT");
    return std::string(folder == nullptr ? "/etc/cups" : folder) + "/lpoptions";
}

} // namespace

UserDefaults::UserDefaults() : UserDefaults(regfile::HomeFolder() + "/.cups/lpoptions", MachineFile()) {}

CupsOptions UserDefaults::Options(const std::string& queue) const {
    CupsOptions options = OptionsIn(userFile_, queue);
    options.merge(OptionsIn(machineFile_, queue));
    return options;
}

std::string UserDefaults::PreferredQueue() const {
    const std::string own = PreferredInFile(userFile_);
    return own.empty() ? PreferredInFile(machineFile_) : own;
}

std::string UserDefaults::Trouble() const {
    for (const std::string& file : {userFile_, machineFile_}) {
        if (!ReadFile(file)) {
            return file.substr(file.rfind('/') + 1) + UnreadableText;
        }
    }
    return {};
}

} // namespace desktop::cups
