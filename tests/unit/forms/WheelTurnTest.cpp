#include "forms/WheelTurn.h"

#include <climits>

#include <gtest/gtest.h>

namespace {

TEST(WheelTurnTest, TellsAWholeNotchAtOnce) {
    forms::WheelTurn wheel;
    EXPECT_EQ(wheel.Add(120), 120);
    EXPECT_EQ(wheel.Add(-120), -120);
    EXPECT_EQ(wheel.Add(-360), -360);
}

TEST(WheelTurnTest, PutsPartsTogether) {
    forms::WheelTurn wheel;
    for (int part = 0; part < 7; ++part) {
        EXPECT_EQ(wheel.Add(-15), 0);
    }
    EXPECT_EQ(wheel.Add(-15), -120);
    EXPECT_EQ(wheel.Add(-15), 0) << "it begins anew";
    EXPECT_EQ(wheel.Add(-119), -134);
}

TEST(WheelTurnTest, ThePartOfTheOtherWayIsForgotten) {
    forms::WheelTurn wheel;
    EXPECT_EQ(wheel.Add(100), 0);
    EXPECT_EQ(wheel.Add(-100), 0);
    EXPECT_EQ(wheel.Add(100), 0);
    EXPECT_EQ(wheel.Add(20), 120);
}

TEST(WheelTurnTest, NothingTurnedIsNothing) {
    forms::WheelTurn wheel;
    EXPECT_EQ(wheel.Add(0), 0);
    for (const int way : {1, -1}) {
        EXPECT_EQ(wheel.Add(60 * way), 0);
        EXPECT_EQ(wheel.Add(0), 0);
        EXPECT_EQ(wheel.Add(60 * way), 120 * way) << "it takes nothing back";
    }
}

TEST(WheelTurnTest, StaysWithinSixteenBits) {
    forms::WheelTurn wheel;
    EXPECT_EQ(wheel.Add(100), 0);
    EXPECT_EQ(wheel.Add(INT_MAX), 32767);
    EXPECT_EQ(wheel.Add(INT_MIN), -32767);
}

} // namespace
