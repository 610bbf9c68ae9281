#include "WizardFixture.h"

namespace wizard {
namespace {

/// Every setting that the program reads, by its key.
std::vector<std::string> AllSettings() {
    std::vector<std::string> names{
        "PrinterOrientation",
        "IncassantBegunstigde",
        "IncassantAdres",
        "IncassantPostCode",
        "IncassantWoonplaats",
        "IncassantBankGiro",
        "IncassantAfdrukken",
        "AcceptgiroType",
        "GMUContractVorm",
        "GMUFontName",
        "GMUCode",
        "GMUServiceNr",
        "GMUFontSize",
        "GMUVerkeer",
        "UseSpecificPrinterSettings",
        "MatrixPrinter",
        "PrinterOverrulePaperSize",
        "CurrentPrinter",
        "AcceptFontSizeNAW1",
        "AcceptFontSizeNAW2",
        "PrinterInit",
    };
    for (const char* stem : {"OCR", "AcceptGiro", "AcceptGiroNAW", "AcceptGiroBKSouche", "AcceptGiroBKAccept",
                             "AcceptGiroBGSouche", "AcceptGiroBGAccept"}) {
        for (const char* direction : {"Links", "Top"}) {
            for (int place = 0; place < 4; ++place) {
                names.push_back(stem + std::string(direction) + std::to_string(place));
            }
        }
    }
    return names;
}

struct HostileValue {
    const char* Name;
    std::string Text;
};

const std::vector<HostileValue>& HostileValues() {
    static const std::vector<HostileValue> values{
        {"Empty", ""},
        {"OneNul", std::string(1, '\0')},
        {"NulWithin", std::string("1\0002", 3)},
        {"Long", std::string(100000, 'W')},
        {"LongNumber", std::string(100000, '9')},
        {"Accented", "Ünïtéé ñ €"},
        {"NonLatin", "Жук 支払い"},
        {"LineBreaks", "een\r\ntwee\t\x7f"},
        {"TooLarge", "99999999999999999999"},
        {"TooSmall", "-2147483649"},
        {"Infinite", "1e999"},
        {"JustTooLarge", "32768"},
        {"Fraction", "0,0000001"},
        {"ManyBlanks", std::string(5000, ' ') + "1"},
    };
    return values;
}

class HostileSettingsTest : public WizardTest, public testing::WithParamInterface<HostileValue> {};

// The documents are asked for as the print manager does it; a run that ends has drawn what could be drawn.
TEST_P(HostileSettingsTest, LeaveTheProgramWholeWhicheverSettingHoldsIt) {
    memory::PrintQueue queue;
    queue.Name = "Laser";
    memory.InstallPrinter(queue);

    for (const std::string& hostile : AllSettings()) {
        SCOPED_TRACE(hostile);
        memory.registry.RemoveKey(SettingsPath);
        memory.registry.CreateKey(SettingsPath);
        Set("AcceptgiroType", "1");
        Set("GMUContractVorm", "31");
        Set("GMUVerkeer", "1");
        Set("GMUFontSize", "10");
        Set("IncassantAfdrukken", "1");
        Set("IncassantBegunstigde", "Stichting Voorbeeld");
        Set("IncassantBankGiro", "NL13ABNA0500000018");
        Set(hostile, GetParam().Text);

        int ends = 0;
        int errors = 0;
        memory.recorder.Sink = [&](const memory::Event& event) {
            ends += event.Kind == "end" ? 1 : 0;
            errors += event.Kind == "error" ? 1 : 0;
        };
        Start();
        form->UserText(0).SetText("4");
        for (std::int16_t document = 1; document <= 3; ++document) {
            form->Afdrukken(document, 1, false);
        }
        EXPECT_EQ(ends, 3);
        EXPECT_EQ(errors, 0);
        EXPECT_TRUE(MessageTexts().empty());
        EXPECT_TRUE(form->UserClose());
        form.reset();
    }
}

INSTANTIATE_TEST_SUITE_P(Values, HostileSettingsTest, testing::ValuesIn(HostileValues()),
                         [](const auto& value) { return std::string(value.param.Name); });

} // namespace
} // namespace wizard
