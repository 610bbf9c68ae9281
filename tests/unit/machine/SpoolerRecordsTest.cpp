#include "machine/SpoolerRecords.h"

#include <array>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace machine {
namespace {

using testing::Each;
using testing::ElementsAre;

DEVMODE SomeMode() {
    DEVMODE mode{};
    mode.dmFields = DM_PAPERSIZE | DM_COPIES;
    mode.dmPaperSize = 9;
    mode.dmCopies = 2;
    return mode;
}

TEST(SpoolerRecordsTest, ANameFillsItsFieldWithNulsOrIsCut) {
    char field[4] = {'x', 'x', 'x', 'x'};
    PutName(field, sizeof field, "A4");
    EXPECT_THAT(field, ElementsAre('A', '4', '\0', '\0'));
    PutName(field, sizeof field, "Legal");
    EXPECT_THAT(field, ElementsAre('L', 'e', 'g', 'a'));
    PutName(field, 2, "");
    EXPECT_THAT(field, ElementsAre('\0', '\0', 'g', 'a'));
}

TEST(SpoolerRecordsTest, ADevModeTellsItsSizeAndTheDriversBytesBehindIt) {
    const std::vector<char> record = DevModeRecord(SomeMode(), "eigen");
    ASSERT_EQ(record.size(), sizeof(DEVMODE) + 5);
    EXPECT_EQ(std::string(record.data() + sizeof(DEVMODE), 5), "eigen");
    const DEVMODE mode = ReadDevMode(record.data());
    EXPECT_EQ(mode.dmSize, sizeof(DEVMODE));
    EXPECT_EQ(mode.dmDriverExtra, 5);
    EXPECT_EQ(mode.dmPaperSize, 9);
    EXPECT_EQ(mode.dmCopies, 2);
    EXPECT_EQ(DevModeRecord(SomeMode()).size(), sizeof(DEVMODE));
}

TEST(SpoolerRecordsTest, ADevModeIsReadFromAnyPlace) {
    std::vector<char> bytes = DevModeRecord(SomeMode());
    bytes.insert(bytes.begin(), 'x');
    EXPECT_EQ(ReadDevMode(bytes.data() + 1).dmPaperSize, 9);
}

TEST(SpoolerRecordsTest, AFieldIsSetByItsBit) {
    DEVMODE mode = SomeMode();
    EXPECT_TRUE(Sets(mode, DM_PAPERSIZE));
    EXPECT_FALSE(Sets(mode, DM_ORIENTATION));
    EXPECT_FALSE(Sets(mode, DM_COLLATE));
    mode.dmFields = 1U << 15U;
    EXPECT_TRUE(Sets(mode, DM_COLLATE));
}

/// What the merging tests look at: orientation, paper, bin and copies.
std::array<std::int16_t, 4> SettingsOf(const DEVMODE& mode) {
    return {mode.dmOrientation, mode.dmPaperSize, mode.dmDefaultSource, mode.dmCopies};
}

DEVMODE ModeOf(std::uint32_t fields, const std::array<std::int16_t, 4>& settings) {
    DEVMODE mode{};
    mode.dmFields = fields;
    mode.dmOrientation = settings[0];
    mode.dmPaperSize = settings[1];
    mode.dmDefaultSource = settings[2];
    mode.dmCopies = settings[3];
    return mode;
}

constexpr std::uint32_t AllFour = DM_ORIENTATION | DM_PAPERSIZE | DM_DEFAULTSOURCE | DM_COPIES;

TEST(SpoolerRecordsTest, SettingsThatAreOfferedTakeThePlaceOfTheStored) {
    const DEVMODE stored = ModeOf(0, {1, 9, 15, 1});
    const SettingsOffer offer{AllFour, {9, 5}, {15, 1}};
    EXPECT_THAT(SettingsOf(Merged(stored, ModeOf(AllFour, {2, 5, 1, 3}), offer)), ElementsAre(2, 5, 1, 3));
    EXPECT_THAT(SettingsOf(Merged(stored, ModeOf(AllFour, {3, 8, 7, 0}), offer)), ElementsAre(1, 9, 15, 1))
        << "no such orientation, paper, bin or number";
    EXPECT_THAT(SettingsOf(Merged(stored, ModeOf(AllFour, {0, 0, 0, -1}), offer)), ElementsAre(1, 9, 15, 1));
    EXPECT_THAT(SettingsOf(Merged(stored, ModeOf(0, {2, 5, 1, 3}), offer)), ElementsAre(1, 9, 15, 1));
    EXPECT_THAT(SettingsOf(Merged(stored, ModeOf(DM_PAPERSIZE, {2, 5, 1, 3}), offer)),
                ElementsAre(1, 5, 15, 1));
}

TEST(SpoolerRecordsTest, AFieldThatAPrinterDoesNotOfferStays) {
    const DEVMODE stored = ModeOf(0, {2, 9, 15, 4});
    const DEVMODE asked = ModeOf(AllFour, {1, 5, 1, 3});
    EXPECT_THAT(SettingsOf(Merged(stored, asked, {0, {9, 5}, {15, 1}})), ElementsAre(2, 9, 15, 4));
    EXPECT_THAT(SettingsOf(Merged(stored, asked, {DM_ORIENTATION | DM_COPIES, {9, 5}, {15, 1}})),
                ElementsAre(1, 9, 15, 3));
    EXPECT_THAT(SettingsOf(Merged(stored, asked, {AllFour, {}, {}})), ElementsAre(1, 9, 15, 3));
}

class PrinterInfoRecordTest : public testing::Test {
  protected:
    const PrinterInfoRecord Record{
        5,
        DevModeRecord(SomeMode(), "d"),
        {{&PRINTER_INFO_2::pPrinterName, "Laser"}, {&PRINTER_INFO_2::pComment, ""}}};
    std::vector<char> Buffer = std::vector<char>(Record.Size(), 'x');
};

TEST_F(PrinterInfoRecordTest, IsAsLargeAsAllOfIt) {
    EXPECT_EQ(Record.Size(), sizeof(PRINTER_INFO_2) + sizeof(DEVMODE) + 1 + sizeof "Laser" + sizeof "");
}

TEST_F(PrinterInfoRecordTest, PointsToWhatStandsBehindItInTheBuffer) {
    ASSERT_TRUE(Record.WriteTo(Buffer.data(), Record.Size()));
    PRINTER_INFO_2 info;
    std::memcpy(&info, Buffer.data(), sizeof info);
    EXPECT_EQ(info.Status, 5U);
    EXPECT_STREQ(info.pPrinterName, "Laser");
    EXPECT_STREQ(info.pComment, "");
    EXPECT_EQ(info.pPortName, nullptr);
    EXPECT_EQ(reinterpret_cast<char*>(info.pDevMode), Buffer.data() + sizeof info);
    EXPECT_EQ(info.pComment + 1, Buffer.data() + Buffer.size());
    EXPECT_EQ(ReadDevMode(info.pDevMode).dmPaperSize, 9);
}

TEST_F(PrinterInfoRecordTest, LeavesABufferAloneThatIsTooSmall) {
    EXPECT_FALSE(Record.WriteTo(Buffer.data(), Record.Size() - 1));
    EXPECT_THAT(Buffer, Each('x'));
    EXPECT_FALSE(Record.WriteTo(nullptr, Record.Size()));
}

TEST_F(PrinterInfoRecordTest, BringsItsSettings) {
    EXPECT_FALSE(SettingsIn(nullptr));
    std::vector<char> without(sizeof(PRINTER_INFO_2), '\0');
    EXPECT_FALSE(SettingsIn(without.data()));
    ASSERT_TRUE(Record.WriteTo(Buffer.data(), Record.Size()));
    ASSERT_TRUE(SettingsIn(Buffer.data()));
    EXPECT_EQ(SettingsIn(Buffer.data())->dmCopies, 2);
}

TEST(SpoolerRecordsTest, AListIsCountedAndWritten) {
    EXPECT_EQ(ListNumbers({9, 300}, nullptr), 2);
    std::int16_t numbers[2] = {};
    EXPECT_EQ(ListNumbers({9, 300}, numbers), 2);
    EXPECT_THAT(numbers, ElementsAre(9, 300));

    std::int32_t sides[4] = {};
    EXPECT_EQ(ListSides({{2100, 2970}, {100, 200}}, nullptr), 2);
    EXPECT_EQ(ListSides({{2100, 2970}, {100, 200}}, sides), 2);
    EXPECT_THAT(sides, ElementsAre(2100, 2970, 100, 200));

    char names[2][BinNameBytes];
    const std::string longest(BinNameBytes, 'b');
    EXPECT_EQ(ListNames({"Lade 1", longest + "x"}, BinNameBytes, nullptr), 2);
    EXPECT_EQ(ListNames({"Lade 1", longest + "x"}, BinNameBytes, names), 2);
    EXPECT_STREQ(names[0], "Lade 1");
    EXPECT_EQ(std::string(names[1], BinNameBytes), longest);
    EXPECT_EQ(ListNames({}, BinNameBytes, nullptr), 0);
}

} // namespace
} // namespace machine
