// A print server that is lost while it has the document.
#include <gmock/gmock.h>

#include "print/queues/QueuesFixture.h"
#include "print/queues/SlowServer.h"

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

/// What the user is told where the number of the job is known.
std::string PerhapsPrintedAs(int number) {
    return "De afdrukserver heeft niet bevestigd dat het document is aangekomen. Misschien wordt het toch "
           "afgedrukt, als opdracht " +
           std::to_string(number) +
           " van printer Kantoor.\nKijk eerst bij de printer voordat u het opnieuw afdrukt.";
}

class LostAnswerTest : public QueuesTest {
  protected:
    void PrintThrough(Loss loss) {
        OpenFirst([&] {
            const SlowServer server(Server.Folder() + "/cups.sock", milliseconds(0), loss);
            Program->Print(NameList);
        });
    }
};

TEST_F(LostAnswerTest, OfADocumentThatHasComeTellsItsNumber) {
    PrintThrough(Loss::Answer);
    EXPECT_THAT(Messages(), ElementsAre(PerhapsPrintedAs(1)));
    EXPECT_TRUE(Server.Job(1));
    EXPECT_FALSE(Server.HasJob(2));
}

TEST_F(LostAnswerTest, TellsTheNumberOfThatDocumentAndNoOther) {
    StartProgram();
    ExpectUsable(1); // the same title
    Program->OpenManager([&] {
        const SlowServer server(Server.Folder() + "/cups.sock", milliseconds(0), Loss::Answer);
        Program->OpenDetails();
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(PerhapsPrintedAs(2)));
}

TEST_F(LostAnswerTest, OfAServerThatStandsStillIsToldWithoutANumber) {
    OpenFirst([&] {
        const SlowServer server(Server.Folder() + "/cups.sock", milliseconds(0), Loss::Standstill);
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(PerhapsPrinted));
    EXPECT_TRUE(Server.Job(1));
}

TEST_F(LostAnswerTest, OfADocumentThatMayHaveComeIsToldWithoutANumber) {
    PrintThrough(Loss::Document);
    EXPECT_THAT(Messages(), ElementsAre(PerhapsPrinted));
    EXPECT_FALSE(Server.HasJob(1));
}

TEST_F(LostAnswerTest, OfADocumentThatWasNotSentToItsEndIsToldAsNotPrinted) {
    OpenFirst([&] {
        Program->Play("paste frmMain.UserText(0) 1000");
        const SlowServer server(Server.Folder() + "/cups.sock", milliseconds(0), Loss::Document);
        Program->Print(TestForms);
    });
    EXPECT_THAT(Messages(), ElementsAre(NoAnswer));
    EXPECT_FALSE(Server.HasJob(1));
}

} // namespace
