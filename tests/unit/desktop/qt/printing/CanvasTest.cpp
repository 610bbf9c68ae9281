#include <limits>
#include <new>
#include <utility>

#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/qt/Fonts.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/Devices.h"
#include "unit/desktop/qt/printing/TestFonts.h"

namespace desktop::qt {
namespace {

const machine::FontSpec Ocr10 = {"OCR-B", 10, false};

TEST(QtCanvasTest, PutsATextWhereTheCursorIs) {
    PdfFile pdf;
    for (int i = 0; i < 20; ++i) {
        pdf.Canvas.DrawText((10 + i * 7.3) * TwipsPerMillimetre, i * 13 * TwipsPerMillimetre,
                            "n" + std::to_string(i), i % 2 == 0 ? Tahoma9 : Ocr10);
    }
    const std::vector<pdf::Word> words = pdf::Words(pdf.Finish());
    ASSERT_EQ(words.size(), 20U);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(words[static_cast<std::size_t>(i)].Text, "n" + std::to_string(i));
        EXPECT_NEAR(words[static_cast<std::size_t>(i)].Left, 10 + i * 7.3, 0.01);
    }
}

/// Refuses the first of its texts, and counts the letters of those after it.
class ShortPdf final : public PdfFile {
  public:
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                    std::span<const QPointF> places) override {
        if (std::exchange(short_, false)) {
            throw std::bad_alloc();
        }
        Letters += glyphs.size();
        PdfFile::DrawGlyphs(face, glyphs, places);
    }

    std::size_t Letters = 0;

  private:
    bool short_ = true;
};

TEST(QtCanvasTest, LeavesNothingOfATextThatBrokeOffToTheNextOne) {
    ShortPdf pdf;
    EXPECT_THROW(pdf.Canvas.DrawText(0, 0, "oud", Tahoma9), std::bad_alloc);
    pdf.Canvas.DrawText(0, 567, "nieuw", Tahoma9);
    EXPECT_EQ(pdf.Letters, 5U);
    EXPECT_EQ(pdf::Text(pdf.Finish()), "nieuw\n\f");
}

TEST(QtCanvasTest, MeasuresWhatItPrints) {
    const std::vector<std::string> texts = {"AVAVATATo.Yo",        "fiflffi",
                                            "NL13ABNA0500000018+", "Wilhelmina-straat",
                                            "7100000012010326+",   "\xC3\x89\xC3\xA9n\xC3\xAB\xE2\x82\xAC"};
    for (const machine::FontSpec& font :
         {Tahoma9, Ocr10, machine::FontSpec{"Tahoma", 6, true}, machine::FontSpec{"Tahoma", 8.25, false}}) {
        PdfFile pdf;
        std::vector<double> widths;
        double y = 0;
        for (const std::string& text : texts) {
            widths.push_back(pdf.Canvas.MeasureText(text, font).Width / TwipsPerMillimetre);
            pdf.Canvas.DrawText(567, y += 600, text, font);
        }
        const std::vector<pdf::Word> words = pdf::Words(pdf.Finish());
        ASSERT_EQ(words.size(), texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(words[i].Text, texts[i]);
            EXPECT_NEAR(words[i].Right - words[i].Left, widths[i], 0.01)
                << font.Name << font.Size << texts[i];
        }
    }
}

TEST(QtCanvasTest, NeitherKernsNorJoinsLetters) {
    PdfFile pdf;
    for (const char* pair : {"AV", "To", "fi", "ff", "LT"}) {
        const double together = pdf.Canvas.MeasureText(pair, Tahoma9).Width;
        const double apart = pdf.Canvas.MeasureText(std::string_view(pair, 1), Tahoma9).Width +
                             pdf.Canvas.MeasureText(std::string_view(pair + 1, 1), Tahoma9).Width;
        EXPECT_NEAR(together, apart, 1e-9) << pair;
    }
}

TEST(QtCanvasTest, GivesOcrBItsPitchOfATenthOfAnInch) {
    PdfFile pdf;
    EXPECT_NEAR(pdf.Canvas.MeasureText("0123456789", Ocr10).Width, 1440, 15);
}

TEST(QtCanvasTest, StandsATextWithTheTopOfItsLineAtTheCursor) {
    constexpr int dots = 1200;
    PdfFile pdf;
    const machine::FontSpec font = {"Tahoma", 12, false};
    pdf.Canvas.DrawText(20 * TwipsPerMillimetre, 30 * TwipsPerMillimetre, "H", font);
    const pdf::Box ink = pdf::Ink(pdf::Corner(pdf.Finish(), 1, dots, 45), dots);
    const GlyphTable table(font);
    EXPECT_NEAR(ink.Bottom, 30 + table.Ascent() / 7200 * 25.4, 0.03); // an H stands on the base line
}

TEST(QtCanvasTest, MovesTheOriginToThePrintableArea) {
    PdfFile pdf(Sheet{A4.Width, A4.Height, 5 * TwipsPerMillimetre, 7 * TwipsPerMillimetre});
    pdf.Canvas.DrawText(0, 0, "een", Tahoma9);
    pdf.Canvas.NewPage();
    pdf.Canvas.DrawText(0, 0, "twee", Tahoma9);
    const std::vector<pdf::Word> words = pdf::Words(pdf.Finish());
    ASSERT_EQ(words.size(), 2U);
    EXPECT_NEAR(words[0].Left, 5, 0.01);
    EXPECT_NEAR(words[1].Left, 5, 0.01);
    EXPECT_EQ(words[1].Page, 2);
    EXPECT_NEAR(words[0].Top, words[1].Top, 0.001);
}

TEST(QtCanvasTest, EmbedsEveryFontAndKeepsTheTextReadable) {
    std::string latin;
    for (char32_t code = 0x21; code < 0x7F; ++code) {
        latin += static_cast<char>(code);
    }
    PdfFile pdf;
    pdf.Canvas.DrawText(100, 100, latin, Tahoma9);
    pdf.Canvas.DrawText(100, 600, latin, machine::FontSpec{"Tahoma", 6, true});
    pdf.Canvas.DrawText(100, 1200, latin, machine::FontSpec{"OCR-B", 8, false});
    const QString file = pdf.Finish();
    EXPECT_EQ(pdf::Text(file), latin + "\n" + latin + "\n" + latin + "\n\f");
    const std::vector<pdf::Font> fonts = pdf::Fonts(file);
    EXPECT_EQ(fonts.size(), 3U);
    for (const pdf::Font& font : fonts) {
        EXPECT_TRUE(font.Embedded) << font.Name;
    }
}

TEST(QtCanvasTest, PrintsABlankAsABlank) {
    PdfFile pdf;
    std::string expected;
    double y = 0;
    for (const machine::FontSpec& font :
         {Tahoma9, Ocr10, machine::FontSpec{"Tahoma", 7, true}, machine::FontSpec{"DejaVu Sans", 8, false}}) {
        pdf.Canvas.DrawText(567, y += 600, "een  twee d", font);
        expected += "een  twee d\n";
    }
    const QString file = pdf.Finish();
    const std::vector<std::string> tables = pdf::CharacterTables(file);
    EXPECT_EQ(tables.size(), 4U);
    for (const std::string& table : tables) {
        EXPECT_THAT(table, testing::HasSubstr("<0020>"));
        EXPECT_THAT(table, testing::Not(testing::ContainsRegex("[[ ]<0009>[] ]")));
    }
    EXPECT_THAT(pdf::Text(file), testing::Not(testing::HasSubstr("\t")));
    const std::optional<std::string> read = pdf::TextByMuPdf(file);
    if (!read) {
        GTEST_SKIP() << "MuPDF is missing";
    }
    EXPECT_EQ(*read, expected);
}

TEST(QtCanvasTest, DrawsOneOfTheBlanksAtATextsEnd) {
    PdfFile pdf;
    pdf.Canvas.DrawText(567, 600, "  een  twee     ", Tahoma9);
    pdf.Canvas.DrawText(567, 1200, "    ", Tahoma9);
    pdf.Canvas.DrawText(567, 1800, "drie ", Tahoma9);
    const std::optional<std::string> read = pdf::TextByMuPdf(pdf.Finish());
    if (!read) {
        GTEST_SKIP() << "MuPDF is missing";
    }
    EXPECT_EQ(*read, "  een  twee \n \ndrie \n");
}

TEST(QtCanvasTest, KeepsTheOrderOfTextsOfSeveralFontsAndOfLines) {
    PdfFile pdf;
    std::string expected;
    for (int i = 0; i < 12; ++i) {
        const machine::FontSpec& font = i % 4 < 2 ? Tahoma9 : Ocr10;
        pdf.Canvas.DrawText(567, 600 + i * 300, "tekst" + std::to_string(i), font);
        expected += "tekst" + std::to_string(i) + "\n";
        if (i % 5 == 0) {
            pdf.Canvas.DrawLine(567, 600 + i * 300, 2000, 600 + i * 300, 0);
        }
        if (i == 6) {
            pdf.Canvas.NewPage();
            expected += "\f";
        }
    }
    EXPECT_EQ(pdf::Text(pdf.Finish()), expected + "\f");
}

TEST(QtCanvasTest, KeepsTheGlyphWithTheNumberOfATab) {
    PdfFile pdf;
    pdf.Canvas.DrawText(567, 567, "abcdefghi jklm", Tahoma9); // the ninth glyph is followed by others
    pdf.Canvas.DrawText(567, 1134, "zyxwvuts rq", Ocr10);     // the ninth is the blank
    EXPECT_EQ(pdf::Text(pdf.Finish()), "abcdefghi jklm\nzyxwvuts rq\n\f");
}

TEST(QtCanvasTest, DrawsALineInItsColour) {
    constexpr int dots = 600;
    PdfFile pdf;
    pdf.Canvas.DrawLine(20 * TwipsPerMillimetre, 40 * TwipsPerMillimetre, 120 * TwipsPerMillimetre,
                        40 * TwipsPerMillimetre, 0x0000FF);
    const QImage picture = pdf::Corner(pdf.Finish(), 1, dots, 150);
    int red = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 940; y < 950; ++y) {
            const QRgb dot = picture.pixel(x, y);
            red += qRed(dot) > 200 && qGreen(dot) < 100 && qBlue(dot) < 100 ? 1 : 0;
        }
    }
    EXPECT_NEAR(red, 100 / 25.4 * dots, 30); // one dot high
}

TEST(QtCanvasTest, LeavesTheTextBlackBehindALine) {
    constexpr int dots = 300;
    PdfFile pdf;
    pdf.Canvas.DrawLine(0, 0, 100, 0, 0xFFFFFF);
    pdf.Canvas.DrawText(567, 567, "H", Tahoma9);
    const pdf::Box ink = pdf::Ink(pdf::Corner(pdf.Finish(), 1, dots, 45), dots);
    EXPECT_GT(ink.Right, ink.Left);
}

TEST(QtCanvasTest, DrawsTheSameOnAPicture) {
    PictureFile picture;
    picture.Canvas.DrawText(20 * TwipsPerMillimetre, 30 * TwipsPerMillimetre, "HHHHHHHH", Tahoma9);
    const double width = picture.Canvas.MeasureText("HHHHHHHH", Tahoma9).Width / TwipsPerMillimetre;
    picture.Canvas.EndDocument();
    const pdf::Box ink = pdf::Ink(picture.Image, 96);
    EXPECT_NEAR(ink.Left, 20, 0.6);
    EXPECT_NEAR(ink.Right - ink.Left, width, 0.6);
    EXPECT_NEAR(ink.Bottom, 30 + GlyphTable(Tahoma9).Ascent() / 7200 * 25.4, 0.4);
}

TEST(QtCanvasTest, DrawsNothingForAnEmptyText) {
    PdfFile pdf;
    pdf.Canvas.DrawText(0, 0, "", Tahoma9);
    EXPECT_EQ(pdf.Canvas.MeasureText("", Tahoma9).Width, 0);
    EXPECT_GT(pdf.Canvas.MeasureText("", Tahoma9).Height, 0);
    EXPECT_TRUE(pdf::Words(pdf.Finish()).empty());
}

TEST(QtCanvasTest, PrintsAMissingFontAsItMeasuresIt) {
    const machine::FontSpec missing = {"Nergens te vinden", 10, false};
    PdfFile pdf;
    const double width = pdf.Canvas.MeasureText("Voorbeeldtekst", missing).Width / TwipsPerMillimetre;
    EXPECT_GT(width, 0);
    pdf.Canvas.DrawText(567, 567, "Voorbeeldtekst", missing);
    const std::vector<pdf::Word> words = pdf::Words(pdf.Finish());
    ASSERT_EQ(words.size(), 1U);
    EXPECT_NEAR(words[0].Right - words[0].Left, width, 0.01);
}

TEST(QtCanvasTest, PrintsForeignLettersAsItMeasuresThem) {
    const std::string text = "\xD0\x96\xD0\xA9\xCE\xA9\xCE\xB1"; // Cyrillic and Greek, which OCR-B lacks
    PdfFile pdf;
    const double width = pdf.Canvas.MeasureText(text, Ocr10).Width / TwipsPerMillimetre;
    pdf.Canvas.DrawText(567, 567, text, Ocr10);
    const QString file = pdf.Finish();
    const std::vector<pdf::Word> words = pdf::Words(file);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].Text, text);
    EXPECT_NEAR(words[0].Right - words[0].Left, width, 0.01);
    for (const pdf::Font& font : pdf::Fonts(file)) {
        EXPECT_TRUE(font.Embedded) << font.Name;
    }
}

TEST(QtCanvasTest, DropsControlCharactersAndKeepsTheRest) {
    PdfFile pdf;
    const std::string text("a\0b\r\nc\td", 8);
    pdf.Canvas.DrawText(567, 567, text, Tahoma9);
    EXPECT_NEAR(pdf.Canvas.MeasureText(text, Tahoma9).Width, pdf.Canvas.MeasureText("abcd", Tahoma9).Width,
                1e-9);
    EXPECT_EQ(pdf::Text(pdf.Finish()), "abcd\n\f");
}

TEST(QtCanvasTest, SurvivesHostileTextsSizesAndPlaces) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    std::string hundredThousand;
    for (int i = 0; i < 100'000; ++i) {
        hundredThousand += i % 3 == 0 ? "\xE6\xBC\xA2" : "x";
    }
    const std::vector<std::string> texts = {
        "\xED\xA0\x80 \xED\xBF\xBF", // unbalanced surrogates
        "\xFF\xFE\x80\xC3",
        "\xF0\x9F\x98\x80\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA9",
        "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7 \xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
        "\xE0\xB8\xAA\xE0\xB8\xA7\xE0\xB8\xB1 e\xCC\x81\xCC\x81\xCC\x81",
        std::string(1000, '\0'),
        hundredThousand,
    };
    for (const double size : {9.0, 0.0, -1.0, 1e-6, 1e6, infinite, noNumber}) {
        for (const std::string& text : texts) {
            PdfFile pdf;
            const machine::FontSpec font = {"Tahoma", size, size > 100};
            pdf.Canvas.MeasureText(text, font);
            pdf.Canvas.DrawText(567, 567, text, font);
            for (const double place : {1e7, -1e7, 1e300, infinite, noNumber}) {
                pdf.Canvas.DrawText(place, 0, std::string_view(text).substr(0, 100), font);
                pdf.Canvas.DrawText(0, place, std::string_view(text).substr(0, 100), font);
                pdf.Canvas.DrawLine(place, 0, 100, place, -1);
            }
            pdf.Canvas.NewPage();
            EXPECT_EQ(pdf::Info(pdf.Finish(), "Pages"), "2");
        }
    }
}

TEST(QtCanvasTest, HoldsMoreFontsThanItKeeps) {
    PdfFile pdf;
    for (int i = 0; i < 150; ++i) {
        pdf.Canvas.MeasureText(
            "x", machine::FontSpec{"Font " + std::to_string(i % 100), 1 + i * 0.01, i % 2 == 0});
    }
    EXPECT_GT(pdf.Canvas.MeasureText("x", Tahoma9).Width, 0);
}

} // namespace
} // namespace desktop::qt
