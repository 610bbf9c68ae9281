#pragma once

#include <span>
#include <vector>

#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <QString>

namespace desktop::qt {

/// A sheet as it is drawn on, turned already; twips.
struct Sheet {
    double Width = 0;
    double Height = 0;
    double OriginX = 0; ///< where the printable area begins
    double OriginY = 0;
};

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

/// A PDF that is written as it is drawn, page by page, so a long document takes no more memory than a short
/// one.
class PdfDocument {
  public:
    PdfDocument(QIODevice& output, const std::string& title, const Sheet& sheet);

    /// Draws in units of 1/7200 inch from the top left of the printable area.
    QPainter& Painter();
    /// Draws glyphs of one face at their places, rounded to whole units: 0.002 mm at most. Those of texts
    /// that follow on each other in one face go into the file together.
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs, std::span<const QPointF> places);
    void NewPage(const Sheet& sheet);
    /// Writes what is left.
    void End();
    /// True once the device has not taken all.
    bool HasFailed() const { return output_.HasFailed(); }

  private:
    void Place(const Sheet& sheet);
    void DrawGathered();

    PdfOutput output_;
    QPdfWriter writer_;
    QPainter painter_;

    // Not yet in the file.
    QRawFont face_;
    std::vector<quint32> glyphs_;
    std::vector<QPointF> places_;
};

} // namespace desktop::qt
