#include "composition/DocumentRun.h"

#include "DocumentTest.h"

namespace composition {

using testing::ElementsAre;
using testing::IsEmpty;

class DocumentRunTest : public DocumentTest {
  protected:
    DocumentRunTest() {
        state.Surface = nullptr;
        printer.Drawing.Font.Size = 12;
    }
    std::vector<support::DrawnText>& Shown() { return host.preview.canvas.texts; }
};

TEST_F(DocumentRunTest, FrameOfAPrint) {
    Print(1);
    // The sizes of the payer's block are read for each form.
    EXPECT_THAT(happened, ElementsAre("mouse 11", "settings", "yield", "settings", "UpdatePercentage 100",
                                      "UpdatePercentage 100", "mouse 0"));
    EXPECT_EQ(printer.canvas.documents, 1);
    EXPECT_EQ(state.Surface, &host.printer);
    EXPECT_EQ(printer.Drawing.Font.Size, 8);
}

TEST_F(DocumentRunTest, FrameOfAPreview) {
    std::size_t pagesAtShow = 0;
    OnHappening = [&](const std::string& what) {
        if (what == "ShowPreview") {
            pagesAtShow = static_cast<std::size_t>(host.preview.canvas.documents);
            EXPECT_EQ(state.Surface, &host.preview);
        }
    };
    Preview(1);
    EXPECT_THAT(happened, ElementsAre("mouse 11", "settings", "OpenPreview 0", "yield", "settings",
                                      "UpdatePercentage 100", "UpdatePercentage 100", "ShowPreview",
                                      "OpenPreview 1", "mouse 0"));
    EXPECT_EQ(pagesAtShow, 1U); // the document has ended before it is shown
    EXPECT_EQ(printer.canvas.documents, 0);
    EXPECT_THAT(Texts(), IsEmpty());
    EXPECT_FALSE(Shown().empty());
    EXPECT_EQ(state.Surface, nullptr);
}

TEST_F(DocumentRunTest, ListsTakeTheFontOfTheSurface) {
    Print(2);
    EXPECT_EQ(Texts().front().font, "Printer");
    EXPECT_EQ(Texts().front().size, 8);
    EXPECT_THAT(host.percentages, ElementsAre(100));
    Preview(2);
    EXPECT_EQ(Shown().front().font, "Tahoma");
    EXPECT_EQ(Shown().front().size, 8);
}

TEST_F(DocumentRunTest, ListIsTheSameForEveryCountAndCopies) {
    host.count = "5";
    Print(2);
    const std::vector<std::string> first = Words();
    Texts().clear();
    host.count = "250";
    Print(2, 3);
    EXPECT_EQ(Words(), first);
}

TEST_F(DocumentRunTest, ReportIsOneDocument) {
    Print(3, 4);
    EXPECT_EQ(Texts().front().text, "Instellingen calibratie acceptgiro in millimeters");
    EXPECT_EQ(printer.canvas.documents, 1);
    EXPECT_THAT(host.percentages, ElementsAre(100));
}

TEST_F(DocumentRunTest, SettingsAreReadBeforeTheDocument) {
    for (const auto& [name, text] : {std::pair{"OCRLinks0", "4711,5"},
                                     {"AcceptgiroType", "3"},
                                     {"GMUContractVorm", "34"},
                                     {"IncassantAdres", "Anders 1"}}) {
        memory.registry.SetText(SettingsPath, name, text);
    }
    ComposeDocument(state, services, host.printer, host, {.iMethod = DocumentCalibration});
    EXPECT_TRUE(IsDrawn("4711,5"));
    EXPECT_EQ(state.IncassantAdres, "Voorbeeldstraat 1") << "as the user has edited it";
    EXPECT_TRUE(IsDrawn("Acceptgiro onder brief, smalle souche"));
    EXPECT_TRUE(IsDrawn("C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken."));
}

TEST_F(DocumentRunTest, AnyOtherNumberIsAnEmptyDocument) {
    const auto next = static_cast<std::int16_t>(AllDocuments.back() + 1);
    for (const std::int16_t iMethod : Numbers{next, NoDocument, -1, 32767}) {
        printer.canvas.documents = 0;
        Print(iMethod);
        EXPECT_THAT(Texts(), IsEmpty());
        EXPECT_EQ(printer.canvas.documents, 1);
        EXPECT_EQ(host.percentages.back(), 100);
    }
}

TEST_F(DocumentRunTest, EmptyCountIsOne) {
    host.count = "";
    Print(1);
    EXPECT_EQ(host.count, "1");
    EXPECT_THAT(host.percentages, ElementsAre(100, 100));
}

TEST_F(DocumentRunTest, CountIsTheValueOfItsText) {
    const std::pair<const char*, std::size_t> rows[] = {{"2", 2},   {" 3 ", 3}, {"2,9", 2},
                                                        {"1.5", 2}, {"2.5", 2}, {"abc", 0},
                                                        {"0", 0},   {"-4", 0},  {"99999999999", 0}};
    for (const auto& [text, forms] : rows) {
        host.count = text;
        host.percentages.clear();
        Print(1);
        EXPECT_EQ(host.percentages.size(), forms + 1) << text; // one more at the end
    }
}

TEST_F(DocumentRunTest, CopiesReachTheForms) {
    host.count = "2";
    Print(1, 3);
    EXPECT_EQ(printer.canvas.pages, 2);
}

TEST_F(DocumentRunTest, FormsStandAtTheCornerOfThePaper) {
    state.PhysicalOffsetX = 233;
    state.PhysicalOffsetY = 200;
    Print(1);
    EXPECT_DOUBLE_EQ(Drawn("X").x, 3.2 * 567 - 233);
    EXPECT_DOUBLE_EQ(Drawn("X").y, 8.975 * 567 - 200);
}

TEST_F(DocumentRunTest, PaperIsForcedOnAPrinterAlone) {
    state.OverrulePaperSize = true;
    Print(NoDocument);
    EXPECT_THAT(printer.papers, ElementsAre(5));
    Preview(NoDocument);
    state.MatrixPrinter = true;
    Print(NoDocument);
    state.MatrixPrinter = false;
    state.OverrulePaperSize = false;
    Print(NoDocument);
    EXPECT_EQ(printer.papers.size(), 1U);
}

TEST_F(DocumentRunTest, PreviewAndPrintHaveTheSamePersonsAndOtherValues) {
    host.count = "3";
    Preview(1);
    Print(1);
    ASSERT_EQ(Shown().size(), Texts().size());
    std::size_t different = 0;
    for (std::size_t i = 0; i < Texts().size(); ++i) {
        different += Shown()[i].text != Texts()[i].text ? 1U : 0U;
    }
    EXPECT_GT(different, 0U);
    for (const int row : {0, 1, 2}) {
        EXPECT_TRUE(IsDrawn(std::string(testdata::PersonTable()[row].substr(88, 50))));
    }
}

TEST_F(DocumentRunTest, MachineWithoutAPrinterComesToItsEnd) {
    printers.count = 0;
    for (const std::int16_t iMethod : AllDocuments) {
        Print(iMethod);
    }
    EXPECT_EQ(printer.canvas.calls, 0);
    EXPECT_EQ(state.Surface, nullptr);
    EXPECT_EQ(happened.back(), "mouse 0");
}

} // namespace composition
