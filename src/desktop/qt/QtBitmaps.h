#pragma once

#include <QRectF>

#include "machine/Bitmaps.h"
#include "machine/PageRecord.h"

class QPainter;

namespace desktop::qt {

class PagePainter;

/// A page as it was drawn: the drawing calls, which are painted at the density of whatever shows them.
class QtPageBitmap final : public machine::PageBitmap {
  public:
    QtPageBitmap(machine::PageRecord record, double width, double height,
                 std::shared_ptr<PagePainter> painter);

    double Width() const override { return width_; }
    double Height() const override { return height_; }

    /// Size in logical dots, to whole dots of what the painter draws on.
    QSizeF Size(const QPainter& painter) const;
    /// Paints the white sheet and what is on it, with its top left at the origin. The painter's units are
    /// logical dots; nothing need be painted outside `part`.
    void Paint(QPainter& painter, const QRectF& part) const;

  private:
    machine::PageRecord record_;
    double width_;
    double height_;
    std::shared_ptr<PagePainter> painter_;
};

/// Pages that are kept as drawing calls, with the texts as wide as on paper.
class QtBitmaps final : public machine::Bitmaps {
  public:
    std::unique_ptr<machine::OffscreenPage> CreatePage(double width, double height) override;
};

} // namespace desktop::qt
