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
    Omschrijving1,
    Omschrijving2,
    Omschrijvingen, ///< both, with a blank between
    Euro,
    Cent,
    Rekening,
    Regel0,
    Naam,
    Partner,
    Regel3,
    Adres,
    Plaats,
    TextCount
};
enum Font : std::size_t { Plain9, Plain10, Plain11, Ocr, AboveName, NameAndAddress, FontCount };
enum Shift : std::size_t { Payer, ShiftCount };

// The fields, the same on both kinds of form.
constexpr FormField StubDescription = {"de omschrijving op de souche"};
constexpr FormField StubDescription2 = {"de tweede omschrijving op de souche"};
constexpr FormField StubEuros = {"het bedrag in euro's op de souche"};
constexpr FormField StubCents = {"het bedrag in centen op de souche"};
constexpr FormField Description = {"de omschrijving"};
constexpr FormField Euros = {"het bedrag in euro's"};
constexpr FormField Cents = {"het bedrag in centen"};
constexpr FormField PayersAccount = {"de rekening van de betaler"};
constexpr FormField PayersName = {"de naam van de betaler", state::CalibratedBlock::Payer};
constexpr FormField PayersPartner = {"de tweede naam van de betaler", state::CalibratedBlock::Payer};
constexpr FormField PayersAddress = {"het adres van de betaler", state::CalibratedBlock::Payer};
constexpr FormField PayersTown = {"de postcode en plaats van de betaler", state::CalibratedBlock::Payer};
constexpr FormField PayersLine = {"de extra regel van de betaler", state::CalibratedBlock::Payer};

constexpr std::array<FormRow, 15> NarrowRows = {{
    {.Field = StubDescription,
     .Text = Omschrijving1,
     .When = RowWhen::NoPaymentTraffic,
     .XCm = 0.5,
     .YCm = 1.3,
     .Clip = true,
     .LeastXTwips = 0},
    {.Field = StubDescription2,
     .Text = Omschrijving2,
     .When = RowWhen::NoPaymentTraffic,
     .XCm = 0.5,
     .YCm = 1.8,
     .Clip = true,
     .LeastXTwips = 0},
    {.Field = StubEuros, .Text = Euro, .XCm = 2.1, .YCm = 3, .Way = RowWay::RightEdge},
    {.Field = StubCents, .Text = Cent, .XCm = 3.2, .Way = RowWay::RightEdge},
    {.Field = Description, .Text = Omschrijvingen, .XCm = 10.3, .YCm = 0.8},
    {.Field = Euros, .Text = Euro, .Font = Ocr, .XCm = 6.9, .YCm = 1.75, .Way = RowWay::RightEdge},
    {.Field = Cents, .Text = Cent, .XCm = 8.1},
    {.Field = PayersAccount, .Text = Rekening, .When = RowWhen::Filled, .XCm = 4.5, .YCm = 3},
    {.Field = PayersLine, .Text = Regel0, .Font = AboveName, .XCm = 6.5, .YCm = 4, .Shift = Payer},
    {.Text = Regel0, .When = RowWhen::Filled, .Way = RowWay::LineFeed, .Lines = 1},
    {.Field = PayersName,
     .Text = Naam,
     .Font = NameAndAddress,
     .XCm = 6.5,
     .Shift = Payer,
     .Way = RowWay::PrintLine},
    {.Field = PayersPartner,
     .Text = Partner,
     .When = RowWhen::Filled,
     .XCm = 6.5,
     .Shift = Payer,
     .Way = RowWay::PrintLine},
    {.Field = PayersLine,
     .Text = Regel3,
     .When = RowWhen::Filled,
     .XCm = 6.5,
     .Shift = Payer,
     .Way = RowWay::PrintLine},
    {.Field = PayersAddress, .Text = Adres, .XCm = 6.5, .Shift = Payer, .Way = RowWay::PrintLine},
    {.Field = PayersTown, .Text = Plaats, .XCm = 6.5, .Shift = Payer, .Way = RowWay::PrintLine},
}};

constexpr std::array<FormRow, 13> WideRows = {{
    {.Field = StubDescription,
     .Text = Omschrijving1,
     .When = RowWhen::NoPaymentTraffic,
     .XCm = 0.5,
     .YCm = 1.3,
     .LeastXTwips = 0},
    {.Field = StubDescription2,
     .Text = Omschrijving2,
     .When = RowWhen::NoPaymentTraffic,
     .XCm = 0.5,
     .YCm = 1.8,
     .LeastXTwips = 0},
    {.Field = StubEuros, .Text = Euro, .XCm = 3, .YCm = 3, .Way = RowWay::RightEdge},
    {.Field = StubCents, .Text = Cent, .XCm = 4.2, .Way = RowWay::RightEdge},
    {.Field = Description, .Text = Omschrijvingen, .XCm = 11, .YCm = 1},
    {.Field = Euros, .Text = Euro, .Font = Plain11, .XCm = 8.2, .YCm = 1.75, .Way = RowWay::RightEdge},
    {.Field = Cents, .Text = Cent, .XCm = 10, .Way = RowWay::RightEdge},
    {.Field = PayersAccount,
     .Text = Rekening,
     .When = RowWhen::Filled,
     .XCm = 8.5,
     .YCm = 3,
     .Way = RowWay::RightEdge},
    {.Field = PayersLine, .Text = Regel0, .Font = Plain9, .XCm = 7.5, .YCm = 4, .Shift = Payer},
    {.Way = RowWay::LineFeed, .Lines = 1},
    {.Field = PayersName,
     .Text = Naam,
     .Font = Plain10,
     .XCm = 7.5,
     .Shift = Payer,
     .Way = RowWay::PrintLine},
    {.Field = PayersAddress, .Text = Adres, .XCm = 7.5, .Shift = Payer, .Way = RowWay::PrintLine},
    {.Field = PayersTown, .Text = Plaats, .XCm = 7.5, .Shift = Payer, .Way = RowWay::PrintLine},
}};

/// Sizes of the payer's block that an organisation can set for itself, in points.
struct SizeSetting {
    const char* Name;
    double StandardPoints;
};
constexpr SizeSetting SizeAboveName = {"AcceptFontSizeNAW1", 9};
constexpr SizeSetting SizeNameAndAddress = {"AcceptFontSizeNAW2", 10};

double ReadSize(const state::AppState& state, machine::Platform& platform, const SizeSetting& setting) {
    std::string text = state::LeesInstelling(state, platform.Registry, setting.Name);
    std::erase(text, '\0');
    const double points = base::NumericValue(text);
    return points == 0 ? setting.StandardPoints : points;
}

} // namespace

void PrintFormulier(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    const FormulierTekst& tekst, std::int16_t positie) {
    positie = PlaceOf(state, positie);
    std::array<FontChange, FontCount> fonts = {};
    fonts[Plain9] = {.Name = PlainFont, .Points = 9, .NewLineHeight = true};
    fonts[Plain10] = {.Name = PlainFont, .Points = 10, .NewLineHeight = true};
    fonts[Plain11] = {.Name = PlainFont, .Points = 11, .NewLineHeight = true};
    ChangeFont(state, platform, fonts[Plain9], true);

    machine::Locale& locale = platform.Locale;
    std::array<RowShift, ShiftCount> shifts;
    shifts[Payer] = CalibratedShift(state, locale, state.AcceptGiroNAWLinks, state.AcceptGiroNAWTop, positie);
    std::string both;
    both.append(tekst.omschrijving1).append(" ").append(tekst.omschrijving2);
    std::array<std::string_view, TextCount> texts;
    texts[Omschrijving1] = tekst.omschrijving1;
    texts[Omschrijving2] = tekst.omschrijving2;
    texts[Omschrijvingen] = both;
    texts[Euro] = tekst.euro;
    texts[Cent] = tekst.cent;
    texts[Rekening] = tekst.rekening;
    texts[Regel0] = tekst.regel0;
    texts[Naam] = tekst.naam;
    texts[Partner] = tekst.partner;
    texts[Regel3] = tekst.regel3;
    texts[Adres] = tekst.adres;
    texts[Plaats] = tekst.plaats;
    const RowValues values = {.Texts = texts,
                              .Fonts = fonts,
                              .Shifts = shifts,
                              .Corner = CalibratedForm(state, locale, corner, positie),
                              .MeasureOnPrinter = smalleStub};
    if (!smalleStub) {
        DrawRows(state, platform, WideRows, values);
        return;
    }
    fonts[Ocr] = {
        .Name = state.GMUFontName, .Points = base::NumericValue(state.GMUFontSize), .NewLineHeight = true};
    fonts[AboveName] = {
        .Name = PlainFont, .Points = ReadSize(state, platform, SizeAboveName), .NewLineHeight = true};
    fonts[NameAndAddress] = {
        .Name = PlainFont, .Points = ReadSize(state, platform, SizeNameAndAddress), .NewLineHeight = true};
    DrawRows(state, platform, NarrowRows, values);
}

} // namespace composition
