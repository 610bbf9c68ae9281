#pragma once

#include <memory>

#include "machine/Canvas.h"

namespace machine {

/// A finished picture of a page, shared by whoever shows it. Lengths are twips, 15 to the dot of a screen of
/// 96 dots to the inch; a screen of higher density shows the same picture finer. A desktop keeps what was
/// drawn and not its dots, and paints it for the screen that it is on.
class PageBitmap {
  public:
    virtual ~PageBitmap() = default;

    virtual double Width() const = 0;
    virtual double Height() const = 0;
};

/// A page that is drawn off the screen, white at first.
class OffscreenPage {
  public:
    virtual ~OffscreenPage() = default;

    /// Draws on the page. Its NewPage is Cls(); its EndDocument changes nothing on the page.
    virtual Canvas& Drawing() = 0;

    /// The page as it stands now; what is drawn later does not change the answer. RuntimeError without
    /// memory.
    virtual std::shared_ptr<const PageBitmap> Image() = 0;

    /// Makes the page white again.
    virtual void Cls() = 0;

    /// Nobody will look at the page: what is drawn on it until the next Cls() need not be kept, and drawing
    /// and measuring go on as before.
    virtual void Discard() = 0;
};

/// Makes off-screen pages.
class Bitmaps {
  public:
    virtual ~Bitmaps() = default;

    /// A page of this size in twips. RuntimeError if it cannot be made.
    virtual std::unique_ptr<OffscreenPage> CreatePage(double width, double height) = 0;
};

} // namespace machine
