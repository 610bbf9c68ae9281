#pragma once

#include <string>
#include <string_view>

#include "desktop/regfile/Descriptor.h"

namespace desktop::regfile {

/// Writes a file from its beginning to its end. All calls return 0 or errno, and the first failure holds for
/// all that follow: what comes later may fit again, and the file would have a gap.
class FileWriter {
  public:
    FileWriter() = default;
    explicit FileWriter(Descriptor file) : file_(std::move(file)) {}

    const Descriptor& File() const { return file_; }

    int Write(std::string_view bytes);
    /// Hands over what waits in memory until there is enough of it.
    int Flush();

  private:
    int WriteAll(std::string_view bytes);

    Descriptor file_;
    std::string waiting_;
    int error_ = 0;
};

} // namespace desktop::regfile
