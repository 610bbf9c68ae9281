// Each finding by itself: it comes with its values, alone where nothing else follows from the same cause, and
// goes when it is mended.

#include <functional>
#include <set>

#include "PrecheckTest.h"
#include "precheck/FindingKinds.h"

namespace precheck {

using testing::HasSubstr;
using testing::IsEmpty;

/// What a case may change.
struct SpoiledBatch {
    memory::MemoryPlatform& Memory;
    state::AppState& State;
    Intent& Wanted;
    ChosenPrinter& Printer;

    void Set(const std::string& name, const std::string& text) {
        Memory.registry.SetText(State.SettingsKey, name, text);
    }
};

struct FindingCase {
    std::string Code;
    std::function<void(SpoiledBatch&)> Spoil;
    std::vector<std::string> Words; ///< in the sentence on what is wrong
    Gravity HowBad = Gravity::Spoils;
};

inline void PrintTo(const FindingCase& one, std::ostream* stream) {
    *stream << one.Code;
}

/// Stands for any that the machine replaces.
static memory::MemoryFont Replaced() {
    return {.PrintsInstead = "Courier"};
}

static const std::vector<FindingCase>& Cases() {
    static const std::vector<FindingCase> cases = {
        {"settings.none",
         [](SpoiledBatch& b) { b.Memory.registry.RemoveKey(b.State.SettingsKey); },
         {"Tarvik", "Ondor"}},
        {"settings.unreadable",
         [](SpoiledBatch& b) {
             b.Memory.registry.Present = {machine::StoreTrouble::Unreadable, {}, "Toegang geweigerd"};
         },
         {"(Toegang geweigerd)"}},
        {"settings.encoding",
         [](SpoiledBatch& b) { b.Memory.registry.Present = {machine::StoreTrouble::UnknownEncoding}; },
         {"vorm die dit programma niet kent"}},
        {"settings.cut-off",
         [](SpoiledBatch& b) { b.Memory.registry.Present = {machine::StoreTrouble::CutOff}; },
         {"alleen het begin"}},
        {"contract.none",
         [](SpoiledBatch& b) { b.State.GMUContractVorm = 30; },
         {"GMUContractVorm is \"30\""}},
        {"formtype.none", [](SpoiledBatch& b) { b.State.AcceptgiroType = 4; }, {"AcceptgiroType is \"4\""}},
        {"ocr.off",
         [](SpoiledBatch& b) {
             b.State.GMUVerkeer = false;
             b.Set("GMUVerkeer", "0");
         },
         {"GMUVerkeer is \"0\""}},
        {"ocr.contract-a",
         [](SpoiledBatch& b) { b.State.GMUContractVorm = 1; },
         {"Contract A"},
         Gravity::LookAt},
        {"calibration.no-number",
         [](SpoiledBatch& b) { b.State.OCRTop[2] = "1.50"; },
         {"OCRTop2", "OCR regel", "onderste formulier", "\"1.50\""}},
        {"calibration.too-large",
         [](SpoiledBatch& b) { b.State.AcceptGiroNAWLinks[0] = "999999999999"; },
         {"AcceptGiroNAWLinks0", "\"999999999999\""}},
        {"calibration.off-form",
         [](SpoiledBatch& b) { b.State.OCRTop[0] = "9,00"; },
         {"6 teksten van het bovenste formulier", "het begin van de OCR-regel, 0,5 mm", "OCRTop0 = \"9,00\"",
          "op 10 formulieren"}},
        {"locale.no-comma",
         [](SpoiledBatch& b) { b.Memory.locale.SetDecimalMark('.'); },
         {"OCRLinks0 = \"0,20\"", "Alle 56 waarden"}},
        {"creditor.off",
         [](SpoiledBatch& b) {
             b.State.IncassantAfdrukken = false;
             b.Set("IncassantAfdrukken", "");
         },
         {"IncassantAfdrukken is leeg"}},
        {"creditor.no-name", [](SpoiledBatch& b) { b.State.IncassantBegunstigde.clear(); }, {"naam"}},
        {"creditor.no-address",
         [](SpoiledBatch& b) { b.State.IncassantAdres.clear(); },
         {"adresregel"},
         Gravity::LookAt},
        {"creditor.no-postcode",
         [](SpoiledBatch& b) { b.State.IncassantPostCode.clear(); },
         {"postcode", "adresregel"},
         Gravity::LookAt},
        {"creditor.no-town", [](SpoiledBatch& b) { b.State.IncassantWoonplaats.clear(); }, {"plaats"}},
        {"creditor.no-account", [](SpoiledBatch& b) { b.State.IncassantBankGiro.clear(); }, {"rekening"}},
        {"creditor.no-iban",
         [](SpoiledBatch& b) { b.State.IncassantBankGiro = "123456789"; },
         {"\"123456789\"", "BIC"}},
        {"creditor.no-bic",
         [](SpoiledBatch& b) { b.State.IncassantBankGiro = "nl13abna0500000018"; },
         {"\"nl13abna0500000018\""}},
        {"creditor.name-cut",
         [](SpoiledBatch& b) { b.State.IncassantBegunstigde = "Stichting Tot Behoud Van Lange Namen"; },
         {"\"Stichting Tot Behoud Van Lange Namen\"", "\"Stichting Tot Behoud Van Lan\""},
         Gravity::LookAt},
        {"creditor.town-cut",
         [](SpoiledBatch& b) { b.State.IncassantWoonplaats = "Testdam aan de Zuidelijke Voorbeeldzijde"; },
         {"blijft daar over: \"Testdam aan de Zuidelijke Vo\""},
         Gravity::LookAt},
        {"creditor.letters",
         [](SpoiledBatch& b) {
             b.Memory.fonts.Describe("Tahoma", {.LacksLetters = "Łą"});
             b.State.IncassantAdres = "Łąka 1";
         },
         {"het adres van de incassant", "Ł ą"}},
        {"creditor.letters-lost",
         [](SpoiledBatch& b) { b.State.IncassantAdres = "??ka 1"; },
         {"het adres van de incassant", "\"??ka 1\""},
         Gravity::LookAt},
        {"font.none",
         [](SpoiledBatch& b) {
             b.Set("GMUFontName", "");
             b.State.GMUFontName = "Tahoma";
         },
         {"GMUFontName is leeg", "Tahoma"}},
        {"font.replaced",
         [](SpoiledBatch& b) { b.Memory.fonts.Describe("OCR-B", Replaced()); },
         {"\"OCR-B\"", "\"Courier\""}},
        {"font.not-ocr-b",
         [](SpoiledBatch& b) {
             b.Memory.fonts.Describe("OCR-B", {.WidthPerPoint = 14.4, .WideLetters = "<"});
         },
         {"\"OCR-B\"", "niet even breed"}},
        {"font.pitch",
         [](SpoiledBatch& b) { b.Memory.fonts.Describe("OCR-B", {.WidthPerPoint = 12}); },
         {"\"OCR-B\"", "2,12 mm"}},
        {"font.digits",
         [](SpoiledBatch& b) {
             b.Memory.fonts.Describe("OCR-B", {.WidthPerPoint = 14.4, .SlimLetters = ""});
         },
         {"\"OCR-B\"", "de 1 is 2,03 mm breed en de 0 2,03 mm"},
         Gravity::LookAt},
        {"font.size",
         [](SpoiledBatch& b) { b.State.GMUFontSize = "9"; },
         {"op 9 punten afgedrukt en niet op 10."}},
        {"font.letters",
         [](SpoiledBatch& b) {
             b.Memory.fonts.Describe("OCR-B", {.WidthPerPoint = 14.4, .LacksLetters = "<"});
         },
         {"\"OCR-B\"", "het bedrag in de OCR-regel", "er ontbreekt: <"}},
        {"sheet.too-small",
         [](SpoiledBatch& b) { b.Printer.Sheet->Height = ToTwips(297); },
         {"210 x 297 mm", "210 x 304,8 mm"}},
        {"sheet.forced",
         [](SpoiledBatch& b) {
             b.State.OverrulePaperSize = true;
             b.Printer.MeasuredSheet = b.Printer.Sheet;
         },
         {"Legal", "PrinterOverrulePaperSize"},
         Gravity::LookAt},
        {"sheet.text-off",
         [](SpoiledBatch& b) { b.Printer.Sheet->Right = ToTwips(200); },
         {"Het einde van de OCR-regel (bovenste formulier)", "op 10 formulieren"}},
        {"sheet.texts-overlap",
         [](SpoiledBatch& b) { b.State.GMUFontSize = "12"; },
         {"het betalingskenmerk in de OCR-regel", "het bedrag in de OCR-regel", "op 30 formulieren"}},
        {"sheet.text-cut",
         [](SpoiledBatch& b) {
             b.State.GMUVerkeer = false;
             b.Memory.fonts.Describe("Tahoma", {.WidthPerPoint = 20});
         },
         {"De omschrijving op de souche", "\"DRUKKEURING\""},
         Gravity::LookAt},
        {"sheet.off-form",
         [](SpoiledBatch& b) { b.Set("AcceptFontSizeNAW2", "40"); },
         {"De postcode en plaats van de betaler"}},
        {"printer.unreachable",
         [](SpoiledBatch& b) { b.Printer.Condition.Reachable = false; },
         {"\"Laser\""}},
        {"printer.paused",
         [](SpoiledBatch& b) { b.Printer.Condition.Status = 0x1; },
         {"\"Laser\""},
         Gravity::LookAt},
        {"printer.rejecting", [](SpoiledBatch& b) { b.Printer.Condition.Status = 0x1000; }, {"\"Laser\""}},
        {"printer.no-paper", [](SpoiledBatch& b) { b.Printer.Condition.Status = 0x10; }, {"\"Laser\""}},
        {"printer.error",
         [](SpoiledBatch& b) { b.Printer.Condition.Status = 0x400008; },
         {"storing: vastgelopen papier, een open klep."}},
        {"printer.imposed",
         [](SpoiledBatch& b) { b.Printer.Condition.Imposed = {"Booklet: On"}; },
         {"Booklet: On"}},
        {"printer.coarse",
         [](SpoiledBatch& b) { b.Printer.Condition.DotsPerInch = 179; },
         {"179 punten per inch"}},
        {"count.too-few", [](SpoiledBatch& b) { b.Wanted.Forms = 29; }, {"29", "30"}},
        {"count.none", [](SpoiledBatch& b) { b.Wanted.Copies = -1; }, {"-1"}},
        {"count.no-names", [](SpoiledBatch& b) { b.Wanted.Forms = 251; }, {"251"}, Gravity::LookAt},
        {"count.copies", [](SpoiledBatch& b) { b.Wanted.Copies = 2; }, {"2 keer"}, Gravity::LookAt},
    };
    return cases;
}

class EachFindingTest : public PrecheckTest, public testing::WithParamInterface<FindingCase> {};

TEST_P(EachFindingTest, ComesWithItsValuesAndGoesWhenMended) {
    const Intent intentBefore = intent;
    const ChosenPrinter printerBefore = printer;
    const state::AppState stateBefore = state;
    ASSERT_THAT(Codes(All()), IsEmpty());

    SpoiledBatch batch{memory, state, intent, printer};
    GetParam().Spoil(batch);
    const Finding finding = First(All(), GetParam().Code);
    EXPECT_EQ(finding.Gravity, GetParam().HowBad);
    for (const std::string& words : GetParam().Words) {
        EXPECT_THAT(finding.Wrong, HasSubstr(words));
    }
    EXPECT_THAT(finding.Mend, testing::EndsWith("."));

    intent = intentBefore;
    printer = printerBefore;
    state = stateBefore;
    memory.registry.CreateKey(SettingsPath);
    memory.registry.Present = {};
    memory.locale.SetDecimalMark(',');
    memory.fonts.Describe("Tahoma", {});
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4});
    Set("GMUFontName", OcrFont);
    Set("AcceptFontSizeNAW2", "10");
    EXPECT_THAT(Codes(All()), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, EachFindingTest, testing::ValuesIn(Cases()), [](const auto& tested) {
    std::string name;
    for (const char c : tested.param.Code) {
        name += c == '.' || c == '-' ? '_' : c;
    }
    return name;
});

TEST(FindingKindsTest, EachHasACase) {
    std::set<std::string> tested;
    for (const FindingCase& one : Cases()) {
        tested.insert(one.Code);
    }
    std::set<std::string> known;
    for (const FindingWords& words : AllFindingKinds()) {
        EXPECT_TRUE(known.insert(std::string(words.Code)).second) << words.Code;
    }
    EXPECT_EQ(tested, known);
}

TEST(FindingKindsTest, AValueIsTakenAsItIs) {
    const Finding finding = MakeFinding(FindingKind::CreditorNameCut, {"\"%2 & %%\"", "\"%\""});
    EXPECT_THAT(finding.Wrong, HasSubstr("Van \"%2 & %%\" blijft daar over: \"%\"."));
}

} // namespace precheck
