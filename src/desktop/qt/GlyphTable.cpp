#include "desktop/qt/GlyphTable.h"

#include <QByteArray>
#include <QGlyphRun>
#include <QPainterPath>
#include <QTextLayout>
#include <QtEndian>

#include "base/Text.h"
#include "desktop/qt/Fonts.h"

namespace desktop::qt {

namespace {

/// How many characters beyond Latin-1 are kept at a time. A text that holds more is only slower.
constexpr std::size_t MostOtherGlyphs = 4096;

// Places in a font file's OS/2 table.
constexpr qsizetype WinAscentAt = 74;
constexpr qsizetype WinDescentAt = 76;

bool IsControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

double Table16(const QByteArray& table, qsizetype at) {
    return qFromBigEndian<quint16>(table.constData() + at);
}

/// The face of a font. To look one up in the desktop's font configuration takes longer than to have one that
/// is there at another size; but a bitmap font has a file for each size.
QRawFont FaceOf(const QFont& font, const GlyphTable* sibling) {
    if (sibling != nullptr && sibling->Face(0).unitsPerEm() > 0) {
        QRawFont face = sibling->Face(0);
        face.setPixelSize(font.pixelSize());
        if (face.isValid()) {
            return face;
        }
    }
    return QRawFont::fromFont(font);
}

} // namespace

GlyphTable::GlyphTable(const machine::FontSpec& font, const GlyphTable* sibling)
    : spec_(font), font_(DesignFont(font)), faces_{FaceOf(font_, sibling)} {
    const QRawFont& face = faces_.front();
    const QByteArray os2 = face.fontTable("OS/2");
    if (os2.size() >= WinDescentAt + 2 && face.unitsPerEm() > 0) {
        const double scale = face.pixelSize() / face.unitsPerEm();
        ascent_ = Table16(os2, WinAscentAt) * scale;
        lineHeight_ = ascent_ + Table16(os2, WinDescentAt) * scale;
    } else { // a bitmap or Type 1 font
        ascent_ = face.ascent();
        lineHeight_ = ascent_ + face.descent();
    }
}

double GlyphTable::Width(std::string_view text) {
    double width = 0;
    while (!text.empty()) {
        const base::text::Decoded next = base::text::DecodeFirst(text);
        width += Of(next.Code).Advance;
        text.remove_prefix(next.Bytes);
    }
    return width;
}

const GlyphTable::Glyph& GlyphTable::Find(char32_t code) {
    if (code < table_.size()) {
        known_[code] = true;
        return table_[code] = Make(code);
    }
    if (const auto found = others_.find(code); found != others_.end()) {
        return found->second;
    }
    if (others_.size() >= MostOtherGlyphs) {
        others_.clear();
    }
    return others_[code] = Make(code);
}

const QRectF& GlyphTable::InkOf(char32_t code) {
    if (const auto found = inks_.find(code); found != inks_.end()) {
        return found->second;
    }
    if (inks_.size() >= MostOtherGlyphs) {
        inks_.clear();
    }
    const Glyph& glyph = Of(code);
    if (!glyph.Visible) {
        return inks_[code] = QRectF();
    }
    const QPainterPath outline = faces_[glyph.Face].pathForGlyph(glyph.Index);
    // The face's own box goes by the handles of its curves as well. A bitmap font has no other.
    return inks_[code] =
               outline.isEmpty() ? faces_[glyph.Face].boundingRect(glyph.Index) : outline.boundingRect();
}

GlyphTable::Glyph GlyphTable::Make(char32_t code) {
    if (IsControl(code)) {
        return {};
    }
    const QString character = QString::fromUcs4(&code, 1);
    Glyph glyph;
    if (const QList<quint32> own = faces_.front().glyphIndexesForString(character); own.size() == 1) {
        glyph.Index = own.front();
    }
    if (glyph.Index == 0) {
        QTextLayout layout(character, font_);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        const QList<QGlyphRun> runs = layout.glyphRuns();
        if (!runs.isEmpty() && !runs.front().glyphIndexes().isEmpty()) {
            const QRawFont& face = runs.front().rawFont();
            glyph.Index = runs.front().glyphIndexes().front();
            while (glyph.Face < faces_.size() && !(faces_[glyph.Face] == face)) {
                ++glyph.Face;
            }
            if (glyph.Face == faces_.size()) {
                faces_.push_back(face);
            }
        }
    }
    const QList<QPointF> advance =
        faces_[glyph.Face].advancesForGlyphIndexes(QList<quint32>{glyph.Index}, QRawFont::UseDesignMetrics);
    glyph.Advance = advance.isEmpty() ? 0 : advance.front().x();
    glyph.Visible = true;
    return glyph;
}

} // namespace desktop::qt
