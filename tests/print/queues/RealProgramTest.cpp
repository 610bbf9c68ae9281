// The hands of these tests: what they cannot do fails the test that wants it.
#include <gtest/gtest-spi.h>

#include "print/queues/QueuesFixture.h"

namespace {

class RealProgramTest : public QueuesTest {};

TEST_F(RealProgramTest, FailsTheTestThatWantsWhatNoUserCanDo) {
    StartProgram();
    Program->OpenManager([&] {
        EXPECT_NONFATAL_FAILURE(Program->Play("click frmMain.Verder"), "ignored");
        EXPECT_NONFATAL_FAILURE(Program->Pick(0, "Weg"), "ignored");
        EXPECT_NONFATAL_FAILURE(Program->Play("click frmPrintManager.cmdNiets"), "no such control");
        EXPECT_NONFATAL_FAILURE(Program->Play("expect frmPrintManager.blnDetailsOpen true"), "is false");
        Program->CloseManager();
    });
}

TEST_F(RealProgramTest, FailsTheTestWhereNoFormOpensOrOneIsLeft) {
    StartProgram();
    EXPECT_NONFATAL_FAILURE(Program->Play("get Forms", [] {}), "nothing opens");
    EXPECT_NONFATAL_FAILURE(Program->OpenManager([] {}), "frmPrintManager");
}

TEST_F(RealProgramTest, TellsWhatTheUserIsTold) {
    Program = std::make_unique<RealProgram>();
    Program->Play("start");
    Program->Play("paste frmMain.UserText(74) 123456780");
    Program->Play("click frmMain.Verder");
    EXPECT_EQ(Messages().size(), 1U);
}

} // namespace
