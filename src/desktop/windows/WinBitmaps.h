#pragma once

#include "desktop/windows/Win32.h"

#include "machine/Bitmaps.h"
#include "machine/PageRecord.h"

namespace desktop::windows {

class PagePainter;

/// A page as it was drawn: the drawing calls, which are painted at the density of whatever shows them.
class WinPageBitmap final : public machine::PageBitmap {
  public:
    WinPageBitmap(machine::PageRecord record, double width, double height,
                  std::shared_ptr<PagePainter> painter);

    double Width() const override { return width_; }
    double Height() const override { return height_; }

    /// Size in dots, of which so many make an inch.
    SIZE Dots(int dotsPerInch) const;
    /// Paints the white sheet and what is on it, with its top left at the device's origin. What the machine
    /// has no memory for is left out.
    void Paint(HDC device, int dotsPerInch) const;

  private:
    machine::PageRecord record_;
    double width_;
    double height_;
    std::shared_ptr<PagePainter> painter_;
};

/// Pages that are kept as drawing calls, with the texts as wide as on paper.
class WinBitmaps final : public machine::Bitmaps {
  public:
    std::unique_ptr<machine::OffscreenPage> CreatePage(double width, double height) override;
};

} // namespace desktop::windows
