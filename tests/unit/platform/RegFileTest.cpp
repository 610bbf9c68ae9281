#include "platform/RegFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>

namespace {

using platform::RegFile;
using platform::RegValue;
using namespace std::string_literals;

constexpr std::uint32_t ValueText = 1;
const std::string OndorPath = "HKEY_CURRENT_USER\\Software\\Ondor";

std::string Utf16(const std::string& utf8) {
    return "\xFF\xFE" + platform::regfile::ToUtf16(utf8);
}

std::string Five(const std::string& lines) {
    return "Windows Registry Editor Version 5.00\r\n\r\n[" + OndorPath + "]\r\n" + lines;
}

std::string Four(const std::string& lines) {
    return "REGEDIT4\r\n\r\n[" + OndorPath + "]\r\n" + lines;
}

/// The text without its closing NUL; "(none)" if there is no such value, "(other)" if it is no text.
std::string Text(const RegFile& file, const std::string& name, const std::string& key = OndorPath) {
    const std::optional<RegValue> value = file.Find(key, name);
    if (!value) {
        return "(none)";
    }
    if (value->type != ValueText || !value->data.ends_with('\0')) {
        return "(other)";
    }
    return value->data.substr(0, value->data.size() - 1);
}

RegValue TextValue(const std::string& utf8) {
    return {ValueText, utf8 + '\0'};
}

std::string Written(const std::string& bytes, const std::string& name, const std::string& utf8,
                    const std::string& key = OndorPath) {
    return RegFile(bytes).WithValue(key, name, TextValue(utf8)).value_or("(refused)");
}

TEST(RegFileTest, ReadsAllEncodings) {
    const std::string lines = "\"naam\"=\"Zoë €\"\r\n\"größe\"=\"😀\"\r\n";
    for (const std::string& bytes : {Utf16(Five(lines)), Five(lines), "\xEF\xBB\xBF" + Five(lines)}) {
        const RegFile file(bytes);
        EXPECT_EQ(Text(file, "naam"), "Zoë €");
        EXPECT_EQ(Text(file, "GRÖßE"), "😀");
        EXPECT_EQ(file.Bytes(), bytes);
    }
    EXPECT_EQ(Text(RegFile(Four("\"na\xE4m\"=\"Zo\xEB \x80\"\r\n")), "NAÄM"), "Zoë €");
}

TEST(RegFileTest, ByteThatIsNoUtf8IsReadInTheCodePage) {
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"Zo\xEB, Zoë\"")), "a"), "Zoë, Zoë");
}

TEST(RegFileTest, QuotesAndEscapes) {
    const RegFile file(Five(R"("a"="C:\\map\\\"naam\""
"b\\c\"d"="x"
"e"=""
"f"="=;[]@"
"g"="slot\\"
)"));
    EXPECT_EQ(Text(file, "a"), "C:\\map\\\"naam\"");
    EXPECT_EQ(Text(file, "b\\c\"d"), "x");
    EXPECT_EQ(Text(file, "e"), "");
    EXPECT_EQ(Text(file, "f"), "=;[]@");
    EXPECT_EQ(Text(file, "g"), "slot\\");
}

TEST(RegFileTest, HexadecimalTextIsUtf16InVersionFive) {
    const RegFile file(
        Five("\"a\"=hex(1):41,00,ac,20,00,00\r\n\"b\"=hex(1):41,\\\r\n  00,0D,00,\\\r\n  0a,00,00,00\r\n"
             "\"c\"=hex(1):\r\n\"d\"=hex(1):41,00\r\n\"e\"=\"na\"\r\n"));
    EXPECT_EQ(Text(file, "a"), "A€");
    EXPECT_EQ(Text(file, "b"), "A\r\n");
    EXPECT_EQ(file.Find(OndorPath, "c")->data, "");
    EXPECT_EQ(file.Find(OndorPath, "d")->data, "A"); // without a closing NUL, as it was stored
    EXPECT_EQ(Text(file, "e"), "na");
}

TEST(RegFileTest, HexadecimalTextIsTheCodePageBeforeVersionFive) {
    EXPECT_EQ(Text(RegFile(Four("\"a\"=hex(1):41,80,00\r\n")), "a"), "A€");
}

TEST(RegFileTest, HexadecimalTextKeepsItsNulsAndDropsHalfACharacter) {
    const RegFile file(Five("\"a\"=hex(1):41,00,00,00,42,00,00,00\n\"b\"=hex(1):41,00,00,00,42\n"
                            "\"c\"=hex(1):00,d8,41,00,00,00\n"));
    EXPECT_EQ(Text(file, "a"), "A\0B"s);
    EXPECT_EQ(Text(file, "b"), "A");
    EXPECT_EQ(Text(file, "c"), "\uFFFDA");
}

TEST(RegFileTest, OtherTypesHaveTheirBytes) {
    const RegFile file(
        Five("\"bin\"=hex:01,02,ff\n\"n\"=dword:0000001f\n\"q\"=hex(b):01,00,00,00,00,00,00,00\n"
             "\"e\"=hex(2):25,00,41,00,25,00,00,00\n\"m\"=hex(7):41,00,00,00,00,00\n"));
    EXPECT_EQ(file.Find(OndorPath, "bin")->type, 3U);
    EXPECT_EQ(file.Find(OndorPath, "bin")->data, "\x01\x02\xFF");
    EXPECT_EQ(file.Find(OndorPath, "n")->type, 4U);
    EXPECT_EQ(file.Find(OndorPath, "n")->data, "\x1F\0\0\0"s);
    EXPECT_EQ(file.Find(OndorPath, "q")->type, 11U);
    EXPECT_EQ(file.Find(OndorPath, "e")->type, 2U);
    EXPECT_EQ(file.Find(OndorPath, "e")->data, "%A%\0"s);
    EXPECT_EQ(file.Find(OndorPath, "m")->type, 7U);
    EXPECT_EQ(file.Find(OndorPath, "m")->data, "A\0\0"s);
}

TEST(RegFileTest, CommentsAndBlanksBetweenTheMarks) {
    const RegFile file(
        Five("; een toelichting\r\n  \"a\" = \"1\" ; waarom\r\n\t\"b\"=\"2\"  \r\n;\"a\"=\"9\"\r\n"
             "\"n\"=dword:5;x\r\n\"h\"=hex:01, 02 ; x\r\n\"c\"=\"a;b\"\r\n"));
    EXPECT_EQ(Text(file, "a"), "1");
    EXPECT_EQ(Text(file, "b"), "2");
    EXPECT_EQ(Text(file, "c"), "a;b");
    EXPECT_EQ(file.Find(OndorPath, "n")->data, "\x05\0\0\0"s);
    EXPECT_EQ(file.Find(OndorPath, "h")->data, "\x01\x02");
}

TEST(RegFileTest, DefaultValue) {
    EXPECT_EQ(Text(RegFile(Five("@=\"standaard\"")), ""), "standaard");
    EXPECT_EQ(Text(RegFile(Five("\"\"=\"standaard\"")), ""), "standaard");
}

TEST(RegFileTest, NamesMakeNoDifferenceOfCapitals) {
    const RegFile file(Five("\"GMUVerkeer\"=\"1\"\r\n"));
    EXPECT_EQ(Text(file, "gmuverkeer", "hkey_current_user\\SOFTWARE\\ondor"), "1");
}

TEST(RegFileTest, LaterEntriesOverrideEarlierOnes) {
    const RegFile file(
        Five("\"a\"=\"1\"\r\n\"A\"=\"2\"\r\n\"b\"=\"1\"\r\n[HKEY_CURRENT_USER\\Other]\r\n\"a\"=\"9\"\r\n"
             "[HKEY_CURRENT_USER\\SOFTWARE\\ONDOR]\r\n\"b\"=dword:1\r\n\"c\"=\"3\"\r\n"));
    EXPECT_EQ(Text(file, "a"), "2");
    EXPECT_EQ(Text(file, "b"), "(other)");
    EXPECT_EQ(Text(file, "c"), "3");
}

TEST(RegFileTest, DeletedValues) {
    const RegFile file(
        Five("\"a\"=\"1\"\r\n\"b\"=\"1\"\r\n\"A\"=-\r\n\"b\"= - ; weg\r\n\"b\"=\"2\"\r\n\"c\"=-\r\n"));
    EXPECT_EQ(Text(file, "a"), "(none)");
    EXPECT_EQ(Text(file, "b"), "2");
    EXPECT_EQ(Text(file, "c"), "(none)");
}

TEST(RegFileTest, DeletedKeysGoWithAllBelow) {
    const std::string head =
        Five("\"a\"=\"1\"\r\n[" + OndorPath + "\\Tarvik\\X]\r\n\"a\"=\"2\"\r\n[" + OndorPath + "s]\r\n");
    const RegFile file(head + "[-HKEY_CURRENT_USER\\software\\ONDOR]\r\n\"a\"=\"3\"\r\n");
    EXPECT_FALSE(file.HasKey(OndorPath));
    EXPECT_FALSE(file.HasKey(OndorPath + "\\Tarvik\\X"));
    EXPECT_TRUE(file.HasKey(OndorPath + "s"));
    EXPECT_EQ(Text(file, "a", OndorPath + "s"), "(none)"); // a line below a deleted key belongs to none

    const RegFile again(head + "[-" + OndorPath + "]\r\n[" + OndorPath + "]\r\n\"b\"=\"4\"\r\n");
    EXPECT_EQ(Text(again, "a"), "(none)");
    EXPECT_EQ(Text(again, "b"), "4");

    const RegFile untouched(head + "[-HKEY_CURRENT_USER]\r\n[-HKEY_CURRENT_USER\\Software\\Onbekend\\X]\r\n");
    EXPECT_EQ(Text(untouched, "a"), "1");
}

TEST(RegFileTest, KeysAboveExistAsWell) {
    const RegFile file(Five(""));
    EXPECT_TRUE(file.HasKey(OndorPath));
    EXPECT_TRUE(file.HasKey("HKEY_CURRENT_USER\\Software"));
    EXPECT_TRUE(file.HasKey("HKEY_CURRENT_USER\\Software\\Ondor\\"));
    EXPECT_FALSE(file.HasKey("HKEY_CURRENT_USER\\Soft"));
    EXPECT_FALSE(file.HasKey("HKEY_LOCAL_MACHINE\\Software"));
    EXPECT_FALSE(file.HasKey(""));
}

TEST(RegFileTest, RootsGoByTheirFullNameAlone) {
    const RegFile file("REGEDIT4\n\n[HKCU\\Software\\Ondor]\n\"a\"=\"1\"\n");
    EXPECT_FALSE(file.HasKey(OndorPath));
}

TEST(RegFileTest, PathWithBrackets) {
    const RegFile file("REGEDIT4\n[" + OndorPath + "\\a]b[c]\n\"a\"=\"1\"\n");
    EXPECT_EQ(Text(file, "a", OndorPath + "\\a]b[c"), "1");
}

TEST(RegFileTest, LineEndsOfEitherKindAndAMissingLastOne) {
    std::string lines = "\"a\"=\"1\"\r\n\"b\"=\"2\"";
    for (const std::string& bytes :
         {Five(lines), Utf16(Five(lines)), "REGEDIT4\n[" + OndorPath + "]\n\"a\"=\"1\"\n\"b\"=\"2\"",
          "REGEDIT4\n\n\n[" + OndorPath + "]\r\n\"a\"=\"1\"\n\r\n\"b\"=\"2\"\r"}) {
        EXPECT_EQ(Text(RegFile(bytes), "a"), "1");
        EXPECT_EQ(Text(RegFile(bytes), "b"), "2");
    }
}

TEST(RegFileTest, DamagedLinesAreSkippedAndTheirNeighboursRead) {
    const char* const damaged[] = {
        R"("x="1")",
        R"("x"="1)",
        R"("x"="1\")",
        R"("x")",
        R"("x"=)",
        R"("x"=1)",
        R"("x"="1"2)",
        R"("x"=dword:)",
        R"("x"=dword:1g)",
        R"("x"=dword:123456789)",
        R"("x"=hex:0g)",
        R"("x"=hex:01,,02)",
        R"("x"=hex:,01)",
        R"("x"=hex:01 02)",
        R"("x"=hex(:01)",
        R"("x"=hex():01)",
        R"("x"=hex(1:01)",
        R"("x"=hex:01,\)",
        R"("x"=hex:01,\ 02)",
        R"("x"=hex:123)",
        R"(x="1")",
        R"(@)",
        R"(@@="1")",
        R"("x"=-1)",
        "\"",
        "\x01\x02\xFF",
        "=",
        R"("x"="1" [)",
    };
    for (const char* const line : damaged) {
        for (const std::string& bytes : {Five("\"a\"=\"1\"\r\n"s + line + "\r\n\"b\"=\"2\"\r\n"),
                                         Five("\"a\"=\"1\"\n"s + line + "\n\"b\"=\"2\"")}) {
            const RegFile file(bytes);
            EXPECT_EQ(Text(file, "a"), "1") << line;
            EXPECT_EQ(Text(file, "b"), "2") << line;
            EXPECT_FALSE(file.Find(OndorPath, "x")) << line;
        }
    }
}

TEST(RegFileTest, DamagedLineDoesNotOverride) {
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"1\"\r\n\"a\"=\"2\r\n\"a\"=hex:zz\r\n")), "a"), "1");
}

TEST(RegFileTest, ListThatBreaksOffLeavesTheNextKeyReadable) {
    const RegFile file(Five("\"x\"=hex(1):41,00,\\\r\n[" + OndorPath + "\\B]\r\n\"b\"=\"2\"\r\n"));
    EXPECT_FALSE(file.Find(OndorPath, "x"));
    EXPECT_EQ(Text(file, "b", OndorPath + "\\B"), "2");
}

TEST(RegFileTest, ValuesBelowADamagedKeyBelongToNone) {
    for (const char* const line : {"[HKEY_CURRENT_USER\\Other", "[]", "[-]", "[\\]"}) {
        const RegFile file(
            Five("\"a\"=\"1\"\r\n"s + line + "\r\n\"a\"=\"2\"\r\n[" + OndorPath + "]\r\n\"b\"=\"3\"\r\n"));
        EXPECT_EQ(Text(file, "a"), "1") << line;
        EXPECT_EQ(Text(file, "b"), "3") << line;
    }
}

TEST(RegFileTest, FileWithoutHeaderReadsAsVersionFive) {
    EXPECT_EQ(Text(RegFile("[" + OndorPath + "]\n\"a\"=hex(1):41,00,00,00\n"), "a"), "A");
}

TEST(RegFileTest, EmptyFiles) {
    for (const std::string& bytes : {""s, "\xFF\xFE"s, "\xEF\xBB\xBF"s, "\xFF"s, "\xFF\xFE\x5B"s, "\r\n"s,
                                     "["s, "\""s, "REGEDIT4"s, " "s}) {
        EXPECT_FALSE(RegFile(bytes).HasKey(OndorPath));
        EXPECT_EQ(Written(bytes, "a", "1"), "(refused)");
    }
}

TEST(RegFileTest, WriteChangesTheDataAlone) {
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

TEST(RegFileTest, WriteKeepsTheEncoding) {
    EXPECT_EQ(Written(Four("\"a\"=\"\"\r\n"), "a", "Zoë €"), Four("\"a\"=\"Zo\xEB \x80\"\r\n"));
    EXPECT_EQ(Written(Five("\"a\"=\"\"\r\n"), "a", "Zoë €"), Five("\"a\"=\"Zoë €\"\r\n"));
    EXPECT_EQ(Written("\xEF\xBB\xBF" + Five("\"a\"=\"\"\r\n"), "a", "Zoë"),
              "\xEF\xBB\xBF" + Five("\"a\"=\"Zoë\"\r\n"));
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"\"\r\n")), "a", "Zoë €"), Utf16(Five("\"a\"=\"Zoë €\"\r\n")));
}

TEST(RegFileTest, WriteReplacesTheEntryInForce) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n[" + OndorPath + "]\r\n\"A\"=\"2\"\r\n"), "a", "3"),
              Five("\"a\"=\"1\"\r\n[" + OndorPath + "]\r\n\"A\"=\"3\"\r\n"));
}

TEST(RegFileTest, WriteReplacesOtherNotations) {
    EXPECT_EQ(Written(Five("\"a\"=dword:00000001\r\n"), "a", "1"), Five("\"a\"=\"1\"\r\n"));
    EXPECT_EQ(Written(Five("\"a\"=hex(1):41,\\\r\n  00,00,00,\r\n\"b\"=\"2\"\r\n"), "a", "1"),
              Five("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
}

TEST(RegFileTest, NewValueStandsBehindTheLastOfItsKey) {
    const std::string tail = "; over de volgende sleutel\r\n\r\n[" + OndorPath + "\\Y]\r\n";
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n\r\n" + tail), "b", "2"),
              Five("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n\r\n" + tail));
    EXPECT_EQ(Written(Five("\r\n" + tail), "b", "2"), Five("\"b\"=\"2\"\r\n\r\n" + tail));
    EXPECT_EQ(Written(Five("\"a\"=hex:01,\\\r\n  02\r\n" + tail), "", "2"),
              Five("\"a\"=hex:01,\\\r\n  02\r\n@=\"2\"\r\n" + tail));
}

TEST(RegFileTest, NewValueAtAnOpenEndOfTheFile) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\""), "b", "2"), Five("\"a\"=\"1\"\r\n\"b\"=\"2\""));
    EXPECT_EQ(Written("REGEDIT4\n[" + OndorPath + "]", "b", "2"),
              "REGEDIT4\n[" + OndorPath + "]\n\"b\"=\"2\"");
    // The odd last byte of a file that was cut stays where it is.
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"1\"")) + "x", "b", "2"),
              Utf16(Five("\"a\"=\"1\"\r\n\"b\"=\"2\"")) + "x");
}

TEST(RegFileTest, ValueWrittenAfterItsDeletionIsInForce) {
    const std::string bytes = Written(Five("\"a\"=\"1\"\r\n\"a\"=-\r\n"), "a", "2");
    EXPECT_EQ(Text(RegFile(bytes), "a"), "2");
    const std::string again =
        Written(Five("\"a\"=\"1\"\r\n[-" + OndorPath + "]\r\n[" + OndorPath + "]\r\n"), "a", "2");
    EXPECT_EQ(Text(RegFile(again), "a"), "2");
}

TEST(RegFileTest, KeyThatOnlyOthersImplyGetsASectionOfItsOwn) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n"), "b", "2", "HKEY_CURRENT_USER\\\\Software\\"),
              Five("\"a\"=\"1\"\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n\"b\"=\"2\"\r\n"));
    EXPECT_EQ(Written(Utf16(Five("\"a\"=\"1\"")), "b", "2", "HKEY_CURRENT_USER\\Software"),
              Utf16(Five("\"a\"=\"1\"\r\n\r\n[HKEY_CURRENT_USER\\Software]\r\n\"b\"=\"2\"\r\n")));
}

TEST(RegFileTest, WriteIntoAMissingKeyIsRefused) {
    EXPECT_EQ(Written(Five(""), "a", "1", OndorPath + "\\Nieuw"), "(refused)");
    EXPECT_EQ(Written(Five("[-" + OndorPath + "]\r\n"), "a", "1"), "(refused)");
}

TEST(RegFileTest, NameThatALineCannotHoldIsRefused) {
    EXPECT_EQ(Written(Five(""), "a\nb", "1"), "(refused)");
    EXPECT_EQ(Written(Five(""), std::string(16384, 'a'), "1"), "(refused)");
    const std::string longest(16383, '"');
    EXPECT_EQ(Text(RegFile(Written(Five(""), longest, "1")), longest), "1");
}

TEST(RegFileTest, EveryTextReadsBackAsItWasWritten) {
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

TEST(RegFileTest, ControlCharactersGoOutInHexadecimal) {
    EXPECT_EQ(Written(Five("\"a\"=\"1\"\r\n"), "a", "A\n"), Five("\"a\"=hex(1):41,00,0a,00,00,00\r\n"));
    EXPECT_EQ(Written(Four("\"a\"=\"1\"\r\n"), "a", "€\n"), Four("\"a\"=hex(1):80,0a,00\r\n"));
    EXPECT_EQ(Written(Four("\"a\"=\"1\"\n"), "a", std::string(20, '\t')),
              Four("\"a\"=hex(1):09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,09,\\\r\n  00\n"));
}

TEST(RegFileTest, OtherTypesAreWrittenByTheirNumber) {
    const RegValue number{4, "\x1F\0\0\0"s};
    const std::optional<std::string> bytes =
        RegFile(Five("\"a\"=\"1\"\r\n")).WithValue(OndorPath, "a", number);
    EXPECT_EQ(bytes, Five("\"a\"=hex(4):1f,00,00,00\r\n"));
    const std::optional<RegValue> read = RegFile(*bytes).Find(OndorPath, "a");
    EXPECT_EQ(read->type, 4U);
    EXPECT_EQ(read->data, number.data);
    // Text without its closing NUL stays without.
    const std::optional<std::string> open =
        RegFile(Five("\"a\"=\"1\"\r\n")).WithValue(OndorPath, "a", {ValueText, "A"});
    EXPECT_EQ(open, Five("\"a\"=hex(1):41,00\r\n"));
}

TEST(RegFileTest, VeryDeepAndVeryLongKeysAreNoKeys) {
    std::string deep = "HKEY_CURRENT_USER";
    for (int i = 0; i < 600; ++i) {
        deep += "\\a";
    }
    const std::string wide = "HKEY_CURRENT_USER\\" + std::string(40'000, 'a');
    const RegFile file(
        Five("\"a\"=\"1\"\r\n[" + deep + "]\r\n\"a\"=\"2\"\r\n[" + wide + "]\r\n\"a\"=\"3\"\r\n"));
    EXPECT_FALSE(file.HasKey(deep));
    EXPECT_FALSE(file.HasKey(wide));
    EXPECT_EQ(Text(file, "a"), "1");
}

// Large files: each of these would stand still for minutes if reading took more than linear time. What costs
// a sanitized build much for each byte makes do with a part of the size.

constexpr std::size_t Large = 50U << 20U;

std::string Repeated(const std::string& piece, std::size_t bytes) {
    std::string result;
    result.reserve(bytes + piece.size());
    while (result.size() < bytes) {
        result += piece;
    }
    return result;
}

TEST(RegFileTest, LargeFileOfForeignLines) {
    const std::string lines =
        Repeated(std::string(5000, 'x') + "\r\n; " + std::string(5000, 'y') + "\r\n", Large);
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"1\"\r\n" + lines + "\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileTest, LargeFileOfForeignValues) {
    const std::string lines = Repeated("\"x\"=\"" + std::string(20'000, 'x') + "\"\r\n", Large / 5);
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"1\"\r\n" + lines + "\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileTest, LargeLineOfText) {
    const std::string value(Large, 'x');
    const RegFile file(Five("\"a\"=\"" + value + "\"\r\n\"b\"=\"2\"\r\n"));
    EXPECT_EQ(file.Find(OndorPath, "a")->data.size(), value.size() + 1);
    EXPECT_EQ(Text(file, "b"), "2");
}

TEST(RegFileTest, LargeLinesThatNeverClose) {
    for (const char* const start : {"\"", "\"a\"=\"", "[", "[-", "@"}) {
        const RegFile file(
            Five(start + std::string(Large / 10, 'x') + "\r\n[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n"));
        EXPECT_EQ(Text(file, "b"), "2");
    }
}

TEST(RegFileTest, ManyDamagedLinesWithoutALineOfRest) {
    for (const char* const piece :
         {"[", "\"", "\"\"=hex:00,\\\r\n", "\\", "[a\r\n", "[-\r\n", "\r", "\"\\", "\"\\\"\\\\"}) {
        const RegFile file(Five(Repeated(piece, 200'000)) + "\r\n[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n");
        EXPECT_EQ(Text(file, "b"), "2");
    }
}

TEST(RegFileTest, ManyKeysMadeAndTakenAway) {
    std::string lines;
    for (int i = 0; i < 1000; ++i) {
        lines += "[" + OndorPath + "\\K\\" + std::to_string(i) + "]\r\n[-" + OndorPath + "\\K\\" +
                 std::to_string(i / 2) + "]\r\n";
    }
    EXPECT_EQ(Text(RegFile(Five(lines + "[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileTest, LargeHexadecimalList) {
    const std::string list = Repeated("41,00,42,00,43,00,44,00,45,00,46,00,\\\r\n  ", Large / 50);
    const RegFile file(Five("\"a\"=hex(1):" + list + "00,00\r\n\"b\"=\"2\"\r\n"));
    EXPECT_TRUE(file.Find(OndorPath, "a")->data.starts_with("ABCDEF"));
    EXPECT_EQ(Text(file, "b"), "2");
}

TEST(RegFileTest, LargeFileInUtf16) {
    std::string bytes = Utf16(Five("\"a\"=\"1\"\r\n;"));
    bytes.resize(Large / 5, 'x');
    EXPECT_EQ(Text(RegFile(bytes + platform::regfile::ToUtf16("\r\n\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileTest, RandomBytesAreReadWithoutHarm) {
    std::mt19937 random(20260101);
    const std::string marks = "[]\"\\=-@;:,()\r\n hexdword01";
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 3000, '\0');
        for (char& c : bytes) {
            c = round % 2 == 0 ? static_cast<char>(random() & 0xFFU) : marks[random() % marks.size()];
        }
        for (const std::string& head : {""s, "\xFF\xFE"s, Five(""), Four(""), Utf16(Five(""))}) {
            const RegFile file(head + bytes);
            EXPECT_EQ(file.Bytes(), head + bytes);
            if (file.HasKey(OndorPath)) {
                const std::string written = Written(head + bytes, "naam", "waarde");
                EXPECT_EQ(Text(RegFile(written), "naam"), "waarde");
            }
        }
    }
}

TEST(RegFileTest, LargeFileOfRandomBytes) {
    std::mt19937 random(7);
    std::string block(100'003, '\0');
    for (char& c : block) {
        c = static_cast<char>(random() & 0xFFU);
    }
    EXPECT_FALSE(RegFile(Repeated(block, Large)).HasKey(OndorPath));
}

} // namespace
