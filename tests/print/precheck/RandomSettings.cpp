#include "print/precheck/RandomSettings.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "base/Units.h"
#include "desktop/cups/PaperTable.h"
#include "machine/Printer.h"
#include "machine/SeededRandom.h"
#include "state/CalibrationBlocks.h"
#include "support/StoredSettings.h"
#include "testdata/TestDocument.h"

namespace random_print {

namespace {

constexpr const char* SettingsPath = "Software\\Ondor\\Proef";

class Chance {
  public:
    explicit Chance(std::uint64_t number) : values_(number * 1'000'003) {}

    double Between(double least, double most) { return least + values_.Rnd() * (most - least); }
    int Between(int least, int most) {
        return least + static_cast<int>(std::floor(values_.Rnd() * (most - least + 1)));
    }
    bool OneIn(int many) { return Between(1, many) == 1; }
    template <class Value, std::size_t Count>
    const Value& Pick(const std::array<Value, Count>& values) {
        return values[static_cast<std::size_t>(Between(0, static_cast<int>(Count) - 1))];
    }

  private:
    machine::SeededRandom values_;
};

constexpr std::array<std::int16_t, 12> Types = {1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 0};
constexpr std::array<std::int16_t, 12> Contracts = {31, 31, 31, 32, 32, 32, 34, 33, 2, 1, 0, -1};
constexpr std::array<const char*, 9> OcrFonts = {"OCR-B", "OCR-B",  "OCR-B",      "OCR-B",           "OCR-B",
                                                 "OCR B", "Tahoma", "OCR-B Niet", "DejaVu Sans Mono"};
constexpr std::array<const char*, 12> OcrSizes = {"10", "10", "10", "10",   "10",   "8",
                                                  "9",  "11", "12", "12.5", "13.5", "14"};
constexpr std::array<const char*, 7> SizesOfNames = {"", "8", "10", "10", "11.5", "14", "20"};
constexpr std::array<const char*, 9> CreditorNames = {
    "",
    "Ab",
    "Stichting Wijkorkest De Lijster",
    "Coöperatieve Vereniging „Ĳsselmeer & Zoën” u.a.",
    "FJORDBANK QJgy (çÅÉ)",
    "Общество Ωmega ł",
    "Stichting tot Behoud van het Erfgoed der Vissersdorpen aan de Zuidelijke Zeearmen en Eilanden",
    "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW",
    "   Voorbeeld   ",
};
constexpr std::array<const char*, 5> Addresses = {
    "Dorpsstraat 12", "", "1",
    "Burgemeester van der Hoeven-van Oranje Nassaulaan 1234 bis, gebouw C-17, 3 hoog", "Gele Gang 9 ĳ"};
constexpr std::array<const char*, 4> Postcodes = {"1234AB", "1234 AB", "", "B-2000"};
constexpr std::array<const char*, 5> Towns = {"Zandwijk", "", "Nieuwerkerk aan den IJssel",
                                              "'s-Gravenhage, Koninkrijk der Nederlanden, West-Europa", "Ý"};
constexpr std::array<const char*, 7> Accounts = {"NL13ABNA0500000018",
                                                 "NL13ABNA0500000018",
                                                 "NL13ABNA0500000018",
                                                 "NL44RABO0123456789",
                                                 "",
                                                 "123456789",
                                                 "BE68 5390 0754 7034 en nog meer dan dat"};
constexpr std::array<const char*, 4> ServiceNumbers = {"104628", "", "   7",
                                                       "9876543210987654321098765432109876543210"};
constexpr std::array<const char*, 6> NoNumbers = {"1.5", "1,2,3", "twee", "-", "99999999999999", "1e3"};

constexpr std::array<double, 2> Legal = {215.9, 355.6};

/// Width and height in millimetres. The first is twice as likely as the others.
constexpr std::array<std::array<double, 2>, 9> Sheets = {{{210, 304.8},
                                                          {210, 304.8},
                                                          {210, 297},
                                                          Legal,
                                                          {215.9, 279.4},
                                                          {180, 304.8},
                                                          {148, 210},
                                                          {105, 310},
                                                          {297, 420}}};

double TwipsOf(double millimetres) {
    return millimetres / base::MillimetresPerInch * base::TwipsPerInch;
}

std::string DecimalText(double value, char mark) {
    std::array<char, 32> room;
    std::snprintf(room.data(), room.size(), "%.2f", value);
    std::string text(room.data());
    for (char& c : text) {
        c = c == '.' ? mark : c;
    }
    return text;
}

/// Most printers are a few millimetres off; some values are slips of the user's.
std::string CalibrationText(Chance& chance, double largest, char mark) {
    if (chance.OneIn(25)) {
        return chance.Pick(NoNumbers);
    }
    return chance.OneIn(5) ? std::string() : DecimalText(chance.Between(-largest, largest), mark);
}

desktop::cups::Paper DrawPaper(Chance& chance, std::int16_t id, const std::array<double, 2>& size) {
    const bool sameAllRound = chance.OneIn(2);
    const double margin = chance.OneIn(4) ? 0 : chance.Between(0.0, 10.0);
    const auto strip = [&] { return TwipsOf(sameAllRound ? margin : chance.Between(0.0, 10.0)); };
    desktop::cups::Paper paper;
    paper.Id = id;
    paper.Width = TwipsOf(size[0]);
    paper.Height = TwipsOf(size[1]);
    paper.Left = strip();
    paper.Top = strip();
    paper.Right = strip();
    paper.Bottom = strip();
    return paper;
}

void DrawCalibration(Chance& chance, state::AppState& state, char mark) {
    constexpr std::array<double, 8> spreads = {0.5, 1.5, 1.5, 1.5, 4, 12, 40, 300};
    const double usual = chance.Pick(spreads);
    for (const auto& block : state::CalibrationBlocks(state)) {
        for (std::size_t place = 0; place < state::CalibratedPlaces; ++place) {
            for (std::string* value : {&block.X[place], &block.Y[place]}) {
                const double largest = chance.OneIn(12) ? 10 * usual : usual;
                *value = CalibrationText(chance, largest, mark);
            }
        }
    }
}

} // namespace

RandomSettings DrawSettings(std::uint64_t number) {
    Chance chance(number);
    RandomSettings settings;
    settings.DecimalMark = chance.OneIn(10) ? '.' : ',';
    settings.SizeOfNames = chance.Pick(SizesOfNames);
    settings.Papers = {DrawPaper(chance, desktop::cups::FirstPrivateId, chance.Pick(Sheets))};
    if (chance.OneIn(2)) {
        settings.Papers.push_back(DrawPaper(chance, machine::PaperLegal, Legal));
    }

    state::AppState& state = settings.State;
    state.SettingsKey = SettingsPath;
    state.TwipsPerCm = 567;
    state.PersonTable = &testdata::PersonTable();
    state.AccountTable = &testdata::AccountTable();
    state.AcceptgiroType = chance.Pick(Types);
    state.GMUContractVorm = chance.Pick(Contracts);
    state.GMUVerkeer = !chance.OneIn(8);
    state.GMUFontName = chance.Pick(OcrFonts);
    state.GMUFontSize = chance.Pick(OcrSizes);
    state.GMUServiceNr = chance.Pick(ServiceNumbers);
    state.IncassantAfdrukken = !chance.OneIn(8);
    state.IncassantBegunstigde = chance.Pick(CreditorNames);
    state.IncassantAdres = chance.Pick(Addresses);
    state.IncassantPostCode = chance.Pick(Postcodes);
    state.IncassantWoonplaats = chance.Pick(Towns);
    state.IncassantBankGiro = chance.Pick(Accounts);
    state.OverrulePaperSize = chance.OneIn(8);
    state.MatrixPrinter = chance.OneIn(8);
    DrawCalibration(chance, state, settings.DecimalMark);

    settings.Intent.Forms = chance.Between(3, 6);
    settings.Intent.Copies = chance.OneIn(8) ? 2 : 1;
    settings.Intent.Orientation = chance.OneIn(10) ? machine::Landscape : machine::Portrait;
    state.PrinterOrientation = settings.Intent.Orientation;
    return settings;
}

const desktop::cups::Paper& PrintedPaper(const RandomSettings& settings) {
    const bool isForced = settings.State.OverrulePaperSize && !settings.State.MatrixPrinter;
    return isForced ? settings.Papers.back()
                    : settings.Papers.front(); // which is one where there is no Legal
}

void StoreSettings(memory::MemoryRegistry& registry, const RandomSettings& settings) {
    registry.CreateKey(SettingsPath);
    registry.SetText(SettingsPath, "AcceptFontSizeNAW2", settings.SizeOfNames);
    support::StoreRunSettings(registry, settings.State);
}

} // namespace random_print
