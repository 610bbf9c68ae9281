#include "base/Boolean.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(BooleanTest, KeepsMinusOneForTrueAndZeroForFalse) {
    EXPECT_EQ(Boolean(true).Value(), -1);
    EXPECT_EQ(Boolean(false).Value(), 0);
    EXPECT_EQ(Boolean().Value(), 0);
}

TEST(BooleanTest, ReadsAndIsAssignedAsABool) {
    Boolean flag;
    EXPECT_FALSE(flag);
    flag = true;
    EXPECT_TRUE(flag);
    EXPECT_EQ(flag.Value(), -1);
    flag = !flag;
    EXPECT_FALSE(flag);
}

} // namespace
} // namespace base
