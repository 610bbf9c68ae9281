#include <random>
#include <string>

#include <gtest/gtest.h>

#include "unit/desktop/regfile/RegFileTexts.h"

namespace {

using namespace regfiletest;

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

TEST(RegFileSizeTest, LargeFileOfForeignLines) {
    const std::string lines =
        Repeated(std::string(5000, 'x') + "\r\n; " + std::string(5000, 'y') + "\r\n", Large);
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"1\"\r\n" + lines + "\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileSizeTest, LargeFileOfForeignValues) {
    const std::string lines = Repeated("\"x\"=\"" + std::string(20'000, 'x') + "\"\r\n", Large / 5);
    EXPECT_EQ(Text(RegFile(Five("\"a\"=\"1\"\r\n" + lines + "\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileSizeTest, LargeLineOfText) {
    const std::string value(Large, 'x');
    const RegFile file(Five("\"a\"=\"" + value + "\"\r\n\"b\"=\"2\"\r\n"));
    EXPECT_EQ(file.Find(OndorPath, "a")->Data.size(), value.size() + 1);
    EXPECT_EQ(Text(file, "b"), "2");
}

TEST(RegFileSizeTest, LargeLinesThatNeverClose) {
    for (const char* const start : {"\"", "\"a\"=\"", "[", "[-", "@"}) {
        const RegFile file(
            Five(start + std::string(Large / 10, 'x') + "\r\n[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n"));
        EXPECT_EQ(Text(file, "b"), "2");
    }
}

TEST(RegFileSizeTest, ManyDamagedLinesWithoutALineOfRest) {
    for (const char* const piece :
         {"[", "\"", "\"\"=hex:00,\\\r\n", "\\", "[a\r\n", "[-\r\n", "\r", "\"\\", "\"\\\"\\\\"}) {
        const RegFile file(Five(Repeated(piece, 200'000)) + "\r\n[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n");
        EXPECT_EQ(Text(file, "b"), "2");
    }
}

TEST(RegFileSizeTest, ManyKeysMadeAndTakenAway) {
    std::string lines;
    for (int i = 0; i < 1000; ++i) {
        lines += "[" + OndorPath + "\\K\\" + std::to_string(i) + "]\r\n[-" + OndorPath + "\\K\\" +
                 std::to_string(i / 2) + "]\r\n";
    }
    EXPECT_EQ(Text(RegFile(Five(lines + "[" + OndorPath + "]\r\n\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileSizeTest, LargeHexadecimalList) {
    const std::string list = Repeated("41,00,42,00,43,00,44,00,45,00,46,00,\\\r\n  ", Large / 50);
    const RegFile file(Five("\"a\"=hex(1):" + list + "00,00\r\n\"b\"=\"2\"\r\n"));
    EXPECT_TRUE(file.Find(OndorPath, "a")->Data.starts_with("ABCDEF"));
    EXPECT_EQ(Text(file, "b"), "2");
}

TEST(RegFileSizeTest, LargeFileInUtf16) {
    std::string bytes = Utf16(Five("\"a\"=\"1\"\r\n;"));
    bytes.resize(Large / 5, 'x');
    EXPECT_EQ(Text(RegFile(bytes + desktop::regfile::ToUtf16("\r\n\"b\"=\"2\"\r\n")), "b"), "2");
}

TEST(RegFileSizeTest, RandomBytesAreReadWithoutHarm) {
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

TEST(RegFileSizeTest, LargeFileOfRandomBytes) {
    std::mt19937 random(7);
    std::string block(100'003, '\0');
    for (char& c : block) {
        c = static_cast<char>(random() & 0xFFU);
    }
    EXPECT_FALSE(RegFile(Repeated(block, Large)).HasKey(OndorPath));
}

} // namespace
