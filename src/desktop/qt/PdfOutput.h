#pragma once

#include <QIODevice>

namespace desktop::qt {

/// Hands a PDF on as the toolkit writes it. The toolkit takes the blank for a tab where a font has the same
/// glyph for both, so who copies a text gets tabs; here a blank stays a blank.
class PdfOutput : public QIODevice {
  public:
    /// `output` must live as long as the object, and is told of every byte at once.
    explicit PdfOutput(QIODevice& output);

    /// True once `output` has not taken what it was given. The toolkit asks that of a file alone, which this
    /// is not.
    bool HasFailed() const { return hasFailed_; }

    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char* data, qint64 length) override;
    qint64 writeData(const char* data, qint64 length) override;

  private:
    QIODevice& output_;
    bool hasFailed_ = false;
};

} // namespace desktop::qt
