// The three documents on real queues, as they come out at the printer.
#include <map>

#include <gmock/gmock.h>

#include "desktop/cups/PaperTable.h"
#include "print/pdf/PdfReader.h"
#include "print/queues/DrawAgain.h"
#include "print/queues/QueuesFixture.h"

namespace {

struct Printout {
    const char* Name;
    const char* Queue;
    const char* Paper;
    const char* Bin;
    std::map<QString, QString> Options;
};

void PrintTo(const Printout& printout, std::ostream* out) {
    *out << printout.Queue;
}

class DocumentsTest : public QueuesTest, public testing::WithParamInterface<Printout> {
  protected:
    /// Every word of the one file stands in the other, on its page and at its place.
    void ExpectSameWords(const QString& arrived, const QString& drawn) {
        constexpr double margin = 18 / 72.0 * 25.4; // of the queue; the PDF printer has none
        constexpr double tolerance = 0.01;          // millimetres
        EXPECT_EQ(pdf::Info(arrived, "Pages"), pdf::Info(drawn, "Pages"));
        const std::vector<pdf::Word> words = pdf::Words(arrived);
        const std::vector<pdf::Word> expected = pdf::Words(drawn);
        ASSERT_FALSE(expected.empty());
        ASSERT_EQ(words.size(), expected.size());
        for (std::size_t i = 0; i < words.size(); ++i) {
            SCOPED_TRACE(expected[i].Text);
            EXPECT_EQ(words[i].Text, expected[i].Text);
            EXPECT_EQ(words[i].Page, expected[i].Page);
            EXPECT_NEAR(words[i].Left, expected[i].Left + margin, tolerance);
            EXPECT_NEAR(words[i].Top, expected[i].Top + margin, tolerance);
            EXPECT_NEAR(words[i].Right, expected[i].Right + margin, tolerance);
            EXPECT_NEAR(words[i].Bottom, expected[i].Bottom + margin, tolerance);
        }
    }

    void Print(Document document) {
        const Printout& wanted = GetParam();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(0, wanted.Queue);
            Program->Pick(1, wanted.Paper);
            Program->Pick(2, wanted.Bin);
            Program->Print(document);
        });
    }
};

TEST_P(DocumentsTest, ArriveAsDrawnOnTheChosenPaperFromTheChosenTray) {
    StartProgram();
    const std::map<Document, std::string> titles = {
        {TestForms, "Acceptgiroformulieren voor de drukkeuring"},
        {NameList, "Namenlijst"},
        {CalibrationReport, "Instellingen calibratie"},
    };
    for (const auto& [document, title] : titles) {
        SCOPED_TRACE(title);
        Print(document);
        const std::optional<ArrivedJob> job = Server.Job(document + 1);
        ASSERT_TRUE(job);
        EXPECT_EQ(job->Queue.toStdString(), GetParam().Queue);
        EXPECT_EQ(job->Title.toStdString(), title);
        EXPECT_EQ(job->Copies.toStdString(), "1");
        for (const auto& [name, value] : GetParam().Options) {
            EXPECT_EQ(job->Options[name].toStdString(), value.toStdString()) << name.toStdString();
        }
        const QString drawn = Server.Folder() + "/drawn.pdf";
        DrawAgain(Program->Printer.LastDocument(), desktop::cups::PaperLegal, drawn);
        ExpectSameWords(job->File, drawn);
    }
    EXPECT_EQ(pdf::Info(Server.Job(1)->File, "Pages"), "3"); // seven forms, three on a sheet
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, DocumentsTest,
                         testing::Values(Printout{"ByPpd",
                                                  "Kantoor",
                                                  "US Legal",
                                                  "Lade 3 met formulieren",
                                                  {{"PageSize", "Legal"},
                                                   {"media", "na_legal_8.5x14in"},
                                                   {"InputSlot", "Tray3"},
                                                   {"media-source", "tray-3"}}},
                                         Printout{
                                             "ByAttributes",
                                             "Driverloos",
                                             "Legal",
                                             "Lade 3",
                                             {{"media", "na_legal_8.5x14in"}, {"media-source", "tray-3"}}}),
                         [](const auto& each) { return each.param.Name; });

} // namespace
