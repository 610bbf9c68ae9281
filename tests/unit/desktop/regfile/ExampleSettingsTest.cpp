// The example that new users start from, and the settings that tests print with.
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "payment/Accounts.h"
#include "payment/Iban.h"
#include "unit/desktop/regfile/RegFileStoreFixture.h"

namespace {

using namespace desktop::regfile;
using namespace std::string_literals;
namespace fs = std::filesystem;

class ExampleSettingsTest : public RegFileStoreTest {
  protected:
    const fs::path example = EXAMPLE;
    RegFileStore store{example};

    /// Of every part of a form at every place, in millimetres.
    std::vector<double> Calibrations(RegFileStore& settings) {
        std::vector<double> millimetres;
        for (const char* const stem : {"OCR", "AcceptGiro", "AcceptGiroNAW", "AcceptGiroBKSouche",
                                       "AcceptGiroBKAccept", "AcceptGiroBGSouche", "AcceptGiroBGAccept"}) {
            for (const char* const axis : {"Links", "Top"}) {
                for (int index = 0; index < 4; ++index) {
                    std::string text = Read(settings, stem + std::string(axis) + std::to_string(index));
                    const std::size_t comma = text.find(',');
                    EXPECT_NE(comma, std::string::npos) << stem << axis << index;
                    text.replace(comma, 1, ".");
                    millimetres.push_back(std::stod(text));
                }
            }
        }
        return millimetres;
    }
};

TEST_F(ExampleSettingsTest, IsAnExportOfWindows) {
    const std::string bytes = Bytes(example);
    EXPECT_TRUE(bytes.starts_with("\xFF\xFEW\0i\0n\0"s));
    EXPECT_TRUE(bytes.ends_with("\r\0\n\0\r\0\n\0"s));
}

TEST_F(ExampleSettingsTest, HoldsEverySetting) {
    EXPECT_EQ(Read(store, "GMUContractVorm"), "31");
    EXPECT_EQ(Read(store, "AcceptgiroType"), "1");
    EXPECT_EQ(Read(store, "GMUVerkeer"), "1");
    EXPECT_EQ(Read(store, "GMUFontName"), "OCR B");
    EXPECT_EQ(Read(store, "GMUFontSize"), "10");
    EXPECT_EQ(Read(store, "IncassantBankGiro"), "NL91ABNA0417164300");
    EXPECT_EQ(Read(store, "IncassantAfdrukken"), "1");
    for (const char* const name :
         {"IncassantBegunstigde", "IncassantAdres", "IncassantPostCode", "IncassantWoonplaats",
          "PrinterOrientation", "GMUServiceNr", "GMUCode", "AcceptFontSizeNAW1", "AcceptFontSizeNAW2",
          "UseSpecificPrinterSettings", "MatrixPrinter", "PrinterOverrulePaperSize"}) {
        EXPECT_NE(Read(store, name), "") << name;
    }
}

TEST_F(ExampleSettingsTest, HasAnAccountThatPassesAtABankWithABic) {
    const std::string account = Read(store, "IncassantBankGiro");
    EXPECT_TRUE(payment::IBANCheck(account));
    EXPECT_TRUE(payment::BankGiroCheck(account));
    EXPECT_EQ(payment::IBAN2BIC(account), "ABNANL2A");
}

TEST_F(ExampleSettingsTest, CalibrationsAreThoseOfAPrinterThatIsNearlyRight) {
    EXPECT_THAT(Calibrations(store), testing::Each(testing::AllOf(testing::Ge(-0.3), testing::Le(0.3))));
}

TEST_F(ExampleSettingsTest, CalibrationsOfTheTestsCanAllBeToldApart) {
    RegFileStore settings(TOLD_APART);
    std::set<double> sizes;
    for (const double millimetres : Calibrations(settings)) {
        EXPECT_LE(std::abs(millimetres), 2.0);
        EXPECT_TRUE(sizes.insert(std::abs(millimetres)).second) << millimetres;
    }
}

TEST_F(ExampleSettingsTest, HasTheKeysOfEveryKindOfDocument) {
    for (const char* const kind : {"Etiketten", "Acceptgiro", "Persoonskaart", "Gezinskaart", "Overige"}) {
        machine::RegistryKey handle = 0;
        ASSERT_EQ(
            store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath + "\\PrinterSetting\\" + kind, handle),
            machine::RegSuccess)
            << kind;
        for (const char* const name : {"Printer", "Orientatie", "Formaat", "Lade", "Matrix"}) {
            std::uint32_t type = machine::RegNone;
            std::uint32_t size = 0;
            EXPECT_EQ(store.RegQueryValueExA(handle, name, type, nullptr, size), machine::RegSuccess)
                << kind << name;
        }
    }
}

TEST_F(ExampleSettingsTest, WriteChangesOneValue) {
    const std::string before = Bytes(example);
    Put(before);
    RegFileStore copy(file);
    EXPECT_TRUE(Write(copy, "PrinterOrientation", "2"));
    EXPECT_TRUE(Write(copy, "PrinterOrientation", "1"));
    EXPECT_EQ(Bytes(file), before);
}

} // namespace
