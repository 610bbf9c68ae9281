#include <string>

#include <gtest/gtest.h>

#include "unit/desktop/regfile/RegFileTexts.h"

namespace {

using namespace regfiletest;

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
    EXPECT_EQ(file.Find(OndorPath, "c")->Data, "");
    EXPECT_EQ(file.Find(OndorPath, "d")->Data, "A"); // without a closing NUL, as it was stored
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
    EXPECT_EQ(file.Find(OndorPath, "bin")->Type, 3U);
    EXPECT_EQ(file.Find(OndorPath, "bin")->Data, "\x01\x02\xFF");
    EXPECT_EQ(file.Find(OndorPath, "n")->Type, 4U);
    EXPECT_EQ(file.Find(OndorPath, "n")->Data, "\x1F\0\0\0"s);
    EXPECT_EQ(file.Find(OndorPath, "q")->Type, 11U);
    EXPECT_EQ(file.Find(OndorPath, "e")->Type, 2U);
    EXPECT_EQ(file.Find(OndorPath, "e")->Data, "%A%\0"s);
    EXPECT_EQ(file.Find(OndorPath, "m")->Type, 7U);
    EXPECT_EQ(file.Find(OndorPath, "m")->Data, "A\0\0"s);
}

TEST(RegFileTest, CommentsAndBlanksBetweenTheMarks) {
    const RegFile file(
        Five("; een toelichting\r\n  \"a\" = \"1\" ; waarom\r\n\t\"b\"=\"2\"  \r\n;\"a\"=\"9\"\r\n"
             "\"n\"=dword:5;x\r\n\"h\"=hex:01, 02 ; x\r\n\"c\"=\"a;b\"\r\n"));
    EXPECT_EQ(Text(file, "a"), "1");
    EXPECT_EQ(Text(file, "b"), "2");
    EXPECT_EQ(Text(file, "c"), "a;b");
    EXPECT_EQ(file.Find(OndorPath, "n")->Data, "\x05\0\0\0"s);
    EXPECT_EQ(file.Find(OndorPath, "h")->Data, "\x01\x02");
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

} // namespace
