#pragma once

#include "desktop/windows/Win32.h"

#include <objidl.h>

// The headers of GDI+ call these two without saying whose.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>

namespace desktop::windows {

namespace gdip = Gdiplus::DllExports;

/// GDI+ from its first use to the end of the process.
class GdiPlus {
  public:
    /// False if this machine's GDI+ does not start.
    static bool Started();

    ~GdiPlus();
    GdiPlus(const GdiPlus&) = delete;
    GdiPlus& operator=(const GdiPlus&) = delete;

  private:
    GdiPlus();

    ULONG_PTR token_ = 0;
};

/// Its objects, released by scope.
template <class Object, auto Release>
class GdiPlusObject {
  public:
    GdiPlusObject() = default;
    ~GdiPlusObject() {
        if (object_ != nullptr) {
            Release(object_);
        }
    }
    GdiPlusObject(const GdiPlusObject&) = delete;
    GdiPlusObject& operator=(const GdiPlusObject&) = delete;

    Object* Get() const { return object_; }
    /// Where a call that makes the object puts it.
    Object** Receive() { return &object_; }

  private:
    Object* object_ = nullptr;
};

using GdiPlusBitmap =
    GdiPlusObject<Gdiplus::GpBitmap, [](Gdiplus::GpBitmap* bitmap) { gdip::GdipDisposeImage(bitmap); }>;
using GdiPlusGraphics = GdiPlusObject<Gdiplus::GpGraphics, gdip::GdipDeleteGraphics>;
using GdiPlusPath = GdiPlusObject<Gdiplus::GpPath, gdip::GdipDeletePath>;
using GdiPlusPen = GdiPlusObject<Gdiplus::GpPen, gdip::GdipDeletePen>;
using GdiPlusBrush =
    GdiPlusObject<Gdiplus::GpSolidFill, [](Gdiplus::GpSolidFill* brush) { gdip::GdipDeleteBrush(brush); }>;

} // namespace desktop::windows
