#include "base/TextTable.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace base {
namespace {

TEST(TextTableTest, CutsRowsOfOneWidth) {
    constexpr TextTable table("abcdef", 3, 4);
    EXPECT_EQ(table.FilledRows(), 2);
    EXPECT_EQ(table.LastIndex(), 4);
    EXPECT_EQ(table[0], "abc");
    EXPECT_EQ(table[1], "def");
    EXPECT_EQ(table[2], "");
    EXPECT_EQ(table[4], "");
    EXPECT_THROW(table[5], RuntimeError);
}

} // namespace
} // namespace base
