#include "desktop/qt/PdfDocument.h"

#include <QByteArrayView>
#include <QPageLayout>
#include <QPageSize>

#include "base/RuntimeError.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/PageDevice.h"
#include "desktop/qt/PageUnits.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace desktop::qt {

namespace {

// A table from a font's glyphs to characters, which the toolkit writes in one piece and does not compress.
constexpr QByteArrayView TableStart = "/CIDInit ";
constexpr QByteArrayView RangesStart = "beginbfrange";

// Of the same length, so that everything in the file stays where it is.
constexpr QByteArrayView Tab = "<0009>";
constexpr QByteArrayView Blank = "<0020>";

/// A line gives the characters of a range of glyphs, as one list in brackets or, where they follow on each
/// other, the first of them behind the range.
void MendLine(QByteArray& table, qsizetype start, qsizetype end) {
    const qsizetype list = table.indexOf('[', start);
    const bool isList = list >= 0 && list < end;
    qsizetype at = isList ? list : table.lastIndexOf('<', end);
    while ((at = table.indexOf(Tab, at)) >= start && at < end) {
        table.replace(at, Tab.size(), Blank);
    }
}

QByteArray WithBlanks(QByteArray table) {
    qsizetype start = table.indexOf(RangesStart);
    while (start >= 0 && (start = table.indexOf('\n', start + 1)) >= 0) {
        const qsizetype end = table.indexOf('\n', start + 1);
        MendLine(table, start, end < 0 ? table.size() : end);
    }
    return table;
}

using base::TwipsPerPoint;

/// The nearest whole number, half away from zero. Each glyph of a batch comes here, and std::round is a call
/// of the C library. A place is never beyond what an int holds.
double Whole(double at) {
    return static_cast<int>(at < 0 ? at - 0.5 : at + 0.5);
}

/// Glyphs that are kept back before they go into the file.
constexpr std::size_t MostGathered = 4096;

/// To compress a page the toolkit takes 32 MB of addresses, of which it uses some 300 KB. As the C library
/// comes, it gives them back to the system after every page, and asks for them again.
void KeepMemoryOfPages() {
#ifdef __GLIBC__
    constexpr int block = 32 * 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, block);
    mallopt(M_TRIM_THRESHOLD, 2 * block);
#endif
}

QPageLayout LayoutOf(const Sheet& sheet) {
    const bool wide = sheet.Width > sheet.Height;
    QSizeF upright(sheet.Width / TwipsPerPoint, sheet.Height / TwipsPerPoint);
    if (wide) {
        upright.transpose();
    }
    return QPageLayout(QPageSize(upright, QPageSize::Point, QString(), QPageSize::FuzzyMatch),
                       wide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
}

} // namespace

PdfOutput::PdfOutput(QIODevice& output) : output_(output) {
    open(WriteOnly | Unbuffered);
}

qint64 PdfOutput::readData(char* /*data*/, qint64 /*length*/) {
    return -1;
}

qint64 PdfOutput::writeData(const char* data, qint64 length) {
    const qint64 taken = GuardedQuietly(qint64{-1}, [&] {
        const bool isTable = QByteArrayView(data, length).startsWith(TableStart);
        return isTable ? output_.write(WithBlanks(QByteArray(data, length))) : output_.write(data, length);
    });
    hasFailed_ = hasFailed_ || taken != length;
    return taken;
}

PdfDocument::PdfDocument(QIODevice& output, const std::string& title, const Sheet& sheet)
    : output_(output), writer_(&output_) {
    KeepMemoryOfPages();
    writer_.setResolution(UnitsPerInch);
    writer_.setTitle(QString::fromStdString(title));
    writer_.setCreator(QStringLiteral("Drukkeuring"));
    writer_.setPageLayout(LayoutOf(sheet));
    if (!painter_.begin(&writer_)) {
        throw base::RuntimeError(base::ErrorPrinter, "Het document kon niet worden begonnen.");
    }
    Place(sheet);
}

QPainter& PdfDocument::Painter() {
    DrawGathered();
    return painter_;
}

void PdfDocument::DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                             std::span<const QPointF> places) {
    if (glyphs_.size() > MostGathered || !(face == face_)) {
        DrawGathered();
        face_ = face;
    }
    glyphs_.insert(glyphs_.end(), glyphs.begin(), glyphs.end());
    for (const QPointF& place : places) {
        places_.emplace_back(Whole(place.x()), Whole(place.y()));
    }
}

void PdfDocument::DrawGathered() {
    if (!glyphs_.empty()) {
        DrawGlyphRun(painter_, face_, glyphs_, places_);
        glyphs_.clear();
        places_.clear();
    }
}

void PdfDocument::NewPage(const Sheet& sheet) {
    DrawGathered();
    writer_.setPageLayout(LayoutOf(sheet));
    if (HasFailed() || !writer_.newPage()) {
        throw base::RuntimeError(base::ErrorPrinter, "De volgende pagina kon niet worden begonnen.");
    }
    Place(sheet);
}

void PdfDocument::End() {
    DrawGathered();
    painter_.end();
}

void PdfDocument::Place(const Sheet& sheet) {
    painter_.setTransform(
        QTransform::fromTranslate(sheet.OriginX * UnitsPerTwip, sheet.OriginY * UnitsPerTwip));
}

} // namespace desktop::qt
