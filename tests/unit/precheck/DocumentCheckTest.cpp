#include <utility>

#include "PrecheckTest.h"

namespace precheck {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class DocumentCheckTest : public PrecheckTest {
  protected:
    void ClearCalibration() {
        for (const auto& block : state::CalibrationBlocks(state)) {
            std::fill(block.X.begin(), block.X.end(), "");
            std::fill(block.Y.begin(), block.Y.end(), "");
        }
    }

    /// The sheets of the stationery without margins, so that places are those of the layout.
    void TakeStationeryToItsEdges() {
        ClearCalibration();
        printer.Sheet = Sheet(210, state.AcceptgiroType == 3 ? 297 : 304.8, 0);
    }

    /// The names of the texts that a finding is about.
    static std::vector<std::string> TextsOf(const Finding& finding) {
        std::vector<std::string> names;
        for (const WrongPlace& text : finding.Texts) {
            names.push_back(text.Name);
        }
        return names;
    }

    static bool Mentions(const Finding& finding, const std::string& words) {
        return finding.Wrong.find(words) != std::string::npos;
    }
};

TEST_F(DocumentCheckTest, NothingIsWrongOnAnyStationeryUnderAnyContract) {
    for (const std::int16_t type : Numbers{1, 2, 3}) {
        for (const std::int16_t contract : Numbers{1, 2, 31, 32, 33, 34}) {
            for (const std::int16_t document : Numbers{1, 2, 3}) {
                state.AcceptgiroType = type;
                state.GMUContractVorm = contract;
                intent.Document = document;
                printer.Sheet = Sheet(210, type == 3 ? 297 : 304.8);
                EXPECT_THAT(Codes(Document()), IsEmpty()) << type << ' ' << contract << ' ' << document;
            }
        }
    }
}

TEST_F(DocumentCheckTest, WithoutASheetTheStationeryIsTakenToItsEdges) {
    printer.Sheet.reset();
    EXPECT_THAT(Codes(Document()), IsEmpty());
    state.OCRTop[2] = "9,00"; // 12 inch down it would be off
    EXPECT_THAT(Codes(Document()), Contains("sheet.text-off"));
}

TEST_F(DocumentCheckTest, InkMayReachToTheEdge) {
    TakeStationeryToItsEdges();
    // The end of the OCR line at 19,48 cm, three letters of 144 twips, the last of which has ink to nine
    // tenths.
    const double reach = 19.48 * 567 + 2.9 * 144;
    for (const double edge : {reach, reach - 2.8}) {
        printer.Sheet->Right = edge;
        EXPECT_THAT(Codes(Document()), IsEmpty()) << edge;
    }
    printer.Sheet->Right = reach - 2.9; // 0,05 mm is 2,83 twips
    const Findings findings = Document();
    EXPECT_THAT(findings, SizeIs(3));
    EXPECT_THAT(findings, Each(AllOf(Field(&Finding::Code, "sheet.text-off"),
                                     Field(&Finding::Wrong, HasSubstr("valt 0,1 mm buiten")))));
}

TEST_F(DocumentCheckTest, ATextIsToldOnceForEachPlaceWithItsWorst) {
    TakeStationeryToItsEdges();
    printer.Sheet->Right = ToTwips(200);
    state.OCRLinks[1] = "2,00";
    const Findings findings = Document();
    ASSERT_THAT(findings, SizeIs(3));
    // 19,48 cm and 417,6 twips are 202,2 mm, and two more on the middle form.
    EXPECT_THAT(findings[0].Wrong,
                AllOf(HasSubstr("Het einde van de OCR-regel (bovenste formulier) valt 2,2 mm"),
                      HasSubstr("op 10 formulieren")));
    EXPECT_THAT(findings[1].Wrong,
                AllOf(HasSubstr("(middelste formulier) valt 4,2 mm"), HasSubstr("op 10 formulieren")));
    EXPECT_THAT(findings[2].Wrong,
                AllOf(HasSubstr("(onderste formulier) valt 2,2 mm"), HasSubstr("op 10 formulieren")));
}

TEST_F(DocumentCheckTest, EveryEdgeCounts) {
    TakeStationeryToItsEdges();
    intent = {.Forms = 3};
    const auto spoiled = [&](double machine::SheetArea::*edge, double millimetres) {
        const machine::SheetArea before = *printer.Sheet;
        (*printer.Sheet).*edge = ToTwips(millimetres);
        Findings findings = Document();
        printer.Sheet = before;
        return findings;
    };
    EXPECT_THAT(Codes(spoiled(&machine::SheetArea::Right, 195)), Contains("sheet.text-off"));
    EXPECT_THAT(Codes(spoiled(&machine::SheetArea::Bottom, 290)), Contains("sheet.text-off"));
    // An edge on the left or at the top moves the origin of the drawing, and the run moves its forms back.
    state.AcceptGiroTop[0] = "-8,00";
    EXPECT_THAT(First(spoiled(&machine::SheetArea::Top, 5), "sheet.text-off").Wrong,
                HasSubstr("De omschrijving (bovenste formulier)"));
    state.AcceptGiroTop[0].clear();
    state.AcceptGiroLinks[0] = "-16,00";
    EXPECT_THAT(First(spoiled(&machine::SheetArea::Left, 5), "sheet.text-off").Wrong,
                HasSubstr("Het bedrag in euro's op de souche (bovenste formulier)"));
}

TEST_F(DocumentCheckTest, OnA4TheLastOcrLineIsOff) {
    printer.Sheet = Sheet(210, 297);
    const Findings findings = Document();
    ASSERT_THAT(Codes(findings), ElementsAre("sheet.text-off"));
    EXPECT_EQ(
        findings[0].Wrong,
        "6 teksten van het onderste formulier vallen buiten wat de printer op dit vel kan afdrukken, op "
        "10 formulieren. Het verst: het begin van de OCR-regel, 3,3 mm.");
    EXPECT_THAT(TextsOf(findings[0]), ElementsAre("het begin van de OCR-regel (onderste formulier)",
                                                  "het betalingskenmerk in de OCR-regel (onderste formulier)",
                                                  "het bedrag in de OCR-regel (onderste formulier)",
                                                  "de BIC in de OCR-regel (onderste formulier)",
                                                  "de rekening in de OCR-regel (onderste formulier)",
                                                  "het einde van de OCR-regel (onderste formulier)"));
    EXPECT_NEAR(findings[0].Texts[0].Millimetres, 3.3, 0.05);
    EXPECT_THAT(findings[0].Sketch.Wrong, SizeIs(6)) << "all of them are shown on the page";
}

TEST_F(DocumentCheckTest, TextsThatAreMendedInDifferentWaysAreToldApart) {
    printer.Sheet = Sheet(210, 297);
    ClearCalibration();
    state.AcceptGiroTop[2] = "60,00"; // the OCR line does not move with the form
    const Findings findings = With(Document(), "sheet.text-off");
    ASSERT_THAT(findings, SizeIs(2));
    EXPECT_THAT(findings,
                Contains(AllOf(Field(&Finding::Wrong, HasSubstr("9 teksten van het onderste formulier")),
                               Field(&Finding::Mend, HasSubstr("acceptgiropapier")))));
    EXPECT_THAT(findings, Contains(Field(&Finding::Mend, "Verbeter de calibratie in Tarvik.")));
}

TEST_F(DocumentCheckTest, ACalibrationMayMoveAFieldToTheEdgeOfItsForm) {
    TakeStationeryToItsEdges();
    intent = {.Forms = 3};
    // Ink of the line ends at 8,975 cm and 180 twips, the first form at 10,158 cm: 490,8 twips, and 2,8 to
    // spare.
    state.OCRTop[0] = "8,70"; // 493 twips
    EXPECT_THAT(Codes(Document()), IsEmpty());
    state.OCRTop[0] = "8,72"; // 494
    const Findings findings = Document();
    ASSERT_THAT(Codes(findings), ElementsAre("calibration.off-form"));
    EXPECT_EQ(findings[0].Wrong,
              "6 teksten van het bovenste formulier staan door de calibratie buiten het formulier: OCRTop0 = "
              "\"8,72\". Het verst: het begin van de OCR-regel, 0,1 mm.");
}

TEST_F(DocumentCheckTest, AFormThatIsMovedAwayIsToldOnceForEachTrouble) {
    state.AcceptGiroTop[0] = "-60,00";
    const Findings findings = Document();
    ASSERT_THAT(Codes(findings), ElementsAre("calibration.off-form", "sheet.text-off"));
    EXPECT_EQ(findings[0].Wrong,
              "13 teksten van het bovenste formulier staan door de calibratie buiten het formulier, op 10 "
              "formulieren: AcceptGiroLinks0 = \"0,20\", AcceptGiroTop0 = \"-60,00\". Het verst: de "
              "omschrijving, 50,9 mm.");
    EXPECT_THAT(findings[0].Texts, SizeIs(13));
    EXPECT_THAT(findings[1].Wrong, AllOf(HasSubstr("13 teksten van het bovenste formulier vallen buiten"),
                                         HasSubstr("Het verst: de omschrijving, 55,1 mm.")));
}

TEST_F(DocumentCheckTest, BlocksThatAreMovedByThemselvesAreToldApart) {
    ClearCalibration();
    state.AcceptGiroNAWTop[0] = "100,00";
    state.AcceptGiroBGSoucheTop[0] = "60,00";
    const Findings findings = With(Document(), "calibration.off-form");
    ASSERT_THAT(findings, SizeIs(2));
    EXPECT_THAT(findings, Contains(Field(&Finding::Wrong, HasSubstr("AcceptGiroNAWTop0 = \"100,00\". "))));
    EXPECT_THAT(findings,
                Contains(Field(&Finding::Wrong, AllOf(HasSubstr("3 teksten van het bovenste formulier"),
                                                      HasSubstr("AcceptGiroBGSoucheTop0 = \"60,00\". ")))));
}

TEST_F(DocumentCheckTest, TheCalibrationsThatMoveAFieldAreNamed) {
    intent = {.Forms = 3};
    ClearCalibration();
    state.AcceptGiroTop[1] = "-10,00";
    state.AcceptGiroBGAcceptLinks[1] = "-60,00";
    state.AcceptGiroBGAcceptTop[1] = "77,00"; // moves nothing
    const Findings findings = With(Document(), "calibration.off-form");
    EXPECT_THAT(
        findings,
        Contains(Field(&Finding::Wrong,
                       AllOf(HasSubstr("De rekening van de incassant (middelste formulier)"),
                             HasSubstr("AcceptGiroTop1 = \"-10,00\", AcceptGiroBGAcceptLinks1 = \"-60,00\"."),
                             Not(HasSubstr("77,00"))))));
    EXPECT_THAT(findings, Contains(Field(&Finding::Wrong,
                                         AllOf(HasSubstr("De omschrijving (middelste formulier)"),
                                               HasSubstr("formulier: AcceptGiroTop1 = \"-10,00\".")))));
    EXPECT_THAT(findings, Not(Contains(Field(&Finding::Wrong, HasSubstr("OCR-regel")))));
}

TEST_F(DocumentCheckTest, UnderALetterTheFourthCalibrationCounts) {
    state.AcceptgiroType = 3;
    printer.Sheet = Sheet(210, 297);
    state.OCRTop[0] = "40,00";
    EXPECT_THAT(Codes(Document()), IsEmpty());
    state.OCRTop[3] = "-95,00";
    EXPECT_THAT(First(Document(), "calibration.off-form").Wrong,
                AllOf(HasSubstr("6 teksten van het formulier onder de brief"),
                      HasSubstr("OCRTop3 = \"-95,00\""), HasSubstr("op 30 formulieren")));
}

TEST_F(DocumentCheckTest, ATextThatIsTooLongIsNoFaultOfItsCalibration) {
    state.IncassantBegunstigde = "Stichting Tot Behoud Van Zeer Lange Namen En Nog Veel Langere Adressen In "
                                 "Het Hele Land Van Hier Tot Ginder En Terug";
    const Findings findings = Document();
    EXPECT_THAT(Codes(findings), Contains("sheet.text-off"));
    EXPECT_THAT(Codes(findings), Not(Contains("calibration.off-form")));
    EXPECT_THAT(First(findings, "sheet.text-off").Mend, HasSubstr("Kort de tekst af"));
}

TEST_F(DocumentCheckTest, WhatTheCalibrationMovesOffTheSheetIsMendedThere) {
    state.OCRTop[2] = "12,00";
    for (const Finding& finding : With(Document(), "sheet.text-off")) {
        EXPECT_EQ(finding.Mend, "Verbeter de calibratie in Tarvik.");
    }
}

TEST_F(DocumentCheckTest, ANameThatIsTheTownsAsWellIsToldOnceForEach) {
    state.IncassantBegunstigde = state.IncassantWoonplaats = "Testdam aan de Zuidelijke Voorbeeldzijde";
    EXPECT_THAT(Codes(Document()), testing::UnorderedElementsAre("creditor.name-cut", "creditor.town-cut"));
}

TEST_F(DocumentCheckTest, TextsMayTouch) {
    // Account and end of the line, where each letter has ink from one tenth to nine: 18,8 widths reach over
    // 5,11 cm.
    const double touching = (19.48 - 14.37) * 567 / 18.8;
    const double tolerance = ToTwips(0.1) / 18.8;
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = (touching + tolerance * 0.99) / 10, .SlimLetters = ""});
    EXPECT_THAT(Codes(Document()), IsEmpty());
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = (touching + tolerance * 1.01) / 10, .SlimLetters = ""});
    EXPECT_THAT(Codes(Document()), ElementsAre("sheet.texts-overlap"));
}

TEST_F(DocumentCheckTest, TextsOfOneBlockThatMeetAreToldOnce) {
    state.GMUFontSize = "12";
    const Findings findings = With(Document(), "sheet.texts-overlap");
    ASSERT_THAT(findings, SizeIs(1));
    EXPECT_EQ(findings[0].Wrong,
              "5 teksten van hetzelfde formulier staan over elkaar, op 30 formulieren. Het meest: het "
              "betalingskenmerk in de OCR-regel (bovenste formulier) en het bedrag in de OCR-regel (bovenste "
              "formulier), over 5,5 mm bij 2,5 mm.");
    EXPECT_THAT(findings[0].Texts, SizeIs(4)) << "a pair each";
    EXPECT_EQ(findings[0].Texts[0].Name, "het betalingskenmerk in de OCR-regel (bovenste formulier) en het "
                                         "bedrag in de OCR-regel (bovenste formulier)");
    EXPECT_NEAR(findings[0].Texts[0].Millimetres, 2.5, 0.05);
    EXPECT_THAT(findings[0].Sketch.Wrong, SizeIs(15)) << "on all three forms of the sheet";
}

TEST_F(DocumentCheckTest, APairOfTextsIsToldByItsNames) {
    const double touching = (19.48 - 14.37) * 567 / 18.8;
    memory.fonts.Describe(OcrFont,
                          {.WidthPerPoint = (touching + ToTwips(0.1) / 18.8 * 1.01) / 10, .SlimLetters = ""});
    EXPECT_THAT(
        First(Document(), "sheet.texts-overlap").Wrong,
        AllOf(HasSubstr("De rekening in de OCR-regel (bovenste formulier) en het einde van de OCR-regel "
                        "(bovenste formulier) staan over elkaar, over "),
              testing::EndsWith(", op 30 formulieren.")));
}

TEST_F(DocumentCheckTest, AFormCountsOnceHoweverOftenItsFieldsMeetThoseOfAnother) {
    ClearCalibration();
    intent.Forms = 2;
    state.GMUFontSize = "12";
    state.AcceptGiroTop[1] = state.OCRTop[1] = "-101,58"; // the second form lies on the first
    const Findings findings = With(Document(), "sheet.texts-overlap");
    ASSERT_THAT(findings, SizeIs(2));
    EXPECT_THAT(findings[0].Wrong,
                HasSubstr("50 teksten van het bovenste formulier en het middelste formulier "
                          "staan over elkaar, op 2 formulieren. Het meest: "));
    EXPECT_THAT(findings[1].Wrong,
                HasSubstr("5 teksten van hetzelfde formulier staan over elkaar, op 2 formulieren. "));
}

TEST_F(DocumentCheckTest, TheCornerGoesByTheSheetThatThePrinterWasMeasuredWith) {
    const machine::SheetArea measured = Sheet(210, 297, 9.2);
    EXPECT_THAT(Codes(Document()), IsEmpty());
    EXPECT_THAT(Codes(CheckDocument(state, services, intent, measured, printer.Sheet)),
                Contains("sheet.text-off"))
        << "all is 5 mm further down, on a sheet that is shorter";
    const Findings findings = CheckDocument(state, services, intent, printer.Sheet, measured);
    EXPECT_THAT(findings, Each(Field(&Finding::Code, "sheet.text-off")));
    // It is 8 mm from the top of the form, and the printer reaches to 4,2.
    EXPECT_TRUE(Mentions(First(findings, "sheet.text-off"), "De omschrijving (bovenste formulier)"))
        << First(findings, "sheet.text-off").Wrong;
}

TEST_F(DocumentCheckTest, TextsOfDifferentPagesDoNotMeet) {
    state.AcceptgiroType = 3; // one form on a page, at the same place each
    printer.Sheet = Sheet(210, 297);
    EXPECT_THAT(Codes(Document()), IsEmpty());
}

TEST_F(DocumentCheckTest, OfAFormTypeThatIsNoneTheOcrLineIsLookedAt) {
    state.AcceptgiroType = 0;
    EXPECT_THAT(Codes(Document()), IsEmpty());
    printer.Sheet = Sheet(210, 297);
    EXPECT_THAT(Document(), ElementsAre(Field(&Finding::Texts, SizeIs(6))));
}

TEST_F(DocumentCheckTest, TheSketchHasTheSheetTheFormsAndTheTexts) {
    printer.Sheet->Right = ToTwips(200);
    intent = {.Forms = 4};
    const SheetSketch sketch = With(Document(), "sheet.text-off").back().Sketch;
    EXPECT_EQ(sketch.Sheet.Right, ToTwips(200));
    ASSERT_THAT(sketch.Forms, SizeIs(3));
    EXPECT_DOUBLE_EQ(sketch.Forms[1].Top, 10.158 * 567);
    EXPECT_DOUBLE_EQ(sketch.Forms[1].Bottom, 20.317 * 567);
    EXPECT_DOUBLE_EQ(sketch.Forms[2].Bottom, ToTwips(304.8));
    ASSERT_THAT(sketch.Wrong, SizeIs(1));
    EXPECT_GT(sketch.Wrong[0].Right, ToTwips(200));
    EXPECT_GT(sketch.Texts.size(), 60U); // three forms, and nothing of the fourth
    EXPECT_LT(sketch.Texts.size(), 80U);
}

TEST_F(DocumentCheckTest, AtMost250FormsAreLookedAtAndThenNotCounted) {
    printer.Sheet->Right = ToTwips(200);
    intent = {.Forms = 250};
    EXPECT_TRUE(Mentions(First(Document(), "sheet.text-off"), "op 84 formulieren"));
    for (const auto& [forms, copies] : {std::pair{30000, 1}, std::pair{250, 3}, std::pair{30000, 32767}}) {
        intent.Forms = forms;
        intent.Copies = static_cast<std::int16_t>(copies);
        const Finding found = First(Document(), "sheet.text-off");
        EXPECT_FALSE(Mentions(found, " formulieren")) << found.Wrong;
    }
}

TEST_F(DocumentCheckTest, NoFormsNoFindings) {
    printer.Sheet = Sheet(50, 50);
    for (const std::int32_t forms : {0, -1}) {
        intent.Forms = forms;
        EXPECT_THAT(Codes(Document()), IsEmpty());
    }
    intent = {.Forms = 3, .Copies = -1};
    EXPECT_THAT(Codes(Document()), IsEmpty());
}

TEST_F(DocumentCheckTest, ListsThatDoNotFitAreWorthALook) {
    printer.Sheet = Sheet(148, 210);
    for (const std::int16_t document : Numbers{2, 3}) {
        intent.Document = document;
        const Findings findings = Document();
        EXPECT_THAT(findings, Not(IsEmpty()));
        EXPECT_THAT(findings, Each(AllOf(Field(&Finding::Code, "sheet.text-off"),
                                         Field(&Finding::Gravity, Gravity::LookAt))));
        EXPECT_THAT(findings.front().Sketch.Forms, IsEmpty());
    }
}

TEST_F(DocumentCheckTest, TheListsMarginGoesByHowTheSheetLies) {
    intent.Document = 2;
    // The towns begin at 9500 twips and the margin, and are ten letters of 80 at most.
    printer.Sheet->Right = printer.Sheet->Left + 10500;
    EXPECT_THAT(Codes(Document()), ElementsAre("sheet.text-off"));
    intent.Orientation = machine::Landscape;
    EXPECT_THAT(Codes(Document()), IsEmpty());
    intent.Orientation = 0; // none chosen: the margin stays
    state.LeftMargin = 450;
    EXPECT_THAT(Codes(Document()), ElementsAre("sheet.text-off"));
}

TEST_F(DocumentCheckTest, ADocumentThatIsNoneIsEmpty) {
    intent.Document = 4;
    EXPECT_THAT(Codes(Document()), IsEmpty());
}

TEST_F(DocumentCheckTest, LettersOfTheListsAreLookedAtToo) {
    memory.fonts.Describe("Tahoma", {.LacksLetters = "W"});
    intent.Document = 2;
    EXPECT_THAT(First(Document(), "font.letters").Wrong,
                AllOf(HasSubstr("\"Tahoma\""), HasSubstr("de kolom Woonplaats"), HasSubstr("ontbreekt: W")));
}

TEST_F(DocumentCheckTest, LettersThatTheOcrLineLacksSpoilIt) {
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .LacksLetters = "+"});
    const Finding finding = First(Document(), "font.letters");
    EXPECT_THAT(finding.Wrong, HasSubstr("OCR-regel"));
    EXPECT_EQ(finding.Gravity, Gravity::Spoils);
}

} // namespace precheck
