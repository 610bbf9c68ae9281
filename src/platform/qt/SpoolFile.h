#pragma once

#include <QFile>
#include <QString>

namespace platform::qt {

/// A file for a document that waits for the print server: with a place on the disk but without a name, so no
/// other user can open it and the system takes it back when the program ends, however it ends.
class SpoolFile : public QFile {
  public:
    /// In `folder`, which is made for the user alone if it is not there. RuntimeError(ErrorPrinter) if there
    /// is no room for it.
    explicit SpoolFile(const QString& folder);

    /// To be read from its beginning, through handle(). RuntimeError(ErrorPrinter) if the disk has not taken
    /// all that was written since the file was opened.
    void Rewind();

  protected:
    qint64 writeData(const char* data, qint64 length) override;

  private:
    QString failure_; ///< why the disk has not taken everything
};

} // namespace platform::qt
