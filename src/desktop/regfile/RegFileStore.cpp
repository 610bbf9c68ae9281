#include "desktop/regfile/RegFileStore.h"

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include <dirent.h>
#include <unistd.h>

#include "base/Text.h"
#include "desktop/regfile/FileLock.h"
#include "desktop/regfile/FileReplacement.h"
#include "desktop/regfile/UserFolders.h"

namespace desktop::regfile {
namespace {

constexpr std::size_t MaximumFileSize = 512U << 20U; // bytes; a file beyond that holds no settings

/// Another program may write the file between our reading and our writing; its change must stay.
constexpr int WriteAttempts = 10;
/// A failure of the machine may be gone the next time.
constexpr int FailedWriteAttempts = 3;
/// All attempts together take longer than a writer's breath.
constexpr std::chrono::milliseconds WritePause{12};

/// A program that replaces the file is done with it long before.
constexpr std::chrono::milliseconds LockPatience{1000};

/// How often a file is looked at again that another program is writing, where that is all there is to go by;
/// one that was there and is not; and one that the machine fails to read.
constexpr int LooksAtACutFile = 40;
constexpr int LooksForALostFile = 4;
constexpr int LooksAtAFailure = 2;
constexpr std::chrono::milliseconds ReadPause{5};
/// And for how long at most: to look at a large file takes time.
constexpr std::chrono::seconds ReadPatience{1};

/// A file that has lost lines is not believed before it has been left alone for a moment; one that ends in
/// the midst of a line, and is all there is, after a while.
constexpr std::chrono::milliseconds WritersBreath{100};
constexpr std::chrono::seconds WritersPause{2};

/// What begins the names of files that are to take the settings' place, and that of the lock.
constexpr const char* Mark = ".settings-";
constexpr const char* LockName = ".settings-lock";

// Windows error numbers of what can go wrong with a file.
constexpr std::int32_t ErrorWriteFault = 29;
constexpr std::int32_t ErrorLockViolation = 33;
constexpr std::int32_t ErrorInvalidParameter = 87;
constexpr std::int32_t ErrorDiskFull = 112;

std::int32_t ErrorOf(int number) {
    switch (number) {
    case 0:
        return machine::RegSuccess;
    case ENOENT:
    case ENOTDIR:
        return machine::RegFileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return machine::RegAccessDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ErrorDiskFull;
    default:
        return ErrorWriteFault;
    }
}

/// The folder that the file really lies in, with its slash.
std::string FolderOf(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(path.c_str(), nullptr), std::free);
    const std::string target = resolved ? resolved.get() : path;
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    return folder.empty() ? "./" : folder;
}

std::string ReasonOf(int error) {
    switch (error) {
    case EFBIG:
        return "Het bestand is te groot.";
    case EINVAL:
        return "Dit is geen bestand.";
    case EAGAIN:
        return "Het bestand is leeg of afgebroken.";
    default:
        return std::strerror(error);
    }
}

std::chrono::nanoseconds Age(const FileStamp& stamp, std::chrono::system_clock::time_point now) {
    return now.time_since_epoch() - std::chrono::nanoseconds(stamp.Modified);
}

} // namespace

std::string DefaultSettingsPath() {
    const std::string folder = UserFolder("XDG_CONFIG_HOME", "/.config");
    return folder.empty() ? folder : folder + "/tarvik/settings.reg";
}

RegFileStore::RegFileStore(std::string path, std::string branch, SettingsTeller teller)
    : path_(std::move(path)), branch_(std::move(branch)), teller_(std::move(teller)) {
    ClearLeftovers();
}

/// What a program left behind that was killed in the moment of replacing the file.
void RegFileStore::ClearLeftovers() const {
    if (!StampOf(path_)) {
        return;
    }
    const std::string folder = FolderOf(path_);
    std::vector<std::string> names;
    if (const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir); entries) {
        while (const dirent* const entry = readdir(entries.get())) {
            if (entry->d_name == std::string_view(LockName) || IsNameOfReplacement(entry->d_name, Mark)) {
                names.emplace_back(entry->d_name);
            }
        }
    }
    if (names.empty()) {
        return;
    }
    const FileLock lock(folder + LockName, std::chrono::milliseconds(0));
    if (lock.IsHeldByAnother()) {
        return; // they are those of a program that is at work
    }
    for (const std::string& name : names) {
        if (name != LockName) {
            unlink((folder + name).c_str());
        }
    }
}

/// Has another program emptied the file, and not written it to its end yet?
bool RegFileStore::IsBeingWritten(const FileContent& content) const {
    if (content.Bytes.empty()) {
        return true;
    }
    const bool isShorter = isKnown_ && content.Bytes.size() < file_.Bytes().size();
    const std::chrono::nanoseconds age =
        std::chrono::abs(Age(content.Stamp, std::chrono::system_clock::now()));
    const bool isWrittenInPlace = content.Stamp.Inode == state_.Inode; // and not put there whole
    if (isShorter && isWrittenInPlace && age < WritersBreath) {
        return true;
    }
    return (isShorter || age < WritersPause) && !RegFile::EndsWhole(content.Bytes);
}

/// Reads the file; 0 or errno, EAGAIN if it is being written.
int RegFileStore::TakeIn() {
    const auto asked = std::chrono::system_clock::now();
    const auto begun = Clock::now();
    FileContent content;
    if (const int error = ReadWholeFile(path_, MaximumFileSize, content); error != 0) {
        return error;
    }
    const bool isCut = IsBeingWritten(content);
    if (isCut && !isCut_) {
        return EAGAIN;
    }
    // A change within the same tick of the file system's clock leaves no mark on the stamp, so a file that
    // has just changed is not trusted to stay. Its clock may be ahead of this machine's: what was seen a tick
    // ago is settled.
    constexpr std::chrono::milliseconds tick{20};
    const bool isSettled =
        Age(content.Stamp, asked) > tick || (seen_ == content.Stamp && begun - seenAt_ > tick);
    state_ = content.Stamp;
    if (content.Bytes != file_.Bytes()) {
        file_ = RegFile(std::move(content.Bytes), branch_);
    }
    isKnown_ = !isCut;
    isCut_ = isCut;
    if (isSettled && !isCut) {
        stamp_ = state_;
    }
    return 0;
}

/// Once more after a failure, as long as that is of use.
int RegFileStore::ReadAgain(int error) {
    const auto end = Clock::now() + ReadPatience;
    for (int looks = 1; error != 0 && Clock::now() < end; ++looks) {
        const bool isLost = IsAbsence(error) && isKnown_;
        const bool isAllThereIs = error == EAGAIN && !isKnown_ && !isCut_;
        const int most = isLost ? LooksForALostFile : isAllThereIs ? LooksAtACutFile : LooksAtAFailure;
        if (looks >= most || isTold_ || (IsAbsence(error) && !isKnown_) || (error == EAGAIN && isKnown_)) {
            break;
        }
        std::this_thread::sleep_for(ReadPause);
        error = TakeIn();
    }
    return error;
}

/// Has this state of the file lasted for so long that its writer is not coming back to it?
bool RegFileStore::IsLeftAlone(const FileStamp& present) const {
    const bool isOld = Age(present, std::chrono::system_clock::now()) > WritersPause ||
                       Clock::now() - seenAt_ > WritersPause;
    return isOld && StampOf(path_) == present;
}

void RegFileStore::Look() {
    const std::optional<FileStamp> present = StampOf(path_);
    if (stamp_ && stamp_ == present) {
        return;
    }
    if (seen_ != present) {
        seen_ = present;
        seenAt_ = Clock::now();
    }
    stamp_.reset();
    int error = ReadAgain(TakeIn());
    if (error == EAGAIN && !isKnown_) { // better than nothing
        isCut_ = true;
        error = TakeIn();
    }
    failure_ = 0;
    if (error == 0) {
        isTold_ = false;
    } else if (IsAbsence(error)) {
        file_ = RegFile();
        isKnown_ = isCut_ = isTold_ = false;
    } else if (error != EAGAIN) {
        failure_ = error;
    } else if (isKnown_ && present && IsLeftAlone(*present)) {
        failure_ = error;
        stamp_ = present; // to look again is of no use until it changes
    }
}

void RegFileStore::Refresh() {
    Look();
    Tell();
}

/// May wait for the user, so nobody else may have to wait for this program meanwhile.
void RegFileStore::Tell() {
    if (failure_ == 0 || isTold_ || !teller_) {
        return;
    }
    isTold_ = true; // first: while it is on show the settings may be asked for
    teller_("De instellingen van Tarvik kunnen niet worden gelezen.\n" + path_ + '\n' + ReasonOf(failure_) +
            (isKnown_ ? "\nWat eerder is gelezen, blijft gelden." : ""));
}

machine::StoreTrouble RegFileStore::TroubleOf(const std::string& fullPath) const {
    using Trouble = machine::StoreTrouble;
    if (failure_ != 0 && failure_ != EAGAIN) {
        return Trouble::Unreadable;
    }
    if (!isKnown_ && !isCut_) {
        return Trouble::Missing;
    }
    if (!RegFile::IsOfKnownForm(file_.Bytes())) {
        return Trouble::UnknownEncoding;
    }
    if (failure_ == EAGAIN || isCut_ || !RegFile::EndsWhole(file_.Bytes())) {
        return Trouble::CutOff;
    }
    return file_.HasKey(fullPath) ? Trouble::None : Trouble::NoKey;
}

machine::StoreCondition RegFileStore::Condition(const std::string& path) {
    Look();
    const std::string fullPath = "HKEY_CURRENT_USER\\" + path;
    machine::StoreCondition condition{TroubleOf(fullPath), path_};
    condition.EarlierHolds = failure_ != 0 && isKnown_ && file_.HasKey(fullPath);
    switch (condition.Trouble) {
    case machine::StoreTrouble::Unreadable:
        condition.Reason = ReasonOf(failure_);
        break;
    case machine::StoreTrouble::CutOff:
        condition.Reason = ReasonOf(EAGAIN);
        break;
    case machine::StoreTrouble::Missing:
        condition.Reason = ReasonOf(ENOENT);
        break;
    default:
        break;
    }
    return condition;
}

std::int32_t RegFileStore::RegOpenKeyA(machine::RegistryKey root, const std::string& path,
                                       machine::RegistryKey& key) {
    const std::optional<std::string> above = keys_.PathOf(root);
    if (!above) {
        return machine::RegInvalidHandle;
    }
    std::string full = *above + '\\' + base::text::FromCodePage(machine::UpToNul(path));
    Refresh();
    if (!file_.HasKey(full)) {
        return machine::RegFileNotFound;
    }
    key = keys_.Open(std::move(full));
    return machine::RegSuccess;
}

std::int32_t RegFileStore::RegCloseKey(machine::RegistryKey key) {
    return keys_.Close(key) ? machine::RegSuccess : machine::RegInvalidHandle;
}

std::int32_t RegFileStore::RegQueryValueExA(machine::RegistryKey key, const std::string& name,
                                            std::uint32_t& type, char* data, std::uint32_t& size) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return machine::RegInvalidHandle;
    }
    Refresh();
    const std::optional<RegValue> value = file_.Find(*path, base::text::FromCodePage(machine::UpToNul(name)));
    if (!value) {
        return machine::RegFileNotFound;
    }
    type = value->Type;
    return machine::AnswerQuery(IsTextType(type) ? base::text::ToCodePage(value->Data) : value->Data, data,
                                size);
}

std::int32_t RegFileStore::RegSetValueExA(machine::RegistryKey key, const std::string& name,
                                          std::uint32_t type, std::string_view bytes) {
    const std::optional<std::string> path = keys_.PathOf(key);
    if (!path) {
        return machine::RegInvalidHandle;
    }
    const RegValue value{type, IsTextType(type) ? base::text::FromCodePage(bytes) : std::string(bytes)};
    const std::int32_t result = Store(*path, base::text::FromCodePage(machine::UpToNul(name)), value);
    Tell();
    return result;
}

std::int32_t RegFileStore::Store(const std::string& path, const std::string& name, const RegValue& value) {
    const FileLock lock(FolderOf(path_) + LockName, LockPatience);
    if (lock.IsHeldByAnother()) {
        return ErrorLockViolation;
    }
    int error = EAGAIN;
    for (int attempt = 1; error != 0; ++attempt) {
        Look();
        if (!isCut_ && !file_.HasKey(path)) {
            return machine::RegFileNotFound;
        }
        if (!isCut_) {
            const std::optional<std::string> changed = file_.WithValue(path, name, value);
            if (!changed) {
                return ErrorInvalidParameter;
            }
            error = ReplaceFile(path_, Mark, *changed, state_);
            stamp_.reset(); // whatever lies there now is read again
        }
        if (attempt == (error == EAGAIN ? WriteAttempts : FailedWriteAttempts)) {
            break;
        }
        if (error != 0) {
            std::this_thread::sleep_for(WritePause);
        }
    }
    return ErrorOf(error);
}

} // namespace desktop::regfile
