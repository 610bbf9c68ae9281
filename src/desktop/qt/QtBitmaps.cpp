#include "desktop/qt/QtBitmaps.h"

#include <cmath>
#include <utility>

#include <QGuiApplication>
#include <QPainter>

#include "base/RuntimeError.h"
#include "desktop/qt/Fonts.h"
#include "desktop/qt/PageDevice.h"
#include "desktop/qt/PageUnits.h"
#include "desktop/qt/QtCanvas.h"
#include "desktop/qt/Scale.h"
#include "machine/RecordedPage.h"

namespace desktop::qt {

namespace {

double DotsOf(double twips, double density) {
    return std::ceil(twips * DotsPerTwip() * density);
}

/// Raises an error unless the screen can show so many twips. A driver may claim any size of sheet.
void CheckExtent(double twips) {
    constexpr double most = 32767;
    const double dots = DotsOf(twips, qGuiApp->devicePixelRatio());
    if (!(dots > 0 && dots <= most)) {
        throw base::OutOfMemory();
    }
}

} // namespace

/// Draws on whatever painter it is given; the fonts stay ready from page to page.
class PagePainter final : private PageDevice {
  public:
    machine::Canvas& Measures() { return canvas_; }

    /// `part` has what is painted in it, in the painter's units.
    void Paint(QPainter& painter, const QRectF& part, const machine::PageRecord& record) {
        painter_ = &painter;
        part_ = part;
        glyphs_.clear(); // of a painting that broke off
        places_.clear();
        record.DrawOn(canvas_);
        DrawGathered();
        painter_ = nullptr;
    }

  private:
    // Whoever asks draws a line, which may lie over what is gathered.
    QPainter* Painter() override {
        DrawGathered();
        return painter_;
    }
    bool Begin() override { return painter_ != nullptr; }
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                    std::span<const QPointF> places) override {
        const double height = 2 * face.pixelSize(); // of the tallest letter, above or below its line
        if (places.front().y() + height < part_.top() || places.front().y() - height > part_.bottom()) {
            return;
        }
        if (!(face == face_)) {
            DrawGathered();
            face_ = face;
        }
        glyphs_.insert(glyphs_.end(), glyphs.begin(), glyphs.end());
        places_.insert(places_.end(), places.begin(), places.end());
    }
    void DrawGathered() {
        if (!glyphs_.empty()) {
            DrawGlyphRun(*painter_, face_, glyphs_, places_);
            glyphs_.clear();
            places_.clear();
        }
    }
    void NewPage() override {}
    void EndDocument() override {}
    double LineWidth() override { return 0; }

    QPainter* painter_ = nullptr;
    QRectF part_;
    QRawFont face_;
    std::vector<quint32> glyphs_;
    std::vector<QPointF> places_;
    QtCanvas canvas_{*this};
};

namespace {

class QtPage final : public machine::RecordedPage {
  public:
    QtPage(double width, double height) : width_(width), height_(height) {
        CheckExtent(width);
        CheckExtent(height);
    }

  private:
    machine::Canvas& Measures() override { return painter_->Measures(); }
    std::shared_ptr<const machine::PageBitmap> PictureOf(const machine::PageRecord& record) override {
        return std::make_shared<QtPageBitmap>(record, width_, height_, painter_);
    }

    double width_;
    double height_;
    std::shared_ptr<PagePainter> painter_ = std::make_shared<PagePainter>();
};

} // namespace

QtPageBitmap::QtPageBitmap(machine::PageRecord record, double width, double height,
                           std::shared_ptr<PagePainter> painter)
    : record_(std::move(record)), width_(width), height_(height), painter_(std::move(painter)) {}

QSizeF QtPageBitmap::Size(const QPainter& painter) const {
    const double density = painter.device()->devicePixelRatio();
    return QSizeF(DotsOf(width_, density), DotsOf(height_, density)) / density;
}

void QtPageBitmap::Paint(QPainter& painter, const QRectF& part) const {
    const QRectF sheet(QPointF(0, 0), Size(painter));
    painter.save();
    painter.setClipRect(sheet, Qt::IntersectClip);
    painter.fillRect(sheet, Qt::white);
    painter.setPen(Qt::black);
    const double dotsPerUnit = DotsPerTwip() / UnitsPerTwip;
    painter.scale(dotsPerUnit, dotsPerUnit);
    const QRectF painted = part & sheet;
    painter_->Paint(painter, {painted.topLeft() / dotsPerUnit, painted.size() / dotsPerUnit}, record_);
    painter.restore();
}

std::unique_ptr<machine::OffscreenPage> QtBitmaps::CreatePage(double width, double height) {
    return std::make_unique<QtPage>(width, height);
}

} // namespace desktop::qt
