#include "desktop/windows/VectorPicture.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <tuple>
#include <vector>

#include "desktop/windows/Win32.h"

#include <objidl.h>

// The headers of GDI+ call these two without saying whose.
namespace Gdiplus {
// NOLINTBEGIN(misc-unused-using-decls): uses in headers of the system are not counted
using std::max;
using std::min;
// NOLINTEND(misc-unused-using-decls)
} // namespace Gdiplus

#include <gdiplus.h>

#include "desktop/windows/VectorPictureTable.h"
#include "forms/PictureInks.h"

namespace desktop::windows {

namespace {

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

GdiPlus::GdiPlus() {
    Gdiplus::GdiplusStartupInput input{};
    input.GdiplusVersion = 1;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) {
        token_ = 0;
    }
}

GdiPlus::~GdiPlus() {
    if (token_ != 0) {
        Gdiplus::GdiplusShutdown(token_);
    }
}

bool GdiPlus::Started() {
    static const GdiPlus session;
    return session.token_ != 0;
}

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

const PictureRow* Find(const std::string& name) {
    const auto pictures = AllPictures().Pictures;
    const auto found = std::find_if(pictures.begin(), pictures.end(),
                                    [&](const PictureRow& row) { return name == row.Name; });
    return found == pictures.end() ? nullptr : &*found;
}

template <class Element>
std::span<const Element> Part(std::span<const Element> all, int first, int end) {
    return all.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
}

void AddSteps(Gdiplus::GpPath* path, std::span<const PathStep> steps) {
    float x = 0;
    float y = 0;
    for (const PathStep& step : steps) {
        const float* p = step.Points;
        switch (step.Command) {
        case 'M':
            gdip::GdipStartPathFigure(path);
            x = p[0];
            y = p[1];
            break;
        case 'L':
            gdip::GdipAddPathLine(path, x, y, p[0], p[1]);
            x = p[0];
            y = p[1];
            break;
        case 'C':
            gdip::GdipAddPathBezier(path, x, y, p[0], p[1], p[2], p[3], p[4], p[5]);
            x = p[4];
            y = p[5];
            break;
        default:
            gdip::GdipClosePathFigure(path);
            break;
        }
    }
}

/// What a picture is drawn for.
struct Ground {
    COLORREF Background;
    PictureLook Look = PictureLook::Plain;
};

/// A colour of a picture, ARGB as in the table, as it is shown.
Gdiplus::ARGB Shown(std::uint32_t drawn, const Ground& ground) {
    constexpr std::uint32_t opaque = 0xFF000000;
    const forms::Colour colour = forms::colour::Rgb((drawn >> 16) & 0xFF, (drawn >> 8) & 0xFF, drawn & 0xFF);
    const forms::Colour ink = ground.Look == PictureLook::Off ? forms::InkOff(colour, ground.Background)
                                                              : forms::InkOn(colour, ground.Background);
    return opaque | static_cast<std::uint32_t>(GetRValue(ink)) << 16 |
           static_cast<std::uint32_t>(GetGValue(ink)) << 8 | GetBValue(ink);
}

void Stroke(Gdiplus::GpGraphics* graphics, Gdiplus::GpPath* path, const PictureShape& shape,
            const Ground& ground) {
    GdiPlusPen pen;
    gdip::GdipCreatePen1(Shown(shape.Stroke, ground), shape.Width, Gdiplus::UnitWorld, pen.Receive());
    if (shape.RoundCaps) {
        gdip::GdipSetPenLineCap197819(pen.Get(), Gdiplus::LineCapRound, Gdiplus::LineCapRound,
                                      Gdiplus::DashCapRound);
    }
    if (shape.RoundJoins) {
        gdip::GdipSetPenLineJoin(pen.Get(), Gdiplus::LineJoinRound);
    }
    if (shape.Dashes[0] > 0) { // GDI+ counts dashes in widths of the pen
        const float dashes[] = {shape.Dashes[0] / shape.Width, shape.Dashes[1] / shape.Width};
        gdip::GdipSetPenDashArray(pen.Get(), dashes, 2);
    }
    gdip::GdipDrawPath(graphics, pen.Get(), path);
}

void DrawShape(Gdiplus::GpGraphics* graphics, const PictureShape& shape, const Ground& ground) {
    GdiPlusPath path;
    gdip::GdipCreatePath(Gdiplus::FillModeWinding, path.Receive());
    AddSteps(path.Get(), Part(AllPictures().Steps, shape.FirstStep, shape.EndStep));
    if (shape.Fill != 0) {
        GdiPlusBrush brush;
        gdip::GdipCreateSolidFill(Shown(shape.Fill, ground), brush.Receive());
        gdip::GdipFillPath(graphics, brush.Get(), path.Get());
    }
    if (shape.Stroke != 0) {
        Stroke(graphics, path.Get(), shape, ground);
    }
}

/// Dots of a picture, four bytes each: blue, green, red and how opaque, from the top left on.
class Dots {
  public:
    /// So many of them stay free around the picture, each way.
    Dots(int width, int height, void* bits, int free = 0)
        : width_(width), height_(height), bits_(bits), free_(free) {}

    void Draw(const PictureRow& picture, Gdiplus::PixelFormat format, const Ground& ground) {
        GdiPlusBitmap bitmap;
        GdiPlusGraphics graphics;
        if (gdip::GdipCreateBitmapFromScan0(width_, height_, 4 * width_, format, static_cast<BYTE*>(bits_),
                                            bitmap.Receive()) != Gdiplus::Ok ||
            gdip::GdipGetImageGraphicsContext(bitmap.Get(), graphics.Receive()) != Gdiplus::Ok) {
            return;
        }
        const float scale = std::min(static_cast<float>(width_ - free_) / picture.Width,
                                     static_cast<float>(height_ - free_) / picture.Height);
        gdip::GdipSetSmoothingMode(graphics.Get(), Gdiplus::SmoothingModeAntiAlias);
        gdip::GdipSetPixelOffsetMode(graphics.Get(), Gdiplus::PixelOffsetModeHalf);
        gdip::GdipTranslateWorldTransform(
            graphics.Get(), (static_cast<float>(width_) - picture.Width * scale) / 2,
            (static_cast<float>(height_) - picture.Height * scale) / 2, Gdiplus::MatrixOrderPrepend);
        gdip::GdipScaleWorldTransform(graphics.Get(), scale, scale, Gdiplus::MatrixOrderPrepend);
        for (const PictureShape& shape : Part(AllPictures().Shapes, picture.FirstShape, picture.EndShape)) {
            DrawShape(graphics.Get(), shape, ground);
        }
    }

  private:
    int width_;
    int height_;
    void* bits_;
    int free_;
};

BITMAPINFO InfoFor(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // from the top down
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

Bitmap DrawnBitmap(const PictureRow& picture, int width, int height, COLORREF background) {
    const BITMAPINFO info = InfoFor(width, height);
    void* bits = nullptr;
    Bitmap bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap) {
        Dots(width, height, bits).Draw(picture, PixelFormat32bppPARGB, {background});
    }
    return bitmap;
}

/// Pictures that have been drawn. A window shows few, at the one or two sizes of its screens and on one
/// background, so they stay.
HBITMAP KeptBitmap(const PictureRow& picture, int width, int height, COLORREF background) {
    static std::map<std::tuple<const PictureRow*, int, int, COLORREF>, Bitmap> kept;
    Bitmap& bitmap = kept[{&picture, width, height, background}];
    if (!bitmap) {
        bitmap = DrawnBitmap(picture, width, height, background);
    }
    return bitmap.Get();
}

} // namespace

bool IsPicture(const std::string& name) {
    return Find(name) != nullptr;
}

void DrawPicture(HDC device, const std::string& name, const RECT& area, COLORREF background) {
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const PictureRow* picture = Find(name);
    if (picture == nullptr || width <= 0 || height <= 0 || !GdiPlus::Started()) {
        return;
    }
    HBITMAP bitmap = KeptBitmap(*picture, width, height, background);
    const DeviceContext source(::CreateCompatibleDC(device));
    if (bitmap == nullptr || !source) {
        return;
    }
    const Selected selected(source.Get(), bitmap);
    constexpr BLENDFUNCTION over = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::GdiAlphaBlend(device, area.left, area.top, width, height, source.Get(), 0, 0, width, height, over);
}

Icon PictureIcon(const std::string& name, const IconSize& size, PictureLook look, COLORREF background) {
    const PictureRow* picture = Find(name);
    const int side = size.Icon;
    if (picture == nullptr || side <= 0 || !GdiPlus::Started()) {
        return {};
    }
    std::vector<BYTE> dots(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) * 4);
    Dots(side, side, dots.data(), side - size.Picture)
        .Draw(*picture, PixelFormat32bppARGB, {background, look});
    const BITMAPINFO info = InfoFor(side, side);
    void* bits = nullptr;
    const Bitmap colour(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    // The mask is not looked at where the colours say how opaque they are.
    const Bitmap mask(::CreateBitmap(side, side, 1, 1, nullptr));
    if (!colour || !mask) {
        return {};
    }
    std::memcpy(bits, dots.data(), dots.size());
    ICONINFO parts{TRUE, 0, 0, mask.Get(), colour.Get()};
    return Icon(::CreateIconIndirect(&parts));
}

} // namespace desktop::windows
