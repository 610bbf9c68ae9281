#include "platform/windows/WinBitmaps.h"

#include "platform/RuntimeError.h"
#include "platform/windows/GdiCanvas.h"
#include "platform/windows/PageDevice.h"
#include "platform/windows/Scale.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace platform::windows {

namespace {

constexpr double TwipsPerInch = 1440;
constexpr double MostDots = 32767;

/// A page of 40 may take half the memory at this depth, and black on white loses nothing.
constexpr WORD BitsPerDot = 16;

/// Of the screen that the desktop began with, as its forms are scaled; the same in both directions.
int ScreenDotsPerInch() {
    static const int dots = ScreenScale().DotsPerInch();
    return dots;
}

LONG DotsOf(double twips) {
    const double dots = std::ceil(twips * ScreenDotsPerInch() / TwipsPerInch);
    if (!(dots >= 1 && dots <= MostDots)) {
        throw OutOfMemory();
    }
    return static_cast<LONG>(dots);
}

/// Red, green and blue of 5, 6 and 5 bits; from the top down.
Bitmap MakeBitmap(SIZE dots) {
    struct {
        BITMAPINFOHEADER Header;
        DWORD Masks[3];
    } info{{sizeof(BITMAPINFOHEADER), dots.cx, -dots.cy, 1, BitsPerDot, BI_BITFIELDS, 0, 0, 0, 0, 0},
           {0xF800, 0x07E0, 0x001F}};
    void* bits = nullptr;
    Bitmap bitmap(
        ::CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) {
        throw OutOfMemory();
    }
    return bitmap;
}

DeviceContext MemoryDevice() {
    DeviceContext device(::CreateCompatibleDC(nullptr));
    if (!device) {
        throw OutOfMemory();
    }
    return device;
}

/// Draws on a bitmap of its own. One that has been handed out stays as it is: the drawing goes on upon a
/// copy.
class PictureDevice final : public PageDevice {
  public:
    PictureDevice(double width, double height)
        : width_(width), height_(height), picture_(std::make_shared<WinPageBitmap>(width, height)),
          device_(MemoryDevice()) {}

    HDC PageContext() override {
        if (!drawing_) {
            if (picture_.use_count() > 1) {
                picture_ = std::make_shared<WinPageBitmap>(*picture_);
            }
            drawing_.emplace(device_.Get(), picture_->Handle());
        }
        return device_.Get();
    }
    Resolution DotsPerInch() override { return {dotsPerInch_, dotsPerInch_}; }
    void NewPage() override { Clear(); }
    void EndDocument() override {}
    void DrawingFailed() override { throw OutOfMemory(); }
    // Grey at its edges alone: the colours of a screen's stripes would show when the picture is scaled.
    BYTE FontQuality() override { return ANTIALIASED_QUALITY; }

    void Clear() {
        drawing_.reset();
        picture_ = std::make_shared<WinPageBitmap>(width_, height_);
    }

    std::shared_ptr<const PageBitmap> Picture() {
        drawing_.reset();
        return picture_;
    }

  private:
    double width_;
    double height_;
    int dotsPerInch_ = ScreenDotsPerInch();
    std::shared_ptr<WinPageBitmap> picture_;
    DeviceContext device_;
    std::optional<Selected> drawing_; // before the device and the picture that it holds go
};

class WinPage final : public OffscreenPage {
  public:
    WinPage(double width, double height) : device_(width, height) {}

    Canvas& Drawing() override { return canvas_; }
    std::shared_ptr<const PageBitmap> Image() override { return device_.Picture(); }
    void Cls() override { device_.Clear(); }

  private:
    PictureDevice device_;
    GdiCanvas canvas_{device_};
};

} // namespace

WinPageBitmap::WinPageBitmap(double width, double height)
    : width_(width), height_(height), dots_{DotsOf(width), DotsOf(height)}, bitmap_(MakeBitmap(dots_)) {
    const DeviceContext device = MemoryDevice();
    const Selected selected(device.Get(), bitmap_.Get());
    ::PatBlt(device.Get(), 0, 0, dots_.cx, dots_.cy, WHITENESS);
}

WinPageBitmap::WinPageBitmap(const WinPageBitmap& other)
    : PageBitmap(), width_(other.width_), height_(other.height_), dots_(other.dots_),
      bitmap_(MakeBitmap(dots_)) {
    const DeviceContext from = MemoryDevice();
    const DeviceContext to = MemoryDevice();
    const Selected source(from.Get(), other.bitmap_.Get());
    const Selected target(to.Get(), bitmap_.Get());
    ::BitBlt(to.Get(), 0, 0, dots_.cx, dots_.cy, from.Get(), 0, 0, SRCCOPY);
}

std::unique_ptr<OffscreenPage> WinBitmaps::CreatePage(double width, double height) {
    return std::make_unique<WinPage>(width, height);
}

} // namespace platform::windows
