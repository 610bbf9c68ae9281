#include <string>
#include <vector>

#include <QPainterPath>
#include <QRawFont>
#include <gtest/gtest.h>

#include "desktop/qt/BoldFace.h"
#include "desktop/qt/Fonts.h"
#include "desktop/qt/GlyphTable.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/Devices.h"

namespace desktop::qt {
namespace {

constexpr double CreditorSize = 7;
constexpr int Dots = 1200;
constexpr double MillimetresPerDot = 25.4 / Dots;

const machine::FontSpec Plain = {"Tahoma", CreditorSize, false};
const machine::FontSpec Bold = {"Tahoma", CreditorSize, true};

QRawFont Raw(const machine::FontSpec& font) {
    return QRawFont::fromFont(DesignFont(font));
}

bool IsInk(const QImage& picture, int x, int y) {
    return qGray(picture.pixel(x, y)) < 128;
}

/// A letter as it stands on paper; its cursor is in the top left corner.
struct Letter {
    std::string Text;
    QImage Picture;

    pdf::Box Ink() const { return pdf::Ink(Picture, Dots); }

    /// Widths in millimetres of what is black on a level line, at a part of the ink's height.
    std::vector<double> Strokes(double part) const {
        const pdf::Box ink = Ink();
        const int y = static_cast<int>((ink.Top + (ink.Bottom - ink.Top) * part) / MillimetresPerDot);
        std::vector<double> strokes;
        int wide = 0;
        for (int x = 0; x < Picture.width(); ++x) {
            const bool black = IsInk(Picture, x, y);
            if (!black && wide > 0) {
                strokes.push_back(wide * MillimetresPerDot);
            }
            wide = black ? wide + 1 : 0;
        }
        return strokes;
    }

    /// White areas inside the letter.
    int Holes() const {
        constexpr int least = 4; // dots that an area has to be seen
        const pdf::Box ink = Ink();
        const auto dots = [](double millimetres) {
            return static_cast<int>(millimetres / MillimetresPerDot);
        };
        QImage rest = Picture.copy(dots(ink.Left) - 2, dots(ink.Top) - 2, dots(ink.Right - ink.Left) + 4,
                                   dots(ink.Bottom - ink.Top) + 4);
        int areas = 0;
        for (int y = 0; y < rest.height(); ++y) {
            for (int x = 0; x < rest.width(); ++x) {
                areas += Blacken(rest, {x, y}) >= least ? 1 : 0;
            }
        }
        return areas - 1; // the paper around it
    }

  private:
    /// The white area at a point; tells its dots.
    static int Blacken(QImage& picture, QPoint start) {
        int count = 0;
        std::vector<QPoint> open{start};
        while (!open.empty()) {
            const QPoint at = open.back();
            open.pop_back();
            if (picture.rect().contains(at) && !IsInk(picture, at.x(), at.y())) {
                picture.setPixel(at, 0);
                ++count;
                for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
                    open.push_back(at + step);
                }
            }
        }
        return count;
    }
};

std::vector<Letter> Print(const std::vector<std::string>& texts, const machine::FontSpec& font) {
    constexpr int columns = 10;
    constexpr double cell = 4; // millimetres
    const auto across = [](std::size_t i) { return static_cast<int>(i) % columns; };
    const auto down = [](std::size_t i) { return static_cast<int>(i) / columns; };
    PdfFile pdf;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        pdf.Canvas.DrawText((across(i) * cell + 0.5) * TwipsPerMillimetre,
                            down(i) * cell * TwipsPerMillimetre, texts[i], font);
    }
    const QImage page = pdf::Corner(pdf.Finish(), 1, Dots, columns * cell);
    constexpr double dots = cell / MillimetresPerDot;
    std::vector<Letter> letters;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        letters.push_back(
            {texts[i], page.copy(static_cast<int>(across(i) * dots), static_cast<int>(down(i) * dots),
                                 static_cast<int>(dots), static_cast<int>(dots))});
    }
    return letters;
}

double MillimetresWide(const std::string& text, const machine::FontSpec& font) {
    return GlyphTable(font).Width(text) / 7200 * 25.4;
}

TEST(BoldFaceTest, PrintsStemsTwiceAsThickAsPlainOnes) {
    const std::vector<std::string> texts = {"l", "I", "H", "n", "m", "h", "B", "E", "L", "u", "1"};
    const std::vector<Letter> plain = Print(texts, Plain);
    const std::vector<Letter> bold = Print(texts, Bold);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        constexpr double height = 0.7; // where these letters have their stem first
        const std::vector<double> thin = plain[i].Strokes(height);
        const std::vector<double> thick = bold[i].Strokes(height);
        ASSERT_FALSE(thin.empty() || thick.empty()) << texts[i];
        EXPECT_GT(thin.front(), 0.15) << texts[i];
        EXPECT_NEAR(thick.front() / thin.front(), 2, 0.2)
            << texts[i] << ": " << thin.front() << " " << thick.front();
    }
}

TEST(BoldFaceTest, ThickensTheScriptsOfEurope) {
    // L with an acute, and the Cyrillic letters for N and P.
    const std::vector<std::string> texts = {"\xC4\xB9", "\xD0\x9D", "\xD0\x9F"};
    const std::vector<Letter> plain = Print(texts, Plain);
    const std::vector<Letter> bold = Print(texts, Bold);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        constexpr double height = 0.65;
        const std::vector<double> thin = plain[i].Strokes(height);
        const std::vector<double> thick = bold[i].Strokes(height);
        ASSERT_FALSE(thin.empty() || thick.empty()) << texts[i];
        EXPECT_NEAR(thick.front() / thin.front(), 2, 0.3)
            << texts[i] << ": " << thin.front() << " " << thick.front();
    }
}

TEST(BoldFaceTest, LeavesOtherScriptsAsTheyAre) {
    const QRawFont made = Raw(Bold);
    QRawFont packaged(QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf"), made.pixelSize(),
                      QFont::PreferNoHinting);
    if (!packaged.isValid()) {
        GTEST_SKIP() << "Tahoma is not the package's";
    }
    const QString letter = QStringLiteral("\u0633"); // Arabic
    const quint32 glyph = made.glyphIndexesForString(letter).value(0);
    ASSERT_NE(glyph, 0U);
    EXPECT_EQ(made.pathForGlyph(glyph).boundingRect(), packaged.pathForGlyph(glyph).boundingRect());
}

TEST(BoldFaceTest, KeepsLettersOpen) {
    std::vector<std::string> texts;
    for (char letter = '!'; letter <= '~'; ++letter) {
        texts.emplace_back(1, letter);
    }
    const std::vector<Letter> plain = Print(texts, Plain);
    const std::vector<Letter> bold = Print(texts, Bold);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(bold[i].Holes(), plain[i].Holes()) << texts[i];
    }
}

TEST(BoldFaceTest, KeepsDotsApart) {
    const std::vector<std::string> texts = {"\xC3\xAB", "\xC3\xAF", "\xC3\xB6", "\xC3\xBC",
                                            "\xC3\x84", "\xC3\x9C", "\""};
    for (const Letter& letter : Print(texts, Bold)) {
        EXPECT_EQ(letter.Strokes(0.05).size(), 2U) << letter.Text;
    }
}

TEST(BoldFaceTest, LeavesLettersInTheirPlace) {
    constexpr double tolerance = 0.05;
    const std::vector<std::string> texts = {"H", "I", "E", "n", "o", "e", "a", "S",
                                            "d", "p", "g", "W", "m", "0", "7"};
    const std::vector<Letter> plain = Print(texts, Plain);
    const std::vector<Letter> bold = Print(texts, Bold);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const pdf::Box before = plain[i].Ink();
        const pdf::Box after = bold[i].Ink();
        EXPECT_NEAR(after.Left, before.Left, tolerance) << texts[i];
        EXPECT_NEAR(after.Top, before.Top, tolerance) << texts[i];
        EXPECT_NEAR(after.Bottom, before.Bottom, tolerance) << texts[i];
        EXPECT_NEAR(after.Right - before.Right,
                    MillimetresWide(texts[i], Bold) - MillimetresWide(texts[i], Plain), tolerance)
            << texts[i];
    }
}

TEST(BoldFaceTest, HasTheAdvancesNamesAndMetricsOfTheFamilysOwn) {
    const QRawFont made = Raw(Bold);
    const QRawFont packaged(QStringLiteral("/usr/share/wine/fonts/tahomabd.ttf"), made.pixelSize());
    if (!packaged.isValid()) {
        GTEST_SKIP() << "Tahoma is not the package's";
    }
    for (const char* table : {"OS/2", "cmap", "name", "post", "hhea"}) {
        EXPECT_EQ(made.fontTable(table), packaged.fontTable(table)) << table;
    }
    QList<quint32> glyphs;
    for (quint32 glyph = 0; glyph < 979; ++glyph) {
        glyphs.append(glyph);
    }
    EXPECT_EQ(made.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics),
              packaged.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics));
    EXPECT_EQ(made.weight(), QFont::Bold);
}

TEST(BoldFaceTest, LeavesABoldFaceAsItIs) {
    EXPECT_TRUE(MakeBold(Raw(Plain), Raw(Bold)).isEmpty()); // made already
    const machine::FontSpec plain = {"DejaVu Sans", 9, false};
    const machine::FontSpec bold = {"DejaVu Sans", 9, true};
    EXPECT_TRUE(MakeBold(Raw(plain), Raw(bold)).isEmpty());
}

TEST(BoldFaceTest, LeavesAFamilyWithoutABoldFaceToTheToolkit) {
    EXPECT_TRUE(MakeBold(Raw(Plain), Raw(Plain)).isEmpty());
    EXPECT_TRUE(MakeBold(Raw({"OCR-B", 9, false}), Raw({"OCR-B", 9, true})).isEmpty());
    EXPECT_TRUE(MakeBold(QRawFont(), QRawFont()).isEmpty());
}

TEST(BoldFaceTest, IsSeenInAPreviewToo) {
    const auto ink = [](const machine::FontSpec& font) {
        PictureFile picture;
        picture.Canvas.DrawText(567, 567, "Stichting Voorbeeld", font);
        picture.Canvas.EndDocument();
        int dark = 0;
        for (int y = 0; y < picture.Image.height(); ++y) {
            for (int x = 0; x < picture.Image.width(); ++x) {
                dark += 255 - qGray(picture.Image.pixel(x, y));
            }
        }
        return dark;
    };
    EXPECT_GT(ink(Bold), 1.5 * ink(Plain));
}

} // namespace
} // namespace desktop::qt
