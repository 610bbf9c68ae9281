// Prints a batch of test forms to a PDF file through the program's own run, and tells beside it, as JSON,
// what was set and what was drawn by chance. check_forms.py reads both.
//
// print_forms FOLDER TYPE CONTRACT TRAFFIC COUNT

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <QApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "composition/DocumentRun.h"
#include "composition/PrinterMeasures.h"
#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "machine/SeededRandom.h"
#include "memory/MemoryPlatform.h"
#include "state/AppState.h"
#include "support/FakeRunHost.h"
#include "support/StoredSettings.h"
#include "testdata/TestDocument.h"

namespace {

constexpr std::uint64_t ChanceStart = 20260315;
constexpr machine::DateTime Moment = {2026, 3, 15, 10, 20, 30, 400};
constexpr std::size_t Places = 4;

const char* const SettingsPath = "Software\\Ondor\\Proef";

/// A setting that has one text for each place of a form.
struct Calibrated {
    const char* name;
    state::Calibration state::AppState::*field;
    std::array<const char*, Places> texts;
};

const std::array<Calibrated, 10> Calibrations = {{
    {"AcceptGiroLinks", &state::AppState::AcceptGiroLinks, {"", "0,5", "-0,3", "1"}},
    {"AcceptGiroTop", &state::AppState::AcceptGiroTop, {"", "-0,7", "0,4", "-1,5"}},
    {"AcceptGiroNAWLinks", &state::AppState::AcceptGiroNAWLinks, {"1,25", "", "-2", "0,5"}},
    {"AcceptGiroNAWTop", &state::AppState::AcceptGiroNAWTop, {"-1", "2", "", "0,75"}},
    {"AcceptGiroBKSoucheLinks", &state::AppState::AcceptGiroBKSoucheLinks, {"0,3", "-0,6", "1", ""}},
    {"AcceptGiroBKSoucheTop", &state::AppState::AcceptGiroBKSoucheTop, {"", "0,2", "-0,4", "0,6"}},
    {"AcceptGiroBKAcceptLinks", &state::AppState::AcceptGiroBKAcceptLinks, {"0,1", "", "0,9", "-0,9"}},
    {"AcceptGiroBKAcceptTop", &state::AppState::AcceptGiroBKAcceptTop, {"-0,2", "0,8", "", "0,3"}},
    {"AcceptGiroBGSoucheLinks", &state::AppState::AcceptGiroBGSoucheLinks, {"0,7", "1,1", "0,2", ""}},
    {"AcceptGiroBGAcceptLinks", &state::AppState::AcceptGiroBGAcceptLinks, {"-0,4", "", "0,6", "1,3"}},
}};
const std::array<const char*, Places> StubTops = {"-0,5", "0,9", "", "0,2"};
const std::array<const char*, Places> AcceptTops = {"9", "9", "9", "9"}; // without effect
const std::array<const char*, Places> OcrLefts = {"0,4", "-0,2", "", "0,8"};
const std::array<const char*, Places> OcrTops = {"", "0,3", "-0,6", "0,5"};

QJsonArray ListOf(const std::array<const char*, Places>& texts) {
    QJsonArray list;
    for (const char* text : texts) {
        list.append(QString::fromLatin1(text));
    }
    return list;
}

QString TextOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The state as the start-up and the wizard's pages leave it, and the same for the reader.
QJsonObject FillState(state::AppState& state, memory::MemoryRegistry& registry) {
    state.SettingsKey = SettingsPath;
    registry.CreateKey(SettingsPath);
    registry.SetText(SettingsPath, "AcceptFontSizeNAW1", "8");
    registry.SetText(SettingsPath, "AcceptFontSizeNAW2", "11");
    state.TwipsPerCm = 567;
    state.LeftMargin = 450;
    state.PersonTable = &testdata::PersonTable();
    state.AccountTable = &testdata::AccountTable();
    state.GMUFontName = "OCR-B";
    state.GMUFontSize = "10";
    state.GMUServiceNr = "4711";
    state.IncassantAfdrukken = true;
    state.IncassantBegunstigde = "Stichting Voorbeeld tot Nut van het Algemeen te Proefdorp aan Zee";
    state.IncassantAdres = "Dorpsstraat 12";
    state.IncassantPostCode = "1234AB";
    state.IncassantWoonplaats = "Proefdorp";
    state.IncassantBankGiro = "NL13ABNA0500000018";

    QJsonObject settings;
    for (const Calibrated& each : Calibrations) {
        for (std::size_t i = 0; i < Places; ++i) {
            (state.*each.field)[i] = each.texts[i];
        }
        settings[QString::fromLatin1(each.name)] = ListOf(each.texts);
    }
    for (std::size_t i = 0; i < Places; ++i) {
        state.AcceptGiroBGSoucheTop[i] = StubTops[i];
        state.AcceptGiroBGAcceptTop[i] = AcceptTops[i];
        state.OCRLinks[i] = OcrLefts[i];
        state.OCRTop[i] = OcrTops[i];
    }
    settings["AcceptGiroBGSoucheTop"] = ListOf(StubTops);
    settings["OCRLinks"] = ListOf(OcrLefts);
    settings["OCRTop"] = ListOf(OcrTops);
    settings["AcceptFontSizeNAW2"] = 11;
    settings["GMUFontSize"] = 10;
    settings["GMUServiceNr"] = "4711";
    settings["Begunstigde"] = TextOf(state.IncassantBegunstigde);
    settings["Adres"] = TextOf(state.IncassantAdres);
    settings["PostCode"] = TextOf(state.IncassantPostCode);
    settings["Woonplaats"] = TextOf(state.IncassantWoonplaats);
    settings["BankGiro"] = TextOf(state.IncassantBankGiro);
    return settings;
}

/// The values of the forms, drawn once more by the same chance.
QJsonArray DrawDocuments(const machine::Clock& clock, int count) {
    machine::SeededRandom chance(ChanceStart);
    testdata::DrawState draw;
    testdata::TestDocument document;
    QJsonArray documents;
    for (int i = 0; i < count; ++i) {
        testdata::DrawTestDocument(draw, {chance, clock}, document);
        draw.Rij = draw.Rij < testdata::LastRij ? draw.Rij + 1 : 0;
        documents.append(QJsonObject{{"naam", TextOf(document.naam)},
                                     {"partner", TextOf(document.partner)},
                                     {"adres", TextOf(document.adres)},
                                     {"postcode", TextOf(document.postcode)},
                                     {"woonplaats", TextOf(document.woonplaats)},
                                     {"rekening", TextOf(document.rekening)},
                                     {"euro", TextOf(document.euro)},
                                     {"cent", TextOf(document.cent)},
                                     {"volgnummer", TextOf(document.volgnummertekst)}});
    }
    return documents;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 6) {
        std::fputs("print_forms FOLDER TYPE CONTRACT TRAFFIC COUNT\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const int count = static_cast<int>(std::strtol(argv[5], nullptr, 10));

    memory::MemoryPlatform memory;
    memory.clock.Set(Moment);
    machine::SeededRandom chance(ChanceStart);
    desktop::qt::QtPrinters printers(
        std::make_unique<desktop::qt::PdfPrinter>([&folder](const QString&) { return folder + "/forms.pdf"; },
                                                  folder + "/settings.conf"),
        [] { return desktop::cups::FoundQueues{}; });
    desktop::qt::QtPrinter printer(printers,
                                   [](const std::string& text) { std::fputs(text.c_str(), stderr); });
    machine::Platform services{memory.desktop, memory.registry,          memory.locale, memory.clock,
                               chance,         memory.spooler,           printers,      printer,
                               memory.bitmaps, memory.desktop.Windows(), memory.fonts};

    state::AppState state;
    QJsonObject record = FillState(state, memory.registry);
    state.AcceptgiroType = static_cast<std::int16_t>(std::strtol(argv[2], nullptr, 10));
    state.GMUContractVorm = static_cast<std::int16_t>(std::strtol(argv[3], nullptr, 10));
    state.GMUVerkeer = std::strtol(argv[4], nullptr, 10) != 0;
    record["type"] = state.AcceptgiroType;
    record["contract"] = state.GMUContractVorm;
    record["traffic"] = bool(state.GMUVerkeer);
    record["month"] = Moment.Month;
    record["year"] = Moment.Year;
    record["documents"] = DrawDocuments(memory.clock, count);

    support::FakeRunHost host(state, services);
    host.count = std::to_string(count);
    support::StoreRunSettings(memory.registry, state);
    composition::LeesPrinterMaten(state, services);
    composition::ComposeDocument(state, services, host.printer, host,
                                 {.iMethod = composition::DocumentTestForms});

    QFile file(folder + "/forms.json");
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(record).toJson()) < 0) {
        return 1;
    }
    return 0;
}
