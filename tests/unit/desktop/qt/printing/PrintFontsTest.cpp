#include <string>

#include <QFontDatabase>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "desktop/qt/QtPrintFonts.h"
#include "print/pdf/PdfReader.h"
#include "unit/desktop/qt/printing/Devices.h"
#include "unit/desktop/qt/printing/TestFonts.h"

namespace desktop::qt {
namespace {

const machine::FontSpec OcrB10 = {"OCR-B", 10, false};

class PrintFontsTest : public testing::Test {
  protected:
    /// What a picture of the printed page shows of a letter, in twips of its place in the line.
    static machine::InkBox Seen(const std::string& letter, const machine::FontSpec& font) {
        constexpr int dots = 1200;
        constexpr double corner = 200; // twips
        PdfFile file;
        file.Canvas.DrawText(corner, corner, letter, font);
        const pdf::Box ink = pdf::Ink(pdf::Corner(file.Finish(), 1, dots, 12), dots);
        return {.Left = ink.Left * TwipsPerMillimetre - corner,
                .Top = ink.Top * TwipsPerMillimetre - corner,
                .Right = ink.Right * TwipsPerMillimetre - corner,
                .Bottom = ink.Bottom * TwipsPerMillimetre - corner};
    }
    void ExpectInkAsSeen(const std::string& letter, const machine::FontSpec& font) {
        SCOPED_TRACE(letter + " in " + font.Name + (font.Bold ? " bold" : ""));
        const machine::InkBox ink = Fonts.InkOf(base::text::DecodeFirst(letter).Code, font);
        const machine::InkBox seen = Seen(letter, font);
        constexpr double twipsPerDot = 1.2;
        EXPECT_NEAR(ink.Left, seen.Left, 1.5 * twipsPerDot);
        EXPECT_NEAR(ink.Top, seen.Top, 1.5 * twipsPerDot);
        EXPECT_NEAR(ink.Right, seen.Right, 1.5 * twipsPerDot);
        EXPECT_NEAR(ink.Bottom, seen.Bottom, 1.5 * twipsPerDot);
    }

    QtPrintFonts Fonts;
};

TEST_F(PrintFontsTest, AFontThatIsInstalledPrintsByWhateverNameFindsIt) {
    for (const char* name : {"Tahoma", "OCR B", "OCR-B", "ocrb"}) {
        EXPECT_EQ(Fonts.FamilyFor(name), name);
    }
}

TEST_F(PrintFontsTest, TellsWhichFontPrintsForOneThatIsNotThere) {
    for (const std::string name : {"No such font 42", "", "-"}) {
        const std::string printed = Fonts.FamilyFor(name);
        EXPECT_NE(printed, name);
        EXPECT_TRUE(QFontDatabase::hasFamily(QString::fromStdString(printed))) << printed;
        // It is the one that is measured, and so the one on paper.
        EXPECT_EQ(Fonts.MeasureText("NL12", {name, 10, false}).Width,
                  Fonts.MeasureText("NL12", {printed, 10, false}).Width);
    }
}

TEST_F(PrintFontsTest, ALetterThatAnotherFontLendsIsNotTheFontsOwn) {
    EXPECT_TRUE(Fonts.HasLetter(Tahoma9, U'\u00EB'));
    EXPECT_TRUE(Fonts.HasLetter(Tahoma9, U' '));
    EXPECT_TRUE(Fonts.HasLetter(OcrB10, U'<'));
    EXPECT_FALSE(Fonts.HasLetter(OcrB10, U'\u0416'));
    EXPECT_FALSE(Fonts.HasLetter(Tahoma9, U'\u6F22'));
    EXPECT_FALSE(Fonts.HasLetter(Tahoma9, U'\U0010FFFD'));
    EXPECT_TRUE(Fonts.HasLetter(Tahoma9, U'\t')) << "what is not drawn needs none";
}

TEST_F(PrintFontsTest, ATextIsAsLargeAsOnPaper) {
    PdfFile file;
    for (const machine::FontSpec& font : {Tahoma9, OcrB10, machine::FontSpec{"Tahoma", 7, true}}) {
        for (const char* text : {"", "NL12INGB0001234567+", "Zo\xC3\xAB \xE6\xBC\xA2"}) {
            const machine::TextSize told = Fonts.MeasureText(text, font);
            const machine::TextSize printed = file.Canvas.MeasureText(text, font);
            EXPECT_EQ(told.Width, printed.Width) << text;
            EXPECT_EQ(told.Height, printed.Height) << text;
        }
    }
}

TEST_F(PrintFontsTest, InkIsWhereItIsOnPaper) {
    for (const machine::FontSpec& font :
         {machine::FontSpec{"Tahoma", 12, false}, machine::FontSpec{"Tahoma", 12, true}, OcrB10,
          machine::FontSpec{"OCR-B", 10, true}}) {
        for (const char* letter : {"1", "g", "W", "\xC3\x8B"}) {
            ExpectInkAsSeen(letter, font);
        }
    }
}

TEST_F(PrintFontsTest, InkOfALetterThatAnotherFontLendsIsThatOnes) {
    ExpectInkAsSeen("\xD0\x96", OcrB10);
}

TEST_F(PrintFontsTest, WhatIsNotSeenHasNoInk) {
    for (const char32_t letter : {U' ', U'\u00A0', U'\n', U'\x85'}) {
        const machine::InkBox ink = Fonts.InkOf(letter, Tahoma9);
        EXPECT_EQ(ink.Left, 0);
        EXPECT_EQ(ink.Top, 0);
        EXPECT_EQ(ink.Right, 0);
        EXPECT_EQ(ink.Bottom, 0);
    }
}

} // namespace
} // namespace desktop::qt
