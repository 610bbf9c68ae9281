#include "desktop/windows/GdiFont.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Units.h"
#include "desktop/windows/WideText.h"

namespace desktop::windows {

namespace {

using base::PointsPerInch;
using base::TwipsPerPoint;

constexpr double SmallestSize = 0.01; // points

/// Units of the em in most TrueType fonts, and for one that does not tell.
constexpr int UsualUnits = 2048;

/// How many characters beyond Latin-1 are kept at a time. A text that holds more is only slower.
constexpr std::size_t MostOtherGlyphs = 4096;

double PointsOf(const machine::FontSpec& font) {
    // Negated so that a size that is no number counts as the smallest.
    return !(font.Size > SmallestSize) ? SmallestSize : std::min(font.Size, machine::LargestDrawnPoints);
}

/// An outline font, also where a bitmap of the same name exists: only outlines print.
Font MakeFont(const machine::FontSpec& font, int height, BYTE quality) {
    LOGFONTW wanted{};
    wanted.lfHeight = -height;
    wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfOutPrecision = OUT_OUTLINE_PRECIS;
    wanted.lfQuality = quality;
    const std::wstring name = ToWide(font.Name);
    name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    Font made(::CreateFontIndirectW(&wanted));
    if (!made) {
        throw base::OutOfMemory();
    }
    return made;
}

DeviceContext MeasuringDevice() {
    DeviceContext device(::CreateCompatibleDC(nullptr));
    if (!device) {
        throw base::OutOfMemory();
    }
    return device;
}

/// What an outline font tells of itself, with its names behind; empty for any other font.
std::vector<std::byte> OutlineMetrics(HDC device) {
    std::vector<std::byte> bytes(::GetOutlineTextMetricsW(device, 0, nullptr));
    if (bytes.size() < sizeof(OUTLINETEXTMETRICW) ||
        ::GetOutlineTextMetricsW(device, static_cast<UINT>(bytes.size()),
                                 reinterpret_cast<OUTLINETEXTMETRICW*>(bytes.data())) == 0) {
        bytes.clear();
    }
    return bytes;
}

int UnitsPerEm(HDC device, const Font& font) {
    const Selected selected(device, font.Get());
    OUTLINETEXTMETRICW metrics{};
    metrics.otmSize = sizeof metrics;
    const UINT told = ::GetOutlineTextMetricsW(device, sizeof metrics, &metrics);
    return told != 0 && metrics.otmEMSquare > 0 ? static_cast<int>(metrics.otmEMSquare) : UsualUnits;
}

bool IsControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

} // namespace

GdiFont::GdiFont(const machine::FontSpec& font, BYTE quality)
    : spec_(font), quality_(quality), design_(MakeFont(font, UsualUnits, quality)) {
    const DeviceContext device = MeasuringDevice();
    const int units = UnitsPerEm(device.Get(), design_);
    if (units != UsualUnits) {
        design_ = MakeFont(font, units, quality);
    }
    twipsPerUnit_ = PointsOf(font) * TwipsPerPoint / units;

    const Selected selected(device.Get(), design_.Get());
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(device.Get(), &metrics);
    ascent_ = metrics.tmAscent * twipsPerUnit_;
    lineHeight_ = metrics.tmHeight * twipsPerUnit_;
}

const GdiFont::Glyph& GdiFont::Find(char32_t code) {
    if (code < table_.size()) {
        table_[code] = Make(code);
        known_[code] = true;
        return table_[code];
    }
    if (const auto found = others_.find(code); found != others_.end()) {
        return found->second;
    }
    if (others_.size() >= MostOtherGlyphs) {
        others_.clear();
    }
    return others_[code] = Make(code);
}

GdiFont::Glyph GdiFont::Make(char32_t code) const {
    if (IsControl(code)) {
        return {};
    }
    Glyph glyph;
    const std::wstring units = ToWide(base::text::Encode(code));
    glyph.Count = units.copy(glyph.Units.data(), glyph.Units.size());

    const DeviceContext device = MeasuringDevice();
    const Selected selected(device.Get(), design_.Get());
    SIZE size{};
    ::GetTextExtentPoint32W(device.Get(), glyph.Units.data(), static_cast<int>(glyph.Count), &size);
    glyph.Advance = size.cx * twipsPerUnit_;
    return glyph;
}

double GdiFont::Width(std::string_view text) {
    double width = 0;
    while (!text.empty()) {
        const base::text::Decoded next = base::text::DecodeFirst(text);
        width += Of(next.Code).Advance;
        text.remove_prefix(next.Bytes);
    }
    return width;
}

std::string GdiFont::Family() const {
    const DeviceContext device = MeasuringDevice();
    const Selected selected(device.Get(), design_.Get());
    if (const std::vector<std::byte> bytes = OutlineMetrics(device.Get()); !bytes.empty()) {
        const auto* metrics = reinterpret_cast<const OUTLINETEXTMETRICW*>(bytes.data());
        // Declared as a pointer, it is the way from the record's beginning.
        const auto name = reinterpret_cast<std::uintptr_t>(metrics->otmpFamilyName);
        return FromWide(reinterpret_cast<const wchar_t*>(bytes.data() + name));
    }
    wchar_t face[LF_FACESIZE] = {};
    ::GetTextFaceW(device.Get(), LF_FACESIZE, face);
    return FromWide(face);
}

const GdiFont::Picture& GdiFont::PictureOf(char32_t code) {
    if (const auto found = pictures_.find(code); found != pictures_.end()) {
        return found->second;
    }
    if (pictures_.size() >= MostOtherGlyphs) {
        pictures_.clear();
    }
    return pictures_[code] = LookAt(code);
}

GdiFont::Picture GdiFont::LookAt(char32_t code) {
    const Glyph& glyph = Of(code);
    if (glyph.Count != 1) {
        return {.IsOwn = glyph.Count == 0}; // beyond 16 bits GDI knows no glyph by its character
    }
    const DeviceContext device = MeasuringDevice();
    const Selected selected(device.Get(), design_.Get());
    Picture picture;
    constexpr WORD none = 0xFFFF;
    WORD index = none;
    const DWORD told =
        ::GetGlyphIndicesW(device.Get(), glyph.Units.data(), 1, &index, GGI_MARK_NONEXISTING_GLYPHS);
    picture.IsOwn = told == 1 && index != none;

    GLYPHMETRICS metrics{};
    const MAT2 asItIs = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    const DWORD measured = ::GetGlyphOutlineW(device.Get(), static_cast<UINT>(glyph.Units[0]), GGO_METRICS,
                                              &metrics, 0, nullptr, &asItIs);
    // Of a glyph without an outline GDI tells one dot.
    if (measured != GDI_ERROR && (metrics.gmBlackBoxX > 1 || metrics.gmBlackBoxY > 1)) {
        picture.Ink.Left = metrics.gmptGlyphOrigin.x * twipsPerUnit_;
        picture.Ink.Right = picture.Ink.Left + metrics.gmBlackBoxX * twipsPerUnit_;
        picture.Ink.Top = ascent_ - metrics.gmptGlyphOrigin.y * twipsPerUnit_;
        picture.Ink.Bottom = picture.Ink.Top + metrics.gmBlackBoxY * twipsPerUnit_;
    }
    return picture;
}

HFONT GdiFont::At(int dotsPerInch) {
    const int height =
        std::max(1, static_cast<int>(std::lround(PointsOf(spec_) * dotsPerInch / PointsPerInch)));
    if (!device_ || height != deviceHeight_) {
        device_ = MakeFont(spec_, height, quality_);
        deviceHeight_ = height;
    }
    return device_.Get();
}

} // namespace desktop::windows
