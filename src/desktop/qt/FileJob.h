#pragma once

#include <QIODevice>
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

    QIODevice* Output() override { return device_.isOpen() ? &device_ : nullptr; }
    void Finish() override;

  private:
    class Device : public QIODevice {
      public:
        explicit Device(regfile::FileReplacement& file) : file_(file) {}
        bool isSequential() const override { return true; }

      protected:
        qint64 readData(char*, qint64) override { return -1; }
        qint64 writeData(const char* data, qint64 length) override;

      private:
        regfile::FileReplacement& file_;
    };

    base::RuntimeError Failure(int error) const;

    QString path_;
    regfile::FileReplacement file_;
    Device device_{file_};
};

} // namespace desktop::qt
