#include "composition/PrintFormulier.h"

#include <array>
#include <string>

#include "base/Numbers.h"
#include "composition/FormRows.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "state/Settings.h"

namespace composition {

namespace {

constexpr std::string_view PlainFont = "Tahoma";

enum Text : std::size_t {
    omschrijving1,
    omschrijving2,
    omschrijvingen, ///< both, with a blank between
    euro,
    cent,
    rekening,
    regel0,
    naam,
    partner,
    regel3,
    adres,
    plaats,
    textCount
};
enum Font : std::size_t { plain9, plain10, plain11, ocr, aboveName, nameAndAddress, fontCount };
enum Shift : std::size_t { payer, shiftCount };

constexpr std::array<FormRow, 15> NarrowRows = {{
    {.text = omschrijving1,
     .when = RowWhen::NoPaymentTraffic,
     .xCm = 0.5,
     .yCm = 1.3,
     .clip = true,
     .leastXTwips = 0},
    {.text = omschrijving2,
     .when = RowWhen::NoPaymentTraffic,
     .xCm = 0.5,
     .yCm = 1.8,
     .clip = true,
     .leastXTwips = 0},
    {.text = euro, .xCm = 2.1, .yCm = 3, .way = RowWay::RightEdge},
    {.text = cent, .xCm = 3.2, .way = RowWay::RightEdge},
    {.text = omschrijvingen, .xCm = 10.3, .yCm = 0.8},
    {.text = euro, .font = ocr, .xCm = 6.9, .yCm = 1.75, .way = RowWay::RightEdge},
    {.text = cent, .xCm = 8.1},
    {.text = rekening, .when = RowWhen::Filled, .xCm = 4.5, .yCm = 3},
    {.text = regel0, .font = aboveName, .xCm = 6.5, .yCm = 4, .shift = payer},
    {.text = regel0, .when = RowWhen::Filled, .way = RowWay::LineFeed, .lines = 1},
    {.text = naam, .font = nameAndAddress, .xCm = 6.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = partner, .when = RowWhen::Filled, .xCm = 6.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = regel3, .when = RowWhen::Filled, .xCm = 6.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = adres, .xCm = 6.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = plaats, .xCm = 6.5, .shift = payer, .way = RowWay::PrintLine},
}};

constexpr std::array<FormRow, 13> WideRows = {{
    {.text = omschrijving1, .when = RowWhen::NoPaymentTraffic, .xCm = 0.5, .yCm = 1.3, .leastXTwips = 0},
    {.text = omschrijving2, .when = RowWhen::NoPaymentTraffic, .xCm = 0.5, .yCm = 1.8, .leastXTwips = 0},
    {.text = euro, .xCm = 3, .yCm = 3, .way = RowWay::RightEdge},
    {.text = cent, .xCm = 4.2, .way = RowWay::RightEdge},
    {.text = omschrijvingen, .xCm = 11, .yCm = 1},
    {.text = euro, .font = plain11, .xCm = 8.2, .yCm = 1.75, .way = RowWay::RightEdge},
    {.text = cent, .xCm = 10, .way = RowWay::RightEdge},
    {.text = rekening, .when = RowWhen::Filled, .xCm = 8.5, .yCm = 3, .way = RowWay::RightEdge},
    {.text = regel0, .font = plain9, .xCm = 7.5, .yCm = 4, .shift = payer},
    {.way = RowWay::LineFeed, .lines = 1},
    {.text = naam, .font = plain10, .xCm = 7.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = adres, .xCm = 7.5, .shift = payer, .way = RowWay::PrintLine},
    {.text = plaats, .xCm = 7.5, .shift = payer, .way = RowWay::PrintLine},
}};

/// Sizes of the payer's block that an organisation can set for itself, in points.
struct SizeSetting {
    const char* name;
    double standardPoints;
};
constexpr SizeSetting SizeAboveName = {"AcceptFontSizeNAW1", 9};
constexpr SizeSetting SizeNameAndAddress = {"AcceptFontSizeNAW2", 10};

double ReadSize(const state::AppState& state, machine::Platform& platform, const SizeSetting& setting) {
    std::string text = state::LeesInstelling(state, platform.Registry, setting.name);
    std::erase(text, '\0');
    const double points = base::NumericValue(text);
    return points == 0 ? setting.standardPoints : points;
}

} // namespace

void PrintFormulier(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    const FormulierTekst& tekst, std::int16_t positie) {
    positie = PlaceOf(state, positie);
    std::array<FontChange, fontCount> fonts = {};
    fonts[plain9] = {.name = PlainFont, .points = 9, .newLineHeight = true};
    fonts[plain10] = {.name = PlainFont, .points = 10, .newLineHeight = true};
    fonts[plain11] = {.name = PlainFont, .points = 11, .newLineHeight = true};
    ChangeFont(state, platform, fonts[plain9], true);

    machine::Locale& locale = platform.Locale;
    std::array<RowShift, shiftCount> shifts;
    shifts[payer] = CalibratedShift(state, locale, state.AcceptGiroNAWLinks, state.AcceptGiroNAWTop, positie);
    std::string both;
    both.append(tekst.omschrijving1).append(" ").append(tekst.omschrijving2);
    std::array<std::string_view, textCount> texts;
    texts[omschrijving1] = tekst.omschrijving1;
    texts[omschrijving2] = tekst.omschrijving2;
    texts[omschrijvingen] = both;
    texts[euro] = tekst.euro;
    texts[cent] = tekst.cent;
    texts[rekening] = tekst.rekening;
    texts[regel0] = tekst.regel0;
    texts[naam] = tekst.naam;
    texts[partner] = tekst.partner;
    texts[regel3] = tekst.regel3;
    texts[adres] = tekst.adres;
    texts[plaats] = tekst.plaats;
    const RowValues values = {.texts = texts,
                              .fonts = fonts,
                              .shifts = shifts,
                              .corner = CalibratedForm(state, locale, corner, positie),
                              .measureOnPrinter = smalleStub};
    if (!smalleStub) {
        DrawRows(state, platform, WideRows, values);
        return;
    }
    fonts[ocr] = {
        .name = state.GMUFontName, .points = base::NumericValue(state.GMUFontSize), .newLineHeight = true};
    fonts[aboveName] = {
        .name = PlainFont, .points = ReadSize(state, platform, SizeAboveName), .newLineHeight = true};
    fonts[nameAndAddress] = {
        .name = PlainFont, .points = ReadSize(state, platform, SizeNameAndAddress), .newLineHeight = true};
    DrawRows(state, platform, NarrowRows, values);
}

} // namespace composition
