#pragma once

#include <QImage>

#include "platform/Bitmaps.h"

namespace platform::qt {

/// A page as it was drawn, in the dots of the finest screen of the desktop. The picture knows their density.
class QtPageBitmap final : public PageBitmap {
  public:
    QtPageBitmap(QImage image, double width, double height)
        : image_(std::move(image)), width_(width), height_(height) {}

    double Width() const override { return width_; }
    double Height() const override { return height_; }
    const QImage& Image() const { return image_; }

  private:
    QImage image_;
    double width_;
    double height_;
};

/// Pages that are drawn in memory, with the texts as wide as on paper.
class QtBitmaps final : public Bitmaps {
  public:
    std::unique_ptr<OffscreenPage> CreatePage(double width, double height) override;
};

} // namespace platform::qt
