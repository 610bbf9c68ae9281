#include "composition/KortTekst.h"

#include <string>

#include "CompositionTest.h"

namespace composition {

class KortTekstTest : public CompositionTest {
  protected:
    KortTekstTest() { host.printer.SetFontSize(10); } // 100 twips to the character
    std::string Short(const std::string& tekst, std::int32_t x1, std::int32_t x2) {
        return std::string(KortTekst(host.printer, tekst, x1, x2));
    }
};

TEST_F(KortTekstTest, TextThatFitsStays) {
    EXPECT_EQ(Short("abcd", 0, 400), "abcd");
    EXPECT_EQ(Short("", 0, 0), "");
}

TEST_F(KortTekstTest, CutsWhatDoesNotFit) {
    EXPECT_EQ(Short("abcdefgh", 0, 799), "abcdefg");
    EXPECT_EQ(Short("abcdefgh", 0, 400), "abcd");
    EXPECT_EQ(Short("abcdefgh", 100, 450), "abc");
    EXPECT_EQ(Short("abcdefgh", 0, 300), "abc");
}

TEST_F(KortTekstTest, LeavesTwoCharacters) {
    EXPECT_EQ(Short("abcdefgh", 0, 0), "ab");
    EXPECT_EQ(Short("abc", 500, 0), "ab");
    EXPECT_EQ(Short("ab", 0, 0), "ab");
    EXPECT_EQ(Short("a", 0, 0), "a");
}

TEST_F(KortTekstTest, CutsBetweenCharacters) {
    EXPECT_EQ(Short("\u00eb\u00ef\u00fc\u00e9", 0, 300), "\u00eb\u00ef\u00fc");
    EXPECT_EQ(Short("\u00eb\u00ef\u00fc\u00e9", 0, 0), "\u00eb\u00ef");
}

TEST_F(KortTekstTest, TheSamePlaceAsCuttingOneByOne) {
    const std::string text = "Stichting tot Behoud van Proeven en Voorbeelden";
    for (std::int32_t room = -50; room < 5000; room += 37) {
        std::string expected = text;
        while (expected.size() >= 3 && host.printer.TextWidth(expected) > room) {
            expected.pop_back();
        }
        EXPECT_EQ(Short(text, 0, room), expected) << room;
    }
}

TEST_F(KortTekstTest, EndsSoonOnAnyText) {
    const std::string text(1000000, 'x');
    EXPECT_EQ(Short(text, 0, 500), "xxxxx");
    EXPECT_LT(printer.canvas.measured, 50);
}

} // namespace composition
