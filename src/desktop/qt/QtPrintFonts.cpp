#include "desktop/qt/QtPrintFonts.h"

#include <QFontInfo>
#include <QRawFont>
#include <QRectF>

#include "desktop/qt/Fonts.h"
#include "desktop/qt/PageUnits.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

namespace {

/// Any will do.
constexpr double PlainSize = 10;

/// Of a font without a name the face knows no name either; the toolkit does, with the maker's in brackets.
QString FamilyWithoutName() {
    return QFontInfo(DesignFont({})).family().section(QStringLiteral(" ["), 0, 0);
}

} // namespace

std::string QtPrintFonts::FamilyFor(const std::string& name) {
    const QString family = tables_.Of({name, PlainSize, false}).Face(0).familyName();
    const std::string printed = FromQString(family.isEmpty() ? FamilyWithoutName() : family);
    return IsSameFamily(name, printed) ? name : printed;
}

bool QtPrintFonts::HasLetter(const machine::FontSpec& font, char32_t letter) {
    const GlyphTable::Glyph& glyph = tables_.Of(font).Of(letter);
    return !glyph.Visible || (glyph.Face == 0 && glyph.Index != 0); // what is not drawn needs no picture
}

machine::TextSize QtPrintFonts::MeasureText(std::string_view text, const machine::FontSpec& font) {
    GlyphTable& table = tables_.Of(font);
    return {table.Width(text) / UnitsPerTwip, table.LineHeight() / UnitsPerTwip};
}

machine::InkBox QtPrintFonts::InkOf(char32_t letter, const machine::FontSpec& font) {
    GlyphTable& table = tables_.Of(font);
    const QRectF& ink = table.InkOf(letter);
    if (ink.isEmpty()) {
        return {};
    }
    return {.Left = ink.left() / UnitsPerTwip,
            .Top = (table.Ascent() + ink.top()) / UnitsPerTwip,
            .Right = ink.right() / UnitsPerTwip,
            .Bottom = (table.Ascent() + ink.bottom()) / UnitsPerTwip};
}

} // namespace desktop::qt
