#include "printmanager/PrinterStatus.h"

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace printmanager {
namespace {

TEST(PrinterStatusTest, TextIsReadyOrEmpty) {
    std::string text = "oud";
    PrinterStatusText(text, 0);
    EXPECT_EQ(text, "Ready");
    PrinterStatusText(text, 1);
    EXPECT_EQ(text, "");
    PrinterStatusText(text, -5);
    EXPECT_EQ(text, "Ready");
}

struct StatusRow {
    std::int32_t Value;
    const char* Name;
};

class StatusNameTest : public testing::TestWithParam<StatusRow> {};

TEST_P(StatusNameTest, BitHasItsName) {
    EXPECT_EQ(StatusNames(GetParam().Value), std::string("\r\n") + GetParam().Name);
}

INSTANTIATE_TEST_SUITE_P(Reached, StatusNameTest,
                         testing::Values(StatusRow{1, "Paused"}, StatusRow{2, "Error"},
                                         StatusRow{4, "Pending Deletion"}, StatusRow{8, "Paper Jam"},
                                         StatusRow{16, "Paper Out"}, StatusRow{32, "Manual Feed"},
                                         StatusRow{64, "Paper Problem"}, StatusRow{128, "Offline"},
                                         StatusRow{256, "IO Active"}, StatusRow{512, "Busy"},
                                         StatusRow{1024, "Printing"}, StatusRow{2048, "Output Bin Full"},
                                         StatusRow{4096, "Not Available"}, StatusRow{8192, "Waiting"},
                                         StatusRow{16384, "Processing"}));

TEST(PrinterStatusTest, BitsFromFifteenOnHaveNoName) {
    for (int bit = 15; bit < 31; ++bit) {
        EXPECT_EQ(StatusNames(1 << bit), "") << bit;
    }
}

TEST(PrinterStatusTest, NamesStandInTheOrderOfTheirBits) {
    EXPECT_EQ(StatusNames(128 + 1 + 65536), "\r\nPaused\r\nOffline");
}

} // namespace
} // namespace printmanager
