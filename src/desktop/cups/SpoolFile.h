#pragma once

#include <QIODevice>
#include <QString>

#include "desktop/regfile/FileWriter.h"

namespace desktop::cups {

/// A file for a document that waits for the print server: with a place on the disk but without a name, so no
/// other user can open it and the system takes it back when the program ends, however it ends.
class SpoolFile : public QIODevice {
  public:
    /// In `folder`, which is made for the user alone if it is not there. RuntimeError(ErrorPrinter) if there
    /// is no room for it.
    explicit SpoolFile(const QString& folder);

    bool isSequential() const override { return true; }

    /// To be read from its beginning, through Number(). RuntimeError(ErrorPrinter) if the disk has not taken
    /// all that was written since the file was opened.
    void Rewind();

    /// The open file.
    int Number() const { return writer_.File().Number(); }
    /// Has it been read to its end?
    bool IsRead() const;

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 length) override;

  private:
    QString folder_;
    regfile::FileWriter writer_;
};

} // namespace desktop::cups
