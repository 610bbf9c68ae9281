#include "printmanager/PrinterInfo.h"

#include "ManagerFixture.h"
#include "StubSpooler.h"

namespace printmanager {

using testing::ElementsAre;

namespace {

class PrinterInfoTest : public ManagerTest {
  protected:
    PrinterInfoTest() { Install("Laser"); }
    memory::PrintQueue& Laser() { return *memory.printers.Find("Laser"); }
    bool Ask() { return GetPrinterInfo(memory.spooler, "Laser", info); }

    PrinterInfo info;
};

TEST_F(PrinterInfoTest, TellsNamePortCommentAndStatus) {
    Laser().Comment = "Derde verdieping, één hoog";
    EXPECT_TRUE(Ask());
    EXPECT_EQ(info.Name, "Laser");
    EXPECT_EQ(info.Port, "Laser:");
    EXPECT_EQ(info.Comment, "Derde verdieping, één hoog");
    EXPECT_EQ(info.Status, "Ready");
}

TEST_F(PrinterInfoTest, LeavesThePrinterOpen) {
    EXPECT_THAT(TraceOf([&] { Ask(); }), ElementsAre("open Laser", "info size", "info"));
    EXPECT_EQ(memory.spooler.OpenHandles(), 1U);
}

TEST_F(PrinterInfoTest, FalseWithoutAConnection) {
    Laser().Reachable = false;
    info.Name = "oud";
    EXPECT_FALSE(Ask());
    EXPECT_EQ(info.Name, "");
}

TEST_F(PrinterInfoTest, TrueWithoutTextsWhereThereIsNoData) {
    memory.recorder.Fail("GetPrinterA", 1);
    EXPECT_TRUE(Ask());
    EXPECT_EQ(info.Name + info.Port + info.Comment + info.Status, "");
}

TEST_F(PrinterInfoTest, CommentIsCutAt128Bytes) {
    Laser().Comment = std::string(128, 'a');
    Ask();
    EXPECT_EQ(info.Comment.size(), 128U);
    Laser().Comment = std::string(129, 'a');
    Ask();
    EXPECT_EQ(info.Comment.size(), 128U);
}

/// A spooler whose texts are UTF-8, with a word about the stored defaults.
class Utf8Spooler : public StubSpooler {
  public:
    std::string Encode(std::string_view utf8) const override { return std::string(utf8); }
    std::string Decode(std::string_view bytes) const override { return std::string(bytes); }
    std::string Trouble(const std::string& printer) override {
        Asked = printer;
        return TroubleText;
    }

    std::string TroubleText;
    std::string Asked;
};

TEST(PrinterInfoOfAnySpoolerTest, HasTextsInTheSpoolersOwnEncoding) {
    Utf8Spooler spooler;
    spooler.InfoText = "Принтер";
    PrinterInfo info;
    ASSERT_TRUE(GetPrinterInfo(spooler, "Принтер", info));
    EXPECT_EQ(info.Name, "Принтер");
    EXPECT_EQ(info.Status, "Ready");
    EXPECT_EQ(spooler.Asked, "Принтер");
}

TEST(PrinterInfoOfAnySpoolerTest, TellsInTheStatusWhatIsWrongWithTheStoredDefaults) {
    Utf8Spooler spooler;
    spooler.TroubleText = "lpoptions is niet te lezen";
    PrinterInfo info;
    ASSERT_TRUE(GetPrinterInfo(spooler, "Laser", info));
    EXPECT_EQ(info.Status, "lpoptions is niet te lezen");
}

TEST_F(PrinterInfoTest, AnyStatusBitLeavesTheStatusEmpty) {
    for (const std::uint32_t status : {1U, 128U, 32768U, 4194304U, 0x7FFFFFFFU}) {
        Laser().Status = status;
        Ask();
        EXPECT_EQ(info.Status, "") << status;
    }
    Laser().Status = 0x80000000U;
    Ask();
    EXPECT_EQ(info.Status, "Ready");
}

TEST(PointerToStringTest, ReadsUpToTheFirstNulWithinTheLimit) {
    const std::string text("abc\0def", 7);
    const std::span<const std::byte> data = std::as_bytes(std::span(text));
    EXPECT_EQ(PointerToString(text.data(), 128, data), "abc");
    EXPECT_EQ(PointerToString(text.data(), 2, data), "ab");
    EXPECT_EQ(PointerToString(text.data() + 4, 128, data), "def");
}

TEST(PointerToStringTest, PointerThatCannotBeReadIsTheEmptyText) {
    const std::string text = "abc";
    const std::span<const std::byte> data = std::as_bytes(std::span(text));
    EXPECT_EQ(PointerToString(nullptr, 128, data), "");
    EXPECT_EQ(PointerToString(text.data() + 3, 128, data), "");
    EXPECT_EQ(PointerToString(text.data() - 1, 128, data), "");
    EXPECT_EQ(PointerToString(reinterpret_cast<const char*>(std::uintptr_t{8}), 128, data), "");
}

TEST(HostilePrinterInfoTest, PointersOutsideTheDataAndHugeSizesDoNoHarm) {
    StubSpooler stub;
    PrinterInfo info;
    stub.Info.pPrinterName = reinterpret_cast<char*>(std::uintptr_t{16});
    stub.Info.pComment = reinterpret_cast<char*>(~std::uintptr_t{0});
    EXPECT_TRUE(GetPrinterInfo(stub, "Laser", info));
    EXPECT_EQ(info.Name + info.Comment, "");
    stub.InfoSize = 0x80000000U;
    EXPECT_FALSE(GetPrinterInfo(stub, "Laser", info));
    stub.InfoSize = 1;
    EXPECT_TRUE(GetPrinterInfo(stub, "Laser", info));
}

TEST(HostilePrinterInfoTest, TextWithoutNulEndsWithTheData) {
    StubSpooler stub;
    PrinterInfo info;
    stub.InfoText = std::string(128, 'z'); // as many bytes as stand behind the record
    EXPECT_TRUE(GetPrinterInfo(stub, "Laser", info));
    EXPECT_EQ(info.Comment, std::string(128, 'z'));
}

TEST(HostilePrinterInfoTest, FailedReadLeavesTheTextsEmpty) {
    StubSpooler stub;
    PrinterInfo info;
    stub.InfoText = "x";
    stub.InfoResult = false;
    EXPECT_TRUE(GetPrinterInfo(stub, "Laser", info));
    EXPECT_EQ(info.Name + info.Status, "");
}

} // namespace
} // namespace printmanager
