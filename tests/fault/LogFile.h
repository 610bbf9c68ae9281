#pragma once

#include <string>
#include <vector>

namespace fault {

class Fault;

/// The print log in the current directory. While one of these stands the file starts out missing, and the
/// program's opening of it and writing to it fail when the fault says so; the linker leads both calls here.
class LogFile {
  public:
    explicit LogFile(Fault& fault);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// The lines as they stand in the file, each with its line break.
    static std::vector<std::string> Lines();
};

} // namespace fault
