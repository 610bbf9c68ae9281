#include "forms/ReadingOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using forms::ReadingOrder;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadingOrderTest, NothingIsReadWhereThereIsNothing) {
    EXPECT_THAT(ReadingOrder({}), IsEmpty());
}

TEST(ReadingOrderTest, LinesAreReadFromTheTop) {
    EXPECT_THAT(ReadingOrder({{0, 900, 100, 240}, {0, 0, 100, 240}, {0, 450, 100, 240}}),
                ElementsAre(1, 2, 0));
}

TEST(ReadingOrderTest, ALineIsReadFromTheLeft) {
    EXPECT_THAT(ReadingOrder({{900, 0, 100, 240}, {0, 0, 100, 240}, {450, 0, 100, 240}}),
                ElementsAre(1, 2, 0));
}

TEST(ReadingOrderTest, ALabelThatStandsLowerThanItsBoxIsReadBeforeIt) {
    EXPECT_THAT(ReadingOrder({{2700, 2490, 4440, 330}, {300, 2535, 2280, 240}}), ElementsAre(1, 0));
}

TEST(ReadingOrderTest, WhatBeginsInTheLowerHalfOfALineIsReadAfterIt) {
    EXPECT_THAT(ReadingOrder({{300, 0, 100, 240}, {0, 130, 100, 240}}), ElementsAre(0, 1));
}

TEST(ReadingOrderTest, WhatLiesAtTheSamePlaceKeepsItsOrder) {
    EXPECT_THAT(ReadingOrder({{0, 0, 100, 100}, {0, 0, 100, 100}, {0, 0, 100, 100}}), ElementsAre(0, 1, 2));
}

TEST(ReadingOrderTest, AreasWithoutHeightAreReadAsWell) {
    EXPECT_THAT(ReadingOrder({{0, 500, 100, 0}, {0, 0, 100, 0}}), ElementsAre(1, 0));
}

} // namespace
