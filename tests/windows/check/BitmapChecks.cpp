#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <vector>

#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/Scale.h"
#include "desktop/windows/WinBitmaps.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

constexpr double Width = 11906;
constexpr double Height = 16838;
constexpr double TwipsPerInch = 1440;
constexpr int Rounds = 200;
constexpr COLORREF White = RGB(255, 255, 255);
constexpr int OutOfMemory = 7;

/// A page as a screen of so many dots to the inch shows it.
class Painted {
  public:
    Painted(const machine::PageBitmap& page, int dotsPerInch) {
        const auto& kept = dynamic_cast<const WinPageBitmap&>(page);
        dots_ = kept.Dots(dotsPerInch);
        const BITMAPINFO info{{sizeof(BITMAPINFOHEADER), dots_.cx, -dots_.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0},
                              {}};
        void* bits = nullptr;
        bitmap_.Reset(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        const DeviceContext device(::CreateCompatibleDC(nullptr));
        const Selected selected(device.Get(), bitmap_.Get());
        kept.Paint(device.Get(), dotsPerInch);
        ::GdiFlush();
        const auto* first = static_cast<const DWORD*>(bits);
        picture_.assign(first,
                        first + static_cast<std::size_t>(dots_.cx) * static_cast<std::size_t>(dots_.cy));
    }

    SIZE Dots() const { return dots_; }
    /// Red in the lowest byte, then green, then blue.
    COLORREF At(LONG x, LONG y) const {
        const DWORD dot = picture_[static_cast<std::size_t>(y) * static_cast<std::size_t>(dots_.cx) +
                                   static_cast<std::size_t>(x)];
        return RGB(dot >> 16 & 0xFF, dot >> 8 & 0xFF, dot & 0xFF);
    }
    /// The dots of the upper left part that are not white.
    RECT Ink(SIZE part) const {
        RECT ink{part.cx, part.cy, 0, 0};
        for (LONG y = 0; y < part.cy; ++y) {
            for (LONG x = 0; x < part.cx; ++x) {
                if (At(x, y) != White) {
                    ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
                           std::max(ink.bottom, y)};
                }
            }
        }
        return ink;
    }
    bool operator==(const Painted& other) const { return picture_ == other.picture_; }

  private:
    SIZE dots_{};
    Bitmap bitmap_;
    std::vector<DWORD> picture_;
};

/// Black dots of the upper left corner of a page, as a share of those that are not white: high where letters
/// are sharp.
double Sharpness(const Painted& painted, SIZE part) {
    int black = 0;
    int ink = 0;
    for (LONG y = 0; y < part.cy; ++y) {
        for (LONG x = 0; x < part.cx; ++x) {
            black += painted.At(x, y) == 0 ? 1 : 0;
            ink += painted.At(x, y) == White ? 0 : 1;
        }
    }
    return ink == 0 ? 0 : static_cast<double>(black) / ink;
}

/// Memory of the process that is in use, files aside: heaps as well as bitmaps.
std::size_t CommittedBytes() {
    std::size_t bytes = 0;
    MEMORY_BASIC_INFORMATION area{};
    for (const char* at = nullptr; ::VirtualQuery(at, &area, sizeof area) != 0;
         at = static_cast<const char*>(area.BaseAddress) + area.RegionSize) {
        bytes += area.State == MEM_COMMIT && area.Type != MEM_IMAGE ? area.RegionSize : 0;
    }
    return bytes;
}

/// 40 pages that are full of texts, kept as the preview keeps them.
void CheckMemory() {
    constexpr int pages = 40;
    constexpr int lines = 80;
    constexpr std::size_t most = 8'000'000;
    WinBitmaps bitmaps;
    const auto page = bitmaps.CreatePage(Width, Height);
    page->Drawing().MeasureText("regel", {"Tahoma", 8, false}); // the font is made once
    const std::size_t before = CommittedBytes();
    std::vector<std::shared_ptr<const machine::PageBitmap>> kept;
    for (int number = 0; number < pages; ++number) {
        for (int line = 0; line < lines; ++line) {
            for (int column = 0; column < 5; ++column) {
                page->Drawing().DrawText(column * 2000, line * 200, "regel van twintig",
                                         {"Tahoma", 8, false});
            }
            page->Drawing().DrawLine(0, line * 200, Width, line * 200, 0);
        }
        kept.push_back(page->Image());
        page->Cls();
    }
    const std::size_t cost = CommittedBytes() - before;
    std::printf("%zu bytes for %d pages\n", cost, pages);
    Check(cost <= most, "40 full pages take at most 8 MB");

    const std::size_t without = CommittedBytes();
    const Painted painted(*kept.front(), 2 * ScreenScale().DotsPerInch());
    Check(CommittedBytes() - without > most / 2, "a bitmap of one would have been noticed");
}

} // namespace

void CheckBitmaps() {
    WinBitmaps bitmaps;
    const std::unique_ptr<machine::OffscreenPage> page = bitmaps.CreatePage(Width, Height);
    const auto blank = page->Image();
    CheckNear(blank->Width(), Width, 0, "a picture is as wide as asked for");
    CheckNear(blank->Height(), Height, 0, "and as high");
    // The forms' own density: the system's font may make them larger than in their design.
    const int inch = ScreenScale().DotsPerInch();
    const auto seen = [inch](const auto& picture) { return Painted(*picture, inch); };
    const SIZE dots = seen(blank).Dots();
    CheckEqual(dots.cx, static_cast<LONG>(std::ceil(Width * inch / TwipsPerInch)),
               "at the density of the forms");
    CheckEqual(seen(blank).At(0, 0), White, "white at first");
    CheckEqual(seen(blank).At(dots.cx - 1, dots.cy - 1), White, "all over");

    page->Drawing().DrawLine(0, TwipsPerInch, 3000, TwipsPerInch, 0x0000FF);
    const auto lined = page->Image();
    CheckEqual(seen(lined).At(100, inch), RGB(255, 0, 0), "a red line lies at its place");
    CheckEqual(seen(lined).At(100, inch + 1), White, "one dot wide");
    CheckEqual(seen(blank).At(100, inch), White, "a picture that was given stays as it was");

    page->Drawing().DrawLine(0, 2 * TwipsPerInch, 3000, 2 * TwipsPerInch, 0);
    const auto twice = page->Image();
    Check(seen(twice).At(100, inch) == RGB(255, 0, 0) && seen(twice).At(100, 2 * inch) == 0,
          "drawing goes on upon what was there");
    page->Cls();
    CheckEqual(seen(page->Image()).At(100, 2 * inch), White, "a wiped page is white");
    CheckEqual(seen(lined).At(100, inch), RGB(255, 0, 0), "and its pictures are not");

    const machine::FontSpec font{"Tahoma", 12, false};
    page->Drawing().DrawText(TwipsPerInch, TwipsPerInch / 2, "HHHHHHHHHHHHHHHHHHHH", font);
    const auto written = page->Image();
    const machine::TextSize size = page->Drawing().MeasureText("HHHHHHHHHHHHHHHHHHHH", font);
    for (const int density : {1, 2, 3}) {
        const int perInch = density * inch;
        const Painted painted(*written, perInch);
        const RECT ink = painted.Ink({500 * density, 120 * density});
        const std::string at = " at " + std::to_string(density) + "00 %";
        CheckNear(ink.left, perInch + 1, 2 * density, "a text begins at its place" + at);
        CheckNear(ink.right, (TwipsPerInch + size.Width) * perInch / TwipsPerInch - 1, 2 * density,
                  "and ends where its measure says" + at);
        const int top = perInch / 2;
        Check(ink.top >= top && ink.bottom <= top + size.Height * perInch / TwipsPerInch,
              "and stands below the cursor" + at);
    }
    const SIZE corner{1000, 240};
    Check(Sharpness(Painted(*written, 2 * inch), corner) >= Sharpness(Painted(*written, inch), {500, 120}),
          "twice the dots are as sharp");
    const Painted fine(*written, 2 * inch);
    Check(fine == Painted(*written, 2 * inch), "and the same after a visit to another screen");
    page->Drawing().EndDocument();
    Check(Painted(*page->Image(), 2 * inch) == fine, "the end of the document changes nothing");
    page->Discard();
    page->Drawing().DrawText(0, 0, "X", font);
    CheckEqual(Painted(*page->Image(), inch).Ink({500, 120}).right, 0, "what nobody will see is not kept");
    page->Cls();
    page->Drawing().DrawText(0, 0, "X", font);
    Check(Painted(*page->Image(), inch).Ink({500, 120}).right > 0, "until the page is wiped");

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
        const Painted painted(*other->Image(), inch + i % 3);
        other->Cls();
    }
    CheckEqual(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), before,
               "no graphics object is left behind");
    CheckMemory();
}
