#pragma once

#include <chrono>
#include <string>

#include "desktop/regfile/Descriptor.h"

namespace desktop::regfile {

/// Held by a program from its reading of a file to the writing of it, so that of two that change the file
/// neither writes over the other's change. It is a file with a lock on it, and goes when this does.
class FileLock {
  public:
    /// Waits at most `patience` for another program to let go.
    FileLock(std::string lockFile, std::chrono::milliseconds patience);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// False as well where no lock can be had, as on a file system that knows none: who must write goes on.
    bool IsHeldByAnother() const { return isHeldByAnother_; }

  private:
    int Try();

    std::string lockFile_;
    Descriptor descriptor_;
    bool isHeldByAnother_ = false;
};

} // namespace desktop::regfile
