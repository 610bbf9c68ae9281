#include "testdata/Tables.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace testdata {
namespace {

TEST(TablesTest, HaveEmptyRowsBehindTheFilledOnes) {
    EXPECT_EQ(AccountTable().FilledRows(), 22654);
    EXPECT_EQ(PersonTable().FilledRows(), 250);
    EXPECT_NE(AccountTable()[22653], "");
    EXPECT_EQ(AccountTable()[22654], "");
    EXPECT_EQ(AccountTable()[25000], "");
    EXPECT_NE(PersonTable()[249], "");
    EXPECT_EQ(PersonTable()[250], "");
}

TEST(TablesTest, RefuseAnIndexOutsideTheirBounds) {
    const auto errorOf = [](const base::TextTable& table, std::int32_t index) {
        try {
            table[index];
            return 0;
        } catch (const base::RuntimeError& error) {
            return error.Number();
        }
    };
    for (const std::int32_t index :
         {-1, 25001, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(errorOf(AccountTable(), index), base::ErrorSubscriptOutOfRange) << index;
    }
    for (const std::int32_t index : {-1, 251}) {
        EXPECT_EQ(errorOf(PersonTable(), index), base::ErrorSubscriptOutOfRange) << index;
    }
}

} // namespace
} // namespace testdata
