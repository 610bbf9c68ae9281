#include "desktop/qt/Fonts.h"

#include <limits>

#include <QFontInfo>
#include <QRawFont>
#include <QtEndian>
#include <gtest/gtest.h>

#include "desktop/qt/GlyphTable.h"

namespace desktop::qt {
namespace {

TEST(ResolveFamilyTest, FindsAFamilyThatDiffersInBlanksHyphensAndCaseAlone) {
    for (const char* name : {"OCR B", "OCR-B", "ocr b", "OCRB", "o c r-b"}) {
        EXPECT_EQ(QString::fromStdString(ResolveFamily(name)).toLower(), "ocr b") << name;
    }
}

TEST(ResolveFamilyTest, LeavesANameWithoutAFamilyAsItIs) {
    for (const char* name : {"No such font 42", "", "-", "  "}) {
        EXPECT_EQ(ResolveFamily(name), name);
    }
    const std::string damaged = "Tahoma\xED\xA0\x80\xFF";
    EXPECT_EQ(ResolveFamily(damaged), damaged);
}

TEST(ResolveFamilyTest, FindsTheFontThatItsPackageKeepsElsewhere) {
    EXPECT_EQ(ResolveFamily("Tahoma"), "Tahoma");
    EXPECT_EQ(QRawFont::fromFont(DesignFont({"Tahoma", 9, false})).familyName(), "Tahoma");
    EXPECT_EQ(QRawFont::fromFont(DesignFont({"Tahoma", 9, true})).familyName(), "Tahoma");
}

TEST(DesignFontTest, HoldsAnySize) {
    EXPECT_EQ(DesignFont({"Tahoma", 9, false}).pixelSize(), 900);
    EXPECT_EQ(DesignFont({"Tahoma", 8.25, false}).pixelSize(), 825);
    for (const double size : {0.0, -4.0, 1e-9, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(DesignFont({"Tahoma", size, false}).pixelSize(), 1);
    }
    for (const double size : {601.0, 1e30, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(DesignFont({"Tahoma", size, false}).pixelSize(), 60000);
    }
}

TEST(GlyphTableTest, TakesTheLineFromTheWindowsMetrics) {
    GlyphTable table({"Tahoma", 10, false});
    // Tahoma: 2049 and 423 units of a 2048 em.
    QRawFont face = QRawFont::fromFont(DesignFont({"Tahoma", 10, false}));
    const QByteArray os2 = face.fontTable("OS/2");
    const double ascent = qFromBigEndian<quint16>(os2.constData() + 74);
    const double descent = qFromBigEndian<quint16>(os2.constData() + 76);
    EXPECT_NEAR(table.Ascent(), ascent / face.unitsPerEm() * 1000, 1e-9);
    EXPECT_NEAR(table.LineHeight(), (ascent + descent) / face.unitsPerEm() * 1000, 1e-9);
}

TEST(GlyphTableTest, HasDesignWidthsFromTheFontFile) {
    GlyphTable table({"Tahoma", 10, false});
    QRawFont face = QRawFont::fromFont(DesignFont({"Tahoma", 10, false}));
    const QByteArray hmtx = face.fontTable("hmtx");
    const QByteArray hhea = face.fontTable("hhea");
    const qsizetype wide = qFromBigEndian<quint16>(hhea.constData() + 34);
    for (char32_t code = 0x20; code < 0x7F; ++code) {
        const quint32 glyph = face.glyphIndexesForString(QString(QChar(static_cast<char16_t>(code)))).front();
        const qsizetype row = std::min(static_cast<qsizetype>(glyph), wide - 1);
        const double units = qFromBigEndian<quint16>(hmtx.constData() + row * 4);
        EXPECT_NEAR(table.Of(code).Advance, units / face.unitsPerEm() * 1000, 0.02) << static_cast<int>(code);
    }
}

TEST(GlyphTableTest, GivesControlCharactersNoWidth) {
    GlyphTable table({"Tahoma", 10, false});
    for (const char32_t code : {U'\0', U'\n', U'\t', char32_t{0x7F}, char32_t{0x9F}}) {
        EXPECT_EQ(table.Of(code).Advance, 0);
        EXPECT_FALSE(table.Of(code).Visible);
    }
}

TEST(GlyphTableTest, TakesAnotherFontForACharacterThatItsOwnLacks) {
    GlyphTable table({"OCR B", 10, false});
    const GlyphTable::Glyph own = table.Of(U'A');
    const GlyphTable::Glyph other = table.Of(U'\u0416');
    EXPECT_EQ(own.Face, 0U);
    EXPECT_NE(other.Face, 0U);
    EXPECT_NE(other.Index, 0U);
    EXPECT_GT(other.Advance, 0);
}

TEST(GlyphTableTest, StaysInBoundsWithEveryCodePoint) {
    GlyphTable table({"Tahoma", 10, false});
    for (char32_t code = 0; code < 0x20000; code += 31) {
        EXPECT_GE(table.Of(code).Advance, 0);
    }
    for (const char32_t code :
         {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x10FFFF}, char32_t{0xFFFFFFFF}}) {
        EXPECT_GE(table.Of(code).Advance, 0);
    }
}

} // namespace
} // namespace desktop::qt
