#include "PrecheckTest.h"

namespace precheck {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class PrinterCheckTest : public PrecheckTest {};

TEST_F(PrinterCheckTest, NothingIsWrong) {
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
}

TEST_F(PrinterCheckTest, ASheetMayBeHalfAMillimetreSmaller) {
    for (const auto& [width, height] :
         {std::pair(209.51, 304.31), std::pair(215.9, 355.6), std::pair(210.0, 304.8)}) {
        printer.Sheet = Sheet(width, height);
        EXPECT_THAT(Codes(OfPrinter()), IsEmpty()) << width;
    }
    for (const auto& [width, height] :
         {std::pair(209.49, 304.8), std::pair(210.0, 304.29), std::pair(304.8, 210.0)}) {
        printer.Sheet = Sheet(width, height);
        EXPECT_THAT(Codes(OfPrinter()), ElementsAre("sheet.too-small")) << width;
    }
}

TEST_F(PrinterCheckTest, AFormUnderALetterNeedsA4) {
    state.AcceptgiroType = 3;
    printer.Sheet = Sheet(210, 297);
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
    printer.Sheet = Sheet(215.9, 279.4);
    EXPECT_THAT(First(OfPrinter(), "sheet.too-small").Wrong,
                HasSubstr("215,9 x 279,4 mm, en het acceptgiropapier is 210 x 297 mm"));
}

TEST_F(PrinterCheckTest, TheSheetIsShownInOutline) {
    printer.Sheet = Sheet(210, 297);
    const SheetSketch sketch = First(OfPrinter(), "sheet.too-small").Sketch;
    EXPECT_DOUBLE_EQ(sketch.Sheet.Height, ToTwips(297));
    EXPECT_THAT(sketch.Forms, SizeIs(3));
}

TEST_F(PrinterCheckTest, AnUnknownSheetOrFormTypeIsNotJudged) {
    printer.Sheet.reset();
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
    printer.Sheet = Sheet(100, 100);
    state.AcceptgiroType = 0;
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
}

TEST_F(PrinterCheckTest, ListsTakeAnySheet) {
    printer.Sheet = Sheet(100, 100);
    state.OverrulePaperSize = true;
    printer.Condition.DotsPerInch = 60;
    for (const std::int16_t document : Numbers{2, 3}) {
        intent.Document = document;
        EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
    }
}

TEST_F(PrinterCheckTest, APrinterAtWorkIsNotInTrouble) {
    printer.Condition.Status =
        0x100 | 0x200 | 0x400 | 0x2000 | 0x4000 | 0x10000 | 0x20000; // the last is low toner
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
}

TEST_F(PrinterCheckTest, EachTroubleIsTold) {
    printer.Condition.Status = 0x80 | 0x1 | 0x1000 | 0x10 | 0x2;
    const Findings findings = OfPrinter();
    EXPECT_THAT(Codes(findings), ElementsAre("printer.unreachable", "printer.rejecting", "printer.no-paper",
                                             "printer.error", "printer.paused"));
    EXPECT_THAT(First(findings, "printer.error").Wrong, HasSubstr("meldt een storing."));
}

TEST_F(PrinterCheckTest, From180DotsOcrBIsRead) {
    for (const int dots : {0, 180, 600}) {
        printer.Condition.DotsPerInch = dots;
        EXPECT_THAT(Codes(OfPrinter()), IsEmpty()) << dots;
    }
}

TEST_F(PrinterCheckTest, EachImposedDefaultIsToldByItself) {
    printer.Condition.Imposed = {"Booklet: On", "Number Up: 2 & 4"};
    const Findings findings = OfPrinter();
    ASSERT_THAT(Codes(findings), ElementsAre("printer.imposed", "printer.imposed"));
    EXPECT_THAT(findings[1].Wrong, HasSubstr("Number Up: 2 & 4."));
    intent.Document = 2;
    EXPECT_THAT(OfPrinter(), Each(Field(&Finding::Gravity, Gravity::LookAt)));
}

TEST_F(PrinterCheckTest, TheSettingsMayForceThePaper) {
    EXPECT_EQ(PaperOf(state, 9), 9);
    state.OverrulePaperSize = true;
    EXPECT_EQ(PaperOf(state, 9), machine::PaperLegal);
    state.MatrixPrinter = true; // never gets it
    EXPECT_EQ(PaperOf(state, 9), 9);
    EXPECT_THAT(Codes(OfPrinter()), IsEmpty());
}

TEST_F(PrinterCheckTest, APrinterWithoutTheForcedPaperKeepsTheChosenOne) {
    state.OverrulePaperSize = true;
    EXPECT_THAT(Codes(OfPrinter()), testing::Not(testing::Contains("sheet.forced")));
}

TEST_F(PrinterCheckTest, AChosenPrinterIsTheOneOfThatNumber) {
    memory.InstallPrinter({.Name = "Eerste", .Status = 0x1});
    memory.InstallPrinter({.Name = "Tweede", .Reachable = false});
    const ChosenPrinter chosen = ChooseForRun(state, memory.Services(), 1, 9, machine::Landscape);
    EXPECT_EQ(chosen.Condition.Name, "Tweede");
    EXPECT_FALSE(chosen.Condition.Reachable);
    ASSERT_TRUE(chosen.Sheet);
    EXPECT_NEAR(chosen.Sheet->Width, ToTwips(297), 0.01);
    EXPECT_FALSE(
        ChooseForRun(state, memory.Services(), 0, 8, machine::Portrait).Sheet); // it has no such paper
    EXPECT_THROW(ChooseForRun(state, memory.Services(), 2, 9, machine::Portrait), base::RuntimeError);
}

} // namespace precheck
