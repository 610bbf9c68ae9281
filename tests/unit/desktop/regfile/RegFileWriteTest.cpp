#include <random>
#include <string>

#include <gtest/gtest.h>

#include "unit/desktop/regfile/RegFileTexts.h"

namespace {

using namespace regfiletest;

TEST(RegFileWriteTest, WriteChangesTheDataAlone) {
    const std::string before =
        "REGEDIT4\r\n; kop\r\n\r\n[HKEY_LOCAL_MACHINE\\X]\r\n\"naam\"=\"vreemd\"\r\n\r\n[" + OndorPath +
        "]\r\n@=\"d\"\r\nrommel\r\n  \"NAAM\" = \"";
    const std::string after =
        "\" ; blijft\r\n\"n\"=dword:00000001\r\n\"kapot=\r\n\"h\"=hex:01,\\\r\n  02\r\n\r\n[" + OndorPath +
        "\\Y]\r\n\"naam\"=\"ander\"";
    EXPECT_EQ(Written(before + "oud" + after, "naam", "nieuw"), before + "nieuw" + after);
    EXPECT_EQ(Written(Utf16(before + "oud" + after), "naam", "nieuw € 😀"),
              Utf16(before + "nieuw € 😀" + after));
}

TEST(RegFileWriteTest, WriteKeepsTheEncoding) {
    EXPECT_EQ(Written(Four("\"a\"=\"\"\r\n"), "a", "Zoë €"), Four("\"a\"=\"Zo\xEB \x80\"\r\n"));
    EXPECT_EQ(Written(Five("\"a\"=\"\"\r\n"), "a", "Zoë €"), Five("\"a\"=\"Zoë €\"\r\n"));
    EXPECT_EQ(Written("\xEF\xBB\xBF" + Five("\"a\"=\"\"\r\n"), "a", "Zoë"),
              "\xEF\xBB\xBF" + Five("\"a\"=\"Zoë\"\r\n"));
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"\"\r\n")), "a", "Zoë €"), Utf16(Five("\"a\"=\"Zoë €\"\r\n")));
}

TEST(RegFileWriteTest, WriteReplacesTheEntryInForce) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n[" + OndorPath + "]\r\n\"A\"=\"2\"\r\n"), "a", "3"),
              Five("\"a\"=\"1\"\r\n[" + OndorPath + "]\r\n\"A\"=\"3\"\r\n"));
}

TEST(RegFileWriteTest, WriteReplacesOtherNotations) {
    EXPECT_EQ(Written(Five("\"a\"=dword:00000001\r\n"), "a", "1"), Five("\"a\"=\"1\"\r\n"));
    EXPECT_EQ(Written(Five("\"a\"=hex(1):41,\\\r\n  00,00,00,\r\n\"b\"=\"2\"\r\n"), "a", "1"),
              Five("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
}

TEST(RegFileWriteTest, NewValueStandsBehindTheLastOfItsKey) {
    const std::string tail = "; over de volgende sleutel\r\n\r\n[" + OndorPath + "\\Y]\r\n";
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n\r\n" + tail), "b", "2"),
              Five("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n\r\n" + tail));
    EXPECT_EQ(Written(Five("\r\n" + tail), "b", "2"), Five("\"b\"=\"2\"\r\n\r\n" + tail));
    EXPECT_EQ(Written(Five("\"a\"=hex:01,\\\r\n  02\r\n" + tail), "", "2"),
              Five("\"a\"=hex:01,\\\r\n  02\r\n@=\"2\"\r\n" + tail));
}

TEST(RegFileWriteTest, NewValueAtAnOpenEndOfTheFile) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\""), "b", "2"), Five("\"a\"=\"1\"\r\n\"b\"=\"2\""));
    EXPECT_EQ(Written("REGEDIT4\n[" + OndorPath + "]", "b", "2"),
              "REGEDIT4\n[" + OndorPath + "]\n\"b\"=\"2\"");
    // The odd last byte of a file that was cut stays where it is.
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"1\"")) + "x", "b", "2"),
              Utf16(Five("\"a\"=\"1\"\r\n\"b\"=\"2\"")) + "x");
}

TEST(RegFileWriteTest, ValueWrittenAfterItsDeletionIsInForce) {
    const std::string bytes = Written(Five("\"a\"=\"1\"\r\n\"a\"=-\r\n"), "a", "2");
    EXPECT_EQ(Text(RegFile(bytes), "a"), "2");
    const std::string again =
        Written(Five("\"a\"=\"1\"\r\n[-" + OndorPath + "]\r\n[" + OndorPath + "]\r\n"), "a", "2");
    EXPECT_EQ(Text(RegFile(again), "a"), "2");
}

TEST(RegFileWriteTest, KeyThatOnlyOthersImplyGetsASectionOfItsOwn) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n"), "b", "2", "HKEY_CURRENT_USER\\\\Software\\"),
              Five("\"a\"=\"1\"\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n\"b\"=\"2\"\r\n"));
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"1\"")), "b", "2", "HKEY_CURRENT_USER\\Software"),
              Utf16(Five("\"a\"=\"1\"\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n\"b\"=\"2\"\r\n")));
}

TEST(RegFileWriteTest, WriteIntoAMissingKeyIsRefused) {
    EXPECT_EQ(Written(Five(""), "a", "1", OndorPath + "\\Nieuw"), "(refused)");
    EXPECT_EQ(Written(Five("[-" + OndorPath + "]\r\n"), "a", "1"), "(refused)");
}

TEST(RegFileWriteTest, NameThatALineCannotHoldIsRefused) {
    EXPECT_EQ(Written(Five(""), "a\nb", "1"), "(refused)");
    EXPECT_EQ(Written(Five(""), std::string(16384, 'a'), "1"), "(refused)");
    const std::string longest(16383, '"');
    EXPECT_EQ(Text(RegFile(Written(Five(""), longest, "1")), longest), "1");
}

TEST(RegFileWriteTest, EveryTextReadsBackAsItWasWritten) {
    const std::string texts[] = {"",
                                 "\"",
                                 "\\",
                                 "a\\\"b\\",
                                 "a;b",
                                 " ",
                                 "a\r\nb\n",
                                 "\t",
                                 "\x7F",
                                 "A\0B"s,
                                 "\0"s,
                                 "=-[x]",
                                 "€ Zoë",
                                 "\u0081",
                                 "x\r\n[-HKEY_CURRENT_USER]",
                                 std::string(100, '\n')};
    for (const std::string& utf8 : texts) {
        for (const std::string& bytes :
             {Four("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"), Five("\"a\"=\"1\"\n\"b\"=\"2\"\n"),
              Utf16(Five("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"))}) {
            for (const char* const name : {"a", "c", ""}) {
                const RegFile file(Written(bytes, name, utf8));
                EXPECT_EQ(Text(file, name), utf8);
                EXPECT_EQ(Text(file, "b"), "2");
            }
        }
    }
}

TEST(RegFileWriteTest, ControlCharactersGoOutInHexadecimal) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n"), "a", "A\n"), Five("\"a\"=hex(1):41,00,0a,00,00,00\r\n"));
    EXPECT_EQ(Written(Four("\"a\"=\"1\"\r\n"), "a", "€\n"), Four("\"a\"=hex(1):80,0a,00\r\n"));
    EXPECT_EQ(Written(Four("\"a\"=\"1\"\n"), "a", std::string(20, '\t')),
              Four("\"a\"=hex(1):09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,\\\r\n  00\n"));
}

TEST(RegFileWriteTest, OtherTypesAreWrittenByTheirNumber) {
    const RegValue number{4, "\x1F\0\0\0"s};
    const std::optional<std::string> bytes =
        RegFile(Five("\"a\"=\"1\"\r\n")).WithValue(OndorPath, "a", number);
    EXPECT_EQ(bytes, Five("\"a\"=hex(4):1f,00,00,00\r\n"));
    const std::optional<RegValue> read = RegFile(*bytes).Find(OndorPath, "a");
    EXPECT_EQ(read->Type, 4U);
    EXPECT_EQ(read->Data, number.Data);
    // Text without its closing NUL stays without.
    const std::optional<std::string> open =
        RegFile(Five("\"a\"=\"1\"\r\n")).WithValue(OndorPath, "a", {ValueText, "A"});
    EXPECT_EQ(open, Five("\"a\"=hex(1):41,00\r\n"));
}

} // namespace
