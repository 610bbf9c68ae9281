#include "platform/qt/PdfDocument.h"

#include "platform/RuntimeError.h"

#include <QIODevice>
#include <QPageLayout>
#include <QPageSize>

namespace platform::qt {

namespace {

constexpr int UnitsPerInch = 7200;
constexpr double UnitsPerTwip = 5;
constexpr double TwipsPerPoint = 20;

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

PdfDocument::PdfDocument(QIODevice& output, const std::string& title, const Sheet& sheet)
    : output_(output), writer_(&output_) {
    writer_.setResolution(UnitsPerInch);
    writer_.setTitle(QString::fromStdString(title));
    writer_.setCreator(QStringLiteral("Drukkeuring"));
    writer_.setPageLayout(LayoutOf(sheet));
    if (!painter_.begin(&writer_)) {
        throw RuntimeError(ErrorPrinter, "Het document kon niet worden begonnen.");
    }
    Place(sheet);
}

void PdfDocument::NewPage(const Sheet& sheet) {
    writer_.setPageLayout(LayoutOf(sheet));
    if (output_.HasFailed() || !writer_.newPage()) {
        throw RuntimeError(ErrorPrinter, "De volgende pagina kon niet worden begonnen.");
    }
    Place(sheet);
}

void PdfDocument::End() {
    painter_.end();
}

void PdfDocument::Place(const Sheet& sheet) {
    painter_.setTransform(
        QTransform::fromTranslate(sheet.OriginX * UnitsPerTwip, sheet.OriginY * UnitsPerTwip));
}

} // namespace platform::qt
