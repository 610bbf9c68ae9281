#include <algorithm>
#include <cmath>
#include <string>

#include "desktop/windows/Win32.h"

#include "base/Units.h"
#include "desktop/windows/GdiFont.h"
#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/WinPrintFonts.h"
#include "desktop/windows/WinPrinter.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

/// A letter in black on white, at a dot for each twip.
class Letter {
  public:
    Letter(const machine::FontSpec& font, char letter) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, Side, -Side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        picture_.Reset(::CreateDIBSection(device_.Get(), &info, DIB_RGB_COLORS, &dots_, nullptr, 0));
        const Selected picture(device_.Get(), picture_.Get());
        ::PatBlt(device_.Get(), 0, 0, Side, Side, WHITENESS);
        GdiFont made(font, NONANTIALIASED_QUALITY);
        const Selected drawn(device_.Get(), made.At(static_cast<int>(base::TwipsPerInch)));
        ::SetTextAlign(device_.Get(), TA_LEFT | TA_BASELINE);
        ::TextOutA(device_.Get(), Corner, Corner + static_cast<int>(std::lround(made.Ascent())), &letter, 1);
        ::GdiFlush();
    }

    /// What is black, in twips of the letter's place in the line.
    machine::InkBox Ink() const {
        machine::InkBox ink{Side, Side, -Side, -Side};
        for (int y = 0; y < Side; ++y) {
            for (int x = 0; x < Side; ++x) {
                if (static_cast<const DWORD*>(dots_)[y * Side + x] == 0) {
                    ink = {std::min<double>(ink.Left, x - Corner), std::min<double>(ink.Top, y - Corner),
                           std::max<double>(ink.Right, x + 1 - Corner),
                           std::max<double>(ink.Bottom, y + 1 - Corner)};
                }
            }
        }
        return ink;
    }

  private:
    static constexpr int Side = 800;
    static constexpr int Corner = 100;

    DeviceContext device_{::CreateCompatibleDC(nullptr)};
    Bitmap picture_;
    void* dots_ = nullptr;
};

void CheckInk(WinPrintFonts& fonts, const machine::FontSpec& font, char letter) {
    const machine::InkBox told = fonts.InkOf(static_cast<char32_t>(letter), font);
    const machine::InkBox seen = Letter(font, letter).Ink();
    const std::string what = font.Name + (font.Bold ? " bold " : " ") + letter;
    constexpr double allowed = 3; // twips: a dot at each side, and the font's grid
    CheckNear(told.Left, seen.Left, allowed, what + ": its ink begins at the left where it is drawn");
    CheckNear(told.Top, seen.Top, allowed, what + ": and above");
    CheckNear(told.Right, seen.Right, allowed, what + ": it ends at the right where it is drawn");
    CheckNear(told.Bottom, seen.Bottom, allowed, what + ": and below");
}

const machine::FontSpec Plain{"Tahoma", 12, false};
const machine::FontSpec Bold{"Tahoma", 8, true};
const machine::FontSpec Ocr{"OCR-B", 10, false};

void CheckFamilies(WinPrintFonts& fonts) {
    CheckEqual(fonts.FamilyFor("Tahoma"), "Tahoma", "a font that is installed prints");
    CheckEqual(fonts.FamilyFor("OCR-B"), "OCR-B", "as OCR-B does");
    const std::string instead = fonts.FamilyFor("Geen lettertype");
    Check(!instead.empty() && instead != "Geen lettertype", "another one prints for one that is not there");
    CheckEqual(fonts.FamilyFor(instead), instead, "which is installed");
    Check(!fonts.FamilyFor("").empty(), "without a name there is one as well");
    Check(!fonts.FamilyFor(std::string(500, 'q')).empty(), "and for a name that no font can have");
}

void CheckLetters(WinPrintFonts& fonts) {
    Check(fonts.HasLetter(Plain, U'\u00EB') && fonts.HasLetter(Plain, U' '),
          "Tahoma has the letters of Dutch");
    Check(!fonts.HasLetter(Plain, U'\u6F22'), "and none of Chinese");
    Check(!fonts.HasLetter(Plain, U'\U0001F600'), "nor a face");
    Check(fonts.HasLetter(Plain, U'\t'), "what is not drawn needs no letter");
    Check(!fonts.HasLetter(Ocr, U'\u0416'), "OCR-B has no Russian letters");
    for (const char32_t letter : {U' ', U'\u00A0', U'\n'}) {
        const machine::InkBox ink = fonts.InkOf(letter, Plain);
        Check(ink.Left == 0 && ink.Top == 0 && ink.Right == 0 && ink.Bottom == 0, "a blank covers nothing");
    }
}

void CheckMeasures(WinPrintFonts& fonts) {
    WinPrinters printers;
    WinPrinter printer(printers, [](const std::string& text) { Check(false, text); });
    const std::string text = "NL12INGB0001234567 Zoë Müller";
    for (const machine::FontSpec& font : {Plain, Bold, Ocr}) {
        const machine::TextSize told = fonts.MeasureText(text, font);
        const machine::TextSize measured = printer.Page().MeasureText(text, font);
        CheckNear(told.Width, measured.Width, 0.001, font.Name + " is as wide as on a printer");
        CheckNear(told.Height, measured.Height, 0.001, font.Name + " is as high");
        for (const char letter : {'1', 'g', 'W', '+'}) {
            CheckInk(fonts, font, letter);
        }
    }
}

} // namespace

void CheckFonts() {
    WinPrintFonts fonts;
    CheckFamilies(fonts);
    CheckLetters(fonts);
    CheckMeasures(fonts);
}
