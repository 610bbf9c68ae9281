#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "desktop/regfile/FileWriter.h"
#include "desktop/regfile/PosixFile.h"

namespace desktop::regfile {

/// Bytes on their way into the place of a file: whole, when all of them are on the disk, or not at all. They
/// have no name until then, so nothing is left of them when the program ends early, however it ends. (A file
/// system that knows no files without a name has them beside the file, behind a dot.)
///
/// A symbolic link stays and its target changes; a file that is replaced passes on its rights, and its owner
/// where the machine allows it. All calls return 0 or errno; after a failure the old file is untouched.
class FileReplacement {
  public:
    FileReplacement() = default;
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// For a file that need not be there. `mark` begins the name that the bytes may have beside it.
    int Begin(const std::string& path, std::string_view mark = ".drukkeuring-");

    /// The first failure holds for all further calls.
    int Write(std::string_view bytes);

    /// With `before` only if the file is still in that state: EAGAIN if another program has written it
    /// meanwhile. EEXIST if a file has appeared where none was.
    int Commit(const std::optional<FileStamp>& before = std::nullopt);

  private:
    int OpenBesideTarget();
    int TakeOverRights();
    int BringToDisk();
    int LinkBesideTarget();
    int PutInPlace();
    int Appear();
    int Keep(int error);

    std::string target_;
    std::string folder_; // with its slash
    std::string mark_;
    std::optional<struct stat> old_; // nothing if there was no file
    FileWriter writer_;
    std::string name_; // of the bytes beside the target; empty as long as they have none
    int error_ = 0;
};

/// Is this a name that bytes on their way into a file's place may have beside it?
bool IsNameOfReplacement(std::string_view name, std::string_view mark);

/// Puts new bytes in the place of an existing file that is still in the state `before`, as above.
int ReplaceFile(const std::string& path, std::string_view mark, std::string_view bytes,
                const FileStamp& before);

} // namespace desktop::regfile
