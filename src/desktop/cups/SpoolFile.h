#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "desktop/regfile/FileWriter.h"

namespace desktop::cups {

/// Words a failure of the system for the user, by its errno.
using SystemReason = std::function<std::string(int error)>;

/// In the words of the C library.
std::string LibrarysReason(int error);

/// A file for a document that waits for the print server: with a place on the disk but without a name, so no
/// other user can open it and the system takes it back when the program ends, however it ends.
class SpoolFile {
  public:
    /// In `folder`, which is made for the user alone if it is not there. RuntimeError(ErrorPrinter) if there
    /// is no room for it.
    explicit SpoolFile(std::string folder, SystemReason reason = LibrarysReason);

    /// 0 or errno. The first failure is kept, and told by Rewind.
    int Write(std::string_view bytes) { return writer_.Write(bytes); }

    /// What the user is told where bytes found no place, for the reason `error`, an errno.
    std::string Loss(int error) const;

    /// To be read from its beginning, through Number(). RuntimeError(ErrorPrinter) if the disk has not taken
    /// all that was written since the file was opened.
    void Rewind();

    /// The open file.
    int Number() const { return writer_.File().Number(); }
    /// Has it been read to its end?
    bool IsRead() const;

  private:
    [[noreturn]] void Fail(int error) const;

    std::string folder_;
    SystemReason reason_;
    regfile::FileWriter writer_;
};

} // namespace desktop::cups
