#pragma once

#include <QString>
#include <optional>

#include "base/RuntimeError.h"
#include "desktop/cups/PrintQueue.h"
#include "desktop/regfile/FileReplacement.h"

namespace desktop::qt {

/// A document on its way into a file, which is there when it is complete, or stays as it was.
class FileJob : public cups::PrintJob {
  public:
    /// Without a path the document goes nowhere. RuntimeError(ErrorPrinter) if the file cannot be made.
    explicit FileJob(const std::optional<QString>& path);

    bool IsWanted() const override { return path_.has_value(); }
    /// What finds no place is told by Finish, which knows the file and the reason.
    int Write(std::string_view bytes) override;
    void Finish() override;

  private:
    base::RuntimeError Failure(int error) const;

    std::optional<QString> path_;
    regfile::FileReplacement file_;
};

} // namespace desktop::qt
