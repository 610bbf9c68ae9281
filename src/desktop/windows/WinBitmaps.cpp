#include "desktop/windows/WinBitmaps.h"

#include <cmath>
#include <utility>

#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "base/Units.h"
#include "desktop/windows/GdiCanvas.h"
#include "desktop/windows/PageDevice.h"
#include "desktop/windows/Scale.h"
#include "machine/RecordedPage.h"

namespace desktop::windows {

namespace {

using base::TwipsPerInch;

double DotsOf(double twips, int dotsPerInch) {
    return std::ceil(twips * dotsPerInch / TwipsPerInch);
}

/// Raises an error unless the screen can show so many twips. A driver may claim any size of sheet.
void CheckExtent(double twips) {
    constexpr double most = 32767;
    static const int dotsPerInch = ScreenScale().DotsPerInch();
    const double dots = DotsOf(twips, dotsPerInch);
    if (!(dots >= 1 && dots <= most)) {
        throw base::OutOfMemory();
    }
}

} // namespace

/// Draws on whatever device it is given; the fonts stay ready from page to page.
class PagePainter final : private PageDevice {
  public:
    machine::Canvas& Measures() { return canvas_; }

    void Paint(HDC device, int dotsPerInch, const machine::PageRecord& record) {
        device_ = device;
        dotsPerInch_ = dotsPerInch;
        base::Resume([&] { record.DrawOn(canvas_); });
        device_ = nullptr;
    }

  private:
    HDC PageContext() override { return device_; }
    Resolution DotsPerInch() override { return {dotsPerInch_, dotsPerInch_}; }
    void NewPage() override {}
    void EndDocument() override {}
    void DrawingFailed() override {}
    // Grey at its edges alone: colours would tell the stripes of a screen that the window may leave.
    BYTE FontQuality() override { return ANTIALIASED_QUALITY; }

    HDC device_ = nullptr;
    int dotsPerInch_ = 0;
    GdiCanvas canvas_{*this};
};

namespace {

class WinPage final : public machine::RecordedPage {
  public:
    WinPage(double width, double height) : width_(width), height_(height) {
        CheckExtent(width);
        CheckExtent(height);
    }

  private:
    machine::Canvas& Measures() override { return painter_->Measures(); }
    std::shared_ptr<const machine::PageBitmap> PictureOf(const machine::PageRecord& record) override {
        return std::make_shared<WinPageBitmap>(record, width_, height_, painter_);
    }

    double width_;
    double height_;
    std::shared_ptr<PagePainter> painter_ = std::make_shared<PagePainter>();
};

} // namespace

WinPageBitmap::WinPageBitmap(machine::PageRecord record, double width, double height,
                             std::shared_ptr<PagePainter> painter)
    : record_(std::move(record)), width_(width), height_(height), painter_(std::move(painter)) {}

SIZE WinPageBitmap::Dots(int dotsPerInch) const {
    return {static_cast<LONG>(DotsOf(width_, dotsPerInch)), static_cast<LONG>(DotsOf(height_, dotsPerInch))};
}

void WinPageBitmap::Paint(HDC device, int dotsPerInch) const {
    const SIZE dots = Dots(dotsPerInch);
    const int before = ::SaveDC(device);
    ::IntersectClipRect(device, 0, 0, dots.cx, dots.cy);
    ::PatBlt(device, 0, 0, dots.cx, dots.cy, WHITENESS);
    painter_->Paint(device, dotsPerInch, record_);
    ::RestoreDC(device, before);
}

std::unique_ptr<machine::OffscreenPage> WinBitmaps::CreatePage(double width, double height) {
    return std::make_unique<WinPage>(width, height);
}

} // namespace desktop::windows
