#include "platform/qt/QtBitmaps.h"

#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <optional>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/qt/PageDevice.h"
#include "platform/qt/QtCanvas.h"
#include "platform/qt/Scale.h"

namespace platform::qt {

namespace {

constexpr double UnitsPerTwip = 5; // 7200 and 1440 to the inch

/// A page of 40 may take half the memory in this format, and black on white loses nothing.
constexpr QImage::Format Format = QImage::Format_RGB16;

/// Whole dots that hold so many. A driver may claim any size of sheet.
int Extent(double dots) {
    constexpr double most = 32767;
    if (!(dots > 0 && dots <= most)) {
        throw OutOfMemory();
    }
    return static_cast<int>(std::ceil(dots));
}

class ImageDevice final : public PageDevice {
  public:
    ImageDevice(double width, double height)
        : density_(qGuiApp->devicePixelRatio()),
          size_(Extent(width * DotsPerTwip() * density_), Extent(height * DotsPerTwip() * density_)) {
        Clear();
    }

    QPainter* Painter() override {
        if (!painter_) {
            painter_.emplace(&image_);
            painter_->setRenderHint(QPainter::TextAntialiasing);
            painter_->scale(DotsPerTwip() / UnitsPerTwip, DotsPerTwip() / UnitsPerTwip);
        }
        return &*painter_;
    }
    void NewPage() override { Clear(); }
    void EndDocument() override {}
    double LineWidth() override { return 0; }

    // A picture that somebody keeps is left to them: to wipe it would copy it first.
    void Clear() {
        painter_.reset();
        if (!image_.isDetached()) {
            QImage fresh(size_, Format);
            if (fresh.isNull()) {
                throw OutOfMemory();
            }
            fresh.setDevicePixelRatio(density_);
            image_ = std::move(fresh);
        }
        image_.fill(Qt::white);
    }

    QImage Image() {
        painter_.reset();
        return image_;
    }

  private:
    double density_; // dots of the finest screen to a logical one
    QSize size_;
    QImage image_;
    std::optional<QPainter> painter_;
};

class QtPage final : public OffscreenPage {
  public:
    QtPage(double width, double height) : width_(width), height_(height), device_(width, height) {}

    Canvas& Drawing() override { return canvas_; }

    // The picture shares its dots with the page until the page is drawn on again.
    std::shared_ptr<const PageBitmap> Image() override {
        return std::make_shared<QtPageBitmap>(device_.Image(), width_, height_);
    }

    void Cls() override { device_.Clear(); }

  private:
    double width_;
    double height_;
    ImageDevice device_;
    QtCanvas canvas_{device_};
};

} // namespace

std::unique_ptr<OffscreenPage> QtBitmaps::CreatePage(double width, double height) {
    return std::make_unique<QtPage>(width, height);
}

} // namespace platform::qt
