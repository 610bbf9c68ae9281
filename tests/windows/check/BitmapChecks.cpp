#include "platform/windows/GdiObjects.h"
#include "platform/windows/Scale.h"
#include "platform/windows/WinBitmaps.h"
#include "windows/check/Check.h"

#include <cmath>
#include <limits>
#include <memory>

using namespace platform::windows;

namespace {

constexpr double Width = 11906;
constexpr double Height = 16838;
constexpr double TwipsPerInch = 1440;
constexpr int Rounds = 200;
constexpr int OutOfMemory = 7;

COLORREF DotAt(const platform::PageBitmap& picture, int x, int y) {
    const auto& bitmap = dynamic_cast<const WinPageBitmap&>(picture);
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    const Selected selected(device.Get(), bitmap.Handle());
    return ::GetPixel(device.Get(), x, y);
}

/// The dots of a rectangle that are not white.
RECT Ink(const platform::PageBitmap& picture, SIZE area) {
    const auto& bitmap = dynamic_cast<const WinPageBitmap&>(picture);
    const DeviceContext device(::CreateCompatibleDC(nullptr));
    const Selected selected(device.Get(), bitmap.Handle());
    RECT ink{area.cx, area.cy, 0, 0};
    for (LONG y = 0; y < area.cy; ++y) {
        for (LONG x = 0; x < area.cx; ++x) {
            if (::GetPixel(device.Get(), x, y) != RGB(255, 255, 255)) {
                ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
                       std::max(ink.bottom, y)};
            }
        }
    }
    return ink;
}

} // namespace

void CheckBitmaps() {
    WinBitmaps bitmaps;
    const std::unique_ptr<platform::OffscreenPage> page = bitmaps.CreatePage(Width, Height);
    const auto blank = page->Image();
    CheckNear(blank->Width(), Width, 0, "a picture is as wide as asked for");
    CheckNear(blank->Height(), Height, 0, "and as high");
    const SIZE dots = dynamic_cast<const WinPageBitmap&>(*blank).Dots();
    // The forms' own density: the system's font may make them larger than in their design.
    const int inch = ScreenScale().DotsPerInch();
    CheckEqual(dots.cx, static_cast<LONG>(std::ceil(Width * inch / TwipsPerInch)),
               "at the density of the forms");
    CheckEqual(DotAt(*blank, 0, 0), RGB(255, 255, 255), "white at first");
    CheckEqual(DotAt(*blank, dots.cx - 1, dots.cy - 1), RGB(255, 255, 255), "all over");

    page->Drawing().DrawLine(0, TwipsPerInch, 3000, TwipsPerInch, 0x0000FF);
    const auto lined = page->Image();
    CheckEqual(DotAt(*lined, 100, inch), RGB(255, 0, 0), "a red line lies at its place");
    CheckEqual(DotAt(*lined, 100, inch + 1), RGB(255, 255, 255), "one dot wide");
    CheckEqual(DotAt(*blank, 100, inch), RGB(255, 255, 255), "a picture that was given stays as it was");

    page->Drawing().DrawLine(0, 2 * TwipsPerInch, 3000, 2 * TwipsPerInch, 0);
    Check(DotAt(*page->Image(), 100, inch) == RGB(255, 0, 0) &&
              DotAt(*page->Image(), 100, 2 * inch) == RGB(0, 0, 0),
          "drawing goes on upon what was there");
    page->Cls();
    CheckEqual(DotAt(*page->Image(), 100, 2 * inch), RGB(255, 255, 255), "a wiped page is white");
    CheckEqual(DotAt(*lined, 100, inch), RGB(255, 0, 0), "and its pictures are not");

    const platform::FontSpec font{"Tahoma", 12, false};
    page->Drawing().DrawText(TwipsPerInch, TwipsPerInch / 2, "HHHHHHHHHHHHHHHHHHHH", font);
    const RECT ink = Ink(*page->Image(), {500, 120});
    const platform::TextSize size = page->Drawing().MeasureText("HHHHHHHHHHHHHHHHHHHH", font);
    CheckNear(ink.left, inch + 1, 2, "a text begins at its place");
    CheckNear(ink.right, (TwipsPerInch + size.Width) * inch / TwipsPerInch - 1, 2,
              "and ends where its measure says");
    Check(ink.top >= inch / 2 && ink.bottom <= inch / 2 + size.Height * inch / TwipsPerInch,
          "and stands below the cursor");
    page->Drawing().EndDocument();
    Check(DotAt(*page->Image(), 0, 0) == RGB(255, 255, 255), "the end of the document changes nothing");

    CheckRaises(
        OutOfMemory, [&] { bitmaps.CreatePage(0, 100); }, "a page without a width");
    CheckRaises(
        OutOfMemory, [&] { bitmaps.CreatePage(1e12, 100); }, "a page that no memory holds");
    CheckRaises(
        OutOfMemory, [&] { bitmaps.CreatePage(std::numeric_limits<double>::quiet_NaN(), 100); },
        "a size that is no number");

    const DWORD before = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < Rounds; ++i) {
        const auto other = bitmaps.CreatePage(Width, Height);
        other->Drawing().DrawText(0, 0, "X", font);
        const auto picture = other->Image();
        other->Cls();
    }
    CheckEqual(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before,
               "no graphics object is left behind");
}
