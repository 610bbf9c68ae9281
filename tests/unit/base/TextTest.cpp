#include "base/Text.h"

#include <string>

#include <gtest/gtest.h>

namespace base::text {
namespace {

using namespace std::string_view_literals;

TEST(TextLengthTest, CountsCharacters) {
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("Dhr. A. Voorbeeld"), 17U);
    EXPECT_EQ(Length("café"), 4U);
    EXPECT_EQ(Length("€ 12"), 4U);
    EXPECT_EQ(Length("日本語"), 3U);
    EXPECT_EQ(Length("a😀b"), 3U);
    EXPECT_EQ(Length("a\0b"sv), 3U);
}

TEST(TextLengthTest, CountsABadByteAsOneCharacter) {
    EXPECT_EQ(Length("\xFF"), 1U);
    EXPECT_EQ(Length("\xE2\x82"), 2U);         // cut off
    EXPECT_EQ(Length("\xC0\x80"), 2U);         // longer than need be
    EXPECT_EQ(Length("\xED\xA0\x80"), 3U);     // half of a surrogate pair
    EXPECT_EQ(Length("\xF4\x90\x80\x80"), 4U); // beyond the last character
    EXPECT_EQ(Length("\xC3"
                     "a"),
              2U);
}

TEST(TextCutsTest, CountCharacters) {
    EXPECT_EQ(Left("één twee", 3), "één");
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("abc", 0), "");
    EXPECT_EQ(Right("twee één", 3), "één");
    EXPECT_EQ(Right("abc", 9), "abc");
    EXPECT_EQ(Right("abc", 0), "");
    EXPECT_EQ(Mid("één twee", 5), "twee");
    EXPECT_EQ(Mid("één twee", 2, 2), "én");
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 40, 2), "");
    EXPECT_EQ(Mid("abcdefghijkl", 3, 9), "cdefghijk");
}

TEST(TextCutsTest, KeepBadBytesApart) {
    EXPECT_EQ(Left("\xFF\xFE"
                   "a",
                   2),
              "\xFF\xFE");
    EXPECT_EQ(Right("a\xE2\x82", 1), "\x82");
    EXPECT_EQ(Mid("\x82\xC3\xA9z", 2, 1), "é");
}

TEST(TextTrimTest, TakesBlanksOffBothEnds) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\ta "), "\ta");
    EXPECT_EQ(Trim("\u00A0a"), "\u00A0a");
    EXPECT_EQ(Trim(" \0 "sv), "\0"sv);
}

TEST(TextCaseTest, FollowsTheCodePage) {
    EXPECT_EQ(Upper("nl13abna"), "NL13ABNA");
    EXPECT_EQ(Upper("éàüøÿšœž"), "ÉÀÜØŸŠŒŽ");
    EXPECT_EQ(Lower("ÉÀÜØŸŠŒŽ"), "éàüøÿšœž");
    EXPECT_EQ(Lower("ABC×Z"), "abc×z");
    EXPECT_EQ(Upper("÷ß€µ"), "÷ß€µ");
    EXPECT_EQ(Upper("日ж"), "日ж");
    EXPECT_EQ(Upper("a\xFF"
                    "b\0c"sv),
              "A\xFF"
              "B\0C"sv);
}

TEST(TextDecodeTest, GivesCodeAndWidth) {
    const auto expect = [](std::string_view text, char32_t code, std::size_t bytes) {
        const Decoded first = DecodeFirst(text);
        EXPECT_EQ(first.Code, code) << text;
        EXPECT_EQ(first.Bytes, bytes) << text;
    };
    expect("", 0, 0);
    expect("\0"sv, 0, 1);
    expect("A", U'A', 1);
    expect("éa", U'é', 2);
    expect("€", U'€', 3);
    expect("😀", U'😀', 4);
    expect("\x80", 0xFFFD, 1);
    expect("\xF8\x88\x80\x80\x80", 0xFFFD, 1);
}

TEST(TextEncodeTest, IsTheInverse) {
    for (const char32_t code : {U'\0', U'A', U'\x7F', U'\x80', U'é', U'\x7FF', U'\x800', U'€', U'\xFFFF',
                                U'\x10000', U'\x10FFFF'}) {
        const std::string text = Encode(code);
        EXPECT_EQ(DecodeFirst(text).Code, code);
        EXPECT_EQ(DecodeFirst(text).Bytes, text.size());
    }
    EXPECT_EQ(Encode(0xD800), "\uFFFD");
    EXPECT_EQ(Encode(0x110000), "\uFFFD");
}

TEST(CodePageTest, CarriesEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
    }
    EXPECT_EQ(ToCodePage(FromCodePage(bytes)), bytes);
    EXPECT_EQ(FromCodePage("\x80 caf\xE9"), "€ café");
}

TEST(CodePageTest, PutsAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(ToCodePage("日本"), "??");
    EXPECT_EQ(ToCodePage("a😀ж"), "a??");
    EXPECT_EQ(ToCodePage("\xFF"), "?");
    EXPECT_EQ(ToCodePage("\u0085"), "?"); // a control character whose byte means something else there
}

TEST(LongTextTest, IsHandledWhole) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text.append(i % 3 == 0 ? "é" : i % 3 == 1 ? "x" : "\xFF");
    }
    EXPECT_EQ(Length(text), 100000U);
    EXPECT_EQ(Length(Left(text, 50000)), 50000U);
    EXPECT_EQ(Length(Right(text, 4)), 4U);
    EXPECT_EQ(Right(text, 1), "é");
    EXPECT_EQ(ToCodePage(text).size(), 100000U);
    EXPECT_EQ(Lower(Upper(text)), text);
}

} // namespace
} // namespace base::text
