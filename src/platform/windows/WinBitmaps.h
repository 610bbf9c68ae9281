#pragma once

#include "platform/Bitmaps.h"
#include "platform/windows/GdiObjects.h"

namespace platform::windows {

/// A page as it was drawn, in the dots of the screen. Whoever shows it may select the handle into a device
/// context for a moment; nobody draws on it any more.
class WinPageBitmap final : public PageBitmap {
  public:
    /// White. RuntimeError without memory, or for a size that is none; twips.
    WinPageBitmap(double width, double height);

    /// The same picture once more.
    WinPageBitmap(const WinPageBitmap& other);
    WinPageBitmap& operator=(const WinPageBitmap&) = delete;

    double Width() const override { return width_; }
    double Height() const override { return height_; }

    HBITMAP Handle() const { return bitmap_.Get(); }
    /// Size in dots.
    SIZE Dots() const { return dots_; }

  private:
    double width_;
    double height_;
    SIZE dots_;
    Bitmap bitmap_;
};

/// Pages that are drawn in memory, with the texts as wide as on paper. A screen of higher density gets more
/// dots of the same picture.
class WinBitmaps final : public Bitmaps {
  public:
    std::unique_ptr<OffscreenPage> CreatePage(double width, double height) override;
};

} // namespace platform::windows
