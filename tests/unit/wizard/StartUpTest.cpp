#include "WizardFixture.h"
#include "state/ContractTexts.h"
#include "state/Settings.h"
#include "testdata/Tables.h"

namespace wizard {
namespace {

class StartUpTest : public WizardTest {};

TEST_F(StartUpTest, OpensWithAnEmptyStore) {
    frmMain& main = Start();
    EXPECT_EQ(main.Caption(), "Ondor Drukkeuring 3.0");
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_EQ(main.Page, 0);
    EXPECT_EQ(main.ActiveControl(), &main.UserText(70));
    for (const int box : {70, 71, 72, 73, 74}) {
        EXPECT_EQ(main.UserText(box).Text(), "") << box;
    }
    EXPECT_EQ(main.UserText(0).Text(), "100");
    EXPECT_EQ(state.GMUFontName, "Tahoma");
    EXPECT_EQ(main.lblOCRFont.Caption(), "Tahoma");
    EXPECT_EQ(main.lblOCR.Font().Name, "Tahoma");
    EXPECT_EQ(main.lblOCR.Caption(), "1234567890123456");
    EXPECT_EQ(main.lblContractsoort.Caption(), "Er is (nog) geen contractsoort ingesteld.");
    EXPECT_EQ(Stored("PrinterOrientation"), "1");
    EXPECT_EQ(Stored("GMUFontSize"), "12");
    EXPECT_FALSE(main.Terug.Enabled());
    EXPECT_TRUE(main.Verder.Enabled());
}

TEST_F(StartUpTest, SetsTheFixedFields) {
    Start();
    EXPECT_EQ(state.Blank, " ");
    EXPECT_EQ(state.CrLf, "\r\n");
    EXPECT_EQ(state.MessageTitle, "Drukkeuring acceptgiro's");
    EXPECT_EQ(state.SettingsKey, SettingsPath);
    EXPECT_EQ(state.LeftMargin, 100);
    EXPECT_EQ(state.TwipsPerCm, 567);
    EXPECT_EQ(state.PrinterInit, 100);
    EXPECT_EQ(state.ListFontName, "Tahoma");
    EXPECT_EQ((*state.PersonTable)[250], "");
    EXPECT_EQ((*state.AccountTable)[1].size(), 38U);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(StartUpTest, WorksWithoutTheKeyOfItsSettings) {
    memory.registry.RemoveKey(SettingsPath);
    Start();
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_EQ(state.GMUFontSize, "12");
    EXPECT_FALSE(memory.registry.HasKey(SettingsPath));
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(StartUpTest, WorksWithoutAPrinter) {
    Start();
    EXPECT_EQ(state.PageWidth, 0);
    EXPECT_EQ(state.PageHeight, 0);
    EXPECT_EQ(state.LineHeight, 0);
    EXPECT_EQ(state.PhysicalOffsetX, 0);
    EXPECT_EQ(state.PhysicalOffsetY, 0);
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(StartUpTest, MeasuresThePrinter) {
    InstallPrinter();
    Start();
    EXPECT_EQ(state.PageWidth, 4760 * 1440 / 600);
    EXPECT_EQ(state.PageHeight, 6816 * 1440 / 600 + 0);
    EXPECT_EQ(state.PhysicalOffsetX, 233); // 100 dots of 600 to the inch, at 1400
    EXPECT_EQ(state.LineHeight, 12 * 24);
}

TEST_F(StartUpTest, KeepsAStoredOrientationAndUsesPortrait) {
    Set("PrinterOrientation", "2");
    Start();
    EXPECT_EQ(Stored("PrinterOrientation"), "2");
    EXPECT_EQ(state.PrinterOrientation, 1);
}

TEST_F(StartUpTest, ReplacesAnOrientationOfZero) {
    Set("PrinterOrientation", "liggend");
    Start();
    EXPECT_EQ(Stored("PrinterOrientation"), "1");
}

struct FontSizeCase {
    const char* Setting;
    const char* Field;
};

class FontSizeTest : public WizardTest, public testing::WithParamInterface<FontSizeCase> {};

TEST_P(FontSizeTest, FollowsTheRangeRuleAndLeavesTheStoreAlone) {
    Set("GMUFontSize", GetParam().Setting);
    Start();
    EXPECT_EQ(state.GMUFontSize, GetParam().Field);
    EXPECT_EQ(Stored("GMUFontSize"), GetParam().Setting);
}

INSTANTIATE_TEST_SUITE_P(Cases, FontSizeTest,
                         testing::Values(FontSizeCase{"0", "12"}, FontSizeCase{"-3", "12"},
                                         FontSizeCase{"49", "12"}, FontSizeCase{"48", "48"},
                                         FontSizeCase{"48.5", "12"}, FontSizeCase{"12,5", "12,5"},
                                         FontSizeCase{"abc", "12"}, FontSizeCase{"99999999999", "12"}));

struct ContractCase {
    const char* Setting;
    const char* Text;
};

class ContractTest : public WizardTest, public testing::WithParamInterface<ContractCase> {};

TEST_P(ContractTest, IsShownByItsText) {
    Set("GMUContractVorm", GetParam().Setting);
    EXPECT_EQ(Start().lblContractsoort.Caption(), GetParam().Text);
}

constexpr const char* NoContract = "Er is (nog) geen contractsoort ingesteld.";
INSTANTIATE_TEST_SUITE_P(
    Cases, ContractTest,
    testing::Values(
        ContractCase{"1", "Contract A"}, ContractCase{" 2 ", "Contract B"}, ContractCase{"3", NoContract},
        ContractCase{"30", NoContract}, ContractCase{"31", "C-contract - Blanco acceptgiro"},
        ContractCase{"32", "S-Certificaat - Blanco acceptgiro met servicenr."},
        ContractCase{"33", "C-contract - Voorbedrukte acceptgiro"},
        ContractCase{"34", "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken."},
        ContractCase{"35", NoContract}, ContractCase{"0", NoContract}, ContractCase{"-1", NoContract},
        ContractCase{"", NoContract}, ContractCase{"65567", NoContract}));

struct OverruleCase {
    const char* UseSpecific; // nullptr: missing
    const char* Overrule;
    bool Result;
};

class OverruleTest : public WizardTest, public testing::WithParamInterface<OverruleCase> {};

TEST_P(OverruleTest, CountsOnlyWithoutSettingsPerDocument) {
    if (GetParam().UseSpecific != nullptr) {
        Set("UseSpecificPrinterSettings", GetParam().UseSpecific);
    }
    Set("PrinterOverrulePaperSize", GetParam().Overrule);
    Start();
    EXPECT_EQ(state.OverrulePaperSize, GetParam().Result);
}

INSTANTIATE_TEST_SUITE_P(Cases, OverruleTest,
                         testing::Values(OverruleCase{nullptr, "1", false}, OverruleCase{"1", "1", false},
                                         OverruleCase{"0", "1", true}, OverruleCase{"0", "0", false},
                                         OverruleCase{"", "1", false}));

TEST_F(StartUpTest, ReadsASingleNulAsEmpty) {
    Set("GMUFontName", std::string(1, '\0'));
    Set("IncassantBegunstigde", std::string(1, '\0'));
    Start();
    EXPECT_EQ(state.GMUFontName, "Tahoma");
    EXPECT_EQ(form->UserText(70).Text(), "");
}

TEST_F(StartUpTest, ShowsTheCreditor) {
    Set("IncassantBegunstigde", "  Stichting Voorbeeld ");
    Set("IncassantAdres", " Dorpsweg 1");
    Set("IncassantPostCode", "1234 ab ");
    Set("IncassantWoonplaats", "Zandwolde");
    Set("IncassantBankGiro", " NL13ABNA0500000018 ");
    Set("IncassantAfdrukken", "1");
    frmMain& main = Start();
    EXPECT_EQ(state.IncassantBegunstigde, "Stichting Voorbeeld");
    EXPECT_EQ(main.UserText(70).Text(), "Stichting Voorbeeld");
    EXPECT_EQ(main.UserText(71).Text(), "Dorpsweg 1");
    EXPECT_EQ(main.UserText(72).Text(), "1234 ab");
    EXPECT_EQ(main.UserText(73).Text(), "Zandwolde");
    EXPECT_EQ(main.UserText(74).Text(), "NL13 ABNA 0500 0000 18");
    EXPECT_EQ(state.IncassantBankGiro, "NL13ABNA0500000018");
    EXPECT_TRUE(state.IncassantAfdrukken);
}

TEST_F(StartUpTest, ReadsEachCalibrationFromItsOwnKey) {
    struct Arrays {
        const char* Stem;
        state::Calibration state::AppState::*X;
        state::Calibration state::AppState::*Y;
    };
    const Arrays all[] = {
        {"AcceptGiro", &state::AppState::AcceptGiroLinks, &state::AppState::AcceptGiroTop},
        {"AcceptGiroNAW", &state::AppState::AcceptGiroNAWLinks, &state::AppState::AcceptGiroNAWTop},
        {"AcceptGiroBKSouche", &state::AppState::AcceptGiroBKSoucheLinks,
         &state::AppState::AcceptGiroBKSoucheTop},
        {"AcceptGiroBKAccept", &state::AppState::AcceptGiroBKAcceptLinks,
         &state::AppState::AcceptGiroBKAcceptTop},
        {"AcceptGiroBGSouche", &state::AppState::AcceptGiroBGSoucheLinks,
         &state::AppState::AcceptGiroBGSoucheTop},
        {"AcceptGiroBGAccept", &state::AppState::AcceptGiroBGAcceptLinks,
         &state::AppState::AcceptGiroBGAcceptTop},
    };
    for (int place = 0; place < 5; ++place) {
        const std::string digit = std::to_string(place);
        for (const Arrays& arrays : all) {
            Set(arrays.Stem + ("Links" + digit), arrays.Stem + ("X" + digit));
            Set(arrays.Stem + ("Top" + digit), arrays.Stem + ("Y" + digit));
        }
        Set("OCRLinks" + digit, " ox" + digit);
        Set("OCRTop" + digit, "oy" + digit + " ");
    }
    Start();
    for (std::size_t place = 0; place < 4; ++place) {
        const std::string digit = std::to_string(place);
        for (const Arrays& arrays : all) {
            EXPECT_EQ((state.*arrays.X)[place], arrays.Stem + ("X" + digit));
            EXPECT_EQ((state.*arrays.Y)[place], arrays.Stem + ("Y" + digit));
        }
        EXPECT_EQ(state.OCRLinks[place], " ox" + digit);
        EXPECT_EQ(state.OCRTop[place], "oy" + digit + " ");
    }
    for (const Arrays& arrays : all) {
        EXPECT_EQ((state.*arrays.X)[4], "");
        EXPECT_EQ((state.*arrays.Y)[4], "");
    }
}

TEST_F(StartUpTest, KeepsTheServiceNumberUntrimmed) {
    Set("GMUServiceNr", " 12 ");
    Set("GMUCode", " 34 ");
    Set("GMUFontName", " OCR-B ");
    Start();
    EXPECT_EQ(state.GMUServiceNr, " 12 ");
    EXPECT_EQ(state.GMUCode, "34");
    EXPECT_EQ(state.GMUFontName, "OCR-B");
}

TEST_F(StartUpTest, ReadsTheRegionalSettings) {
    Start();
    EXPECT_EQ(state.CurrencySymbol, "€");
    EXPECT_EQ(state.MonetaryDecimal, ",");
    EXPECT_EQ(state.MonetaryThousand, ".");
}

TEST_F(StartUpTest, TakesOnlyNumberOneForTrue) {
    Set("GMUVerkeer", "1");
    Set("MatrixPrinter", "ja");
    Set("IncassantAfdrukken", "11");
    Start();
    EXPECT_TRUE(state.GMUVerkeer);
    EXPECT_FALSE(state.MatrixPrinter);
    EXPECT_FALSE(state.IncassantAfdrukken);
}

TEST_F(StartUpTest, RenewsTheCalibrationAndLeavesTheCreditor) {
    Set("OCRLinks0", "1,00");
    Set("AcceptgiroType", "1");
    Set("IncassantBegunstigde", "Eerst");
    Start();
    state.IncassantBegunstigde = "Bewerkt";
    memory.registry.SetText(SettingsPath, "AcceptgiroType", "3");
    memory.registry.SetText(SettingsPath, "OCRLinks0", "2,00");
    memory.registry.SetText(SettingsPath, "IncassantBegunstigde", "Anders");
    state::LaadInstellingen(state, memory.registry, false);
    EXPECT_EQ(state.AcceptgiroType, 3);
    EXPECT_EQ(state.OCRLinks[0], "2,00");
    EXPECT_EQ(state.IncassantBegunstigde, "Bewerkt");
    EXPECT_EQ(form->UserText(70).Text(), "Eerst");
}

} // namespace
} // namespace wizard
