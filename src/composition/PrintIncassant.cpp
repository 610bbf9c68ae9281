#include "composition/PrintIncassant.h"

#include <array>
#include <string>

#include "composition/FormRows.h"
#include "machine/Platform.h"
#include "payment/TextRoutines.h"
#include "state/AppState.h"
#include "state/ContractTexts.h"

namespace composition {

namespace {

enum Text : std::size_t { Rekening, Naam, Plaats, Adresregel, TextCount };
enum Font : std::size_t { Account8, Stub6Bold, Regular, Accept9, Accept7, Accept7Bold, FontCount };
enum Shift : std::size_t { Stub, Accept, ShiftCount };

constexpr double StubLeastXTwips = 10;
constexpr double WideStubCm = 1; ///< by which the accept part begins further to the right
constexpr double StubPoints = 6;

constexpr std::array<FontChange, FontCount> FontsOfLines = [] {
    std::array<FontChange, FontCount> fonts = {};
    fonts[Account8] = {.Points = 8};
    fonts[Stub6Bold] = {.Points = 6, .Bold = true};
    fonts[Regular] = {.Bold = false};
    fonts[Accept9] = {.Points = 9, .NewLineHeight = true};
    fonts[Accept7] = {.Points = 7, .NewLineHeight = true};
    fonts[Accept7Bold] = {.Points = 7, .Bold = true};
    return fonts;
}();

constexpr auto OnStub = state::CalibratedBlock::CreditorOnStub;
constexpr auto OnAccept = state::CalibratedBlock::CreditorOnAccept;

constexpr std::array<FormRow, 12> Rows = {{
    {.Field = {"de rekening van de incassant op de souche", OnStub},
     .Text = Rekening,
     .Font = Account8,
     .XCm = 0.25,
     .YCm = 7,
     .Shift = Stub,
     .LeastXTwips = StubLeastXTwips},
    {.Way = RowWay::LineFeed, .Lines = 1.2},
    {.Field = {NameOnStub, OnStub},
     .Text = Naam,
     .Font = Stub6Bold,
     .XCm = 0.25,
     .Shift = Stub,
     .Clip = true,
     .LeastXTwips = StubLeastXTwips},
    {.Way = RowWay::LineFeed, .Lines = 1},
    {.Field = {TownOnStub, OnStub},
     .Text = Plaats,
     .XCm = 0.25,
     .Shift = Stub,
     .Clip = true,
     .LeastXTwips = StubLeastXTwips},
    {.Font = Regular, .Way = RowWay::LineFeed, .Lines = 1},
    {.Field = {"de rekening van de incassant", OnAccept},
     .Text = Rekening,
     .Font = Accept9,
     .XCm = 6.5,
     .YCm = 6.5,
     .Shift = Accept},
    {.Font = Accept7, .Way = RowWay::LineFeed, .Lines = 1.3},
    {.Field = {"de naam van de incassant", OnAccept},
     .Text = Naam,
     .Font = Accept7Bold,
     .XCm = 6.5,
     .Shift = Accept},
    {.Way = RowWay::LineFeed, .Lines = 1},
    {.Field = {"het adres van de incassant", OnAccept},
     .Text = Adresregel,
     .When = RowWhen::Filled,
     .XCm = 6.5,
     .Shift = Accept},
    {.Font = Regular},
}};

std::string AddressLine(const IncassantTekst& incassant) {
    std::string line;
    if (!incassant.adres.empty() && !incassant.postcode.empty() && !incassant.plaats.empty()) {
        std::string postcode(incassant.postcode);
        line.append(incassant.adres).append(", ");
        line.append(payment::PostcodeFormaat(postcode)).append("  ").append(incassant.plaats);
    }
    return line;
}

} // namespace

bool ContractPrintsIncassant(std::int16_t contractVorm) {
    return contractVorm != state::ContractNone && contractVorm != state::ContractA &&
           contractVorm != state::ContractB && contractVorm != state::ContractCPreprinted;
}

void PrintIncassant(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    IncassantTekst incassant, std::int16_t positie) {
    if (!ContractPrintsIncassant(state.GMUContractVorm) || !state.IncassantAfdrukken) {
        return;
    }
    if (state.GMUContractVorm == state::ContractCAccount) {
        incassant.naam = incassant.adres = incassant.postcode = incassant.plaats = {};
    }

    positie = PlaceOf(state, positie);
    machine::Locale& locale = platform.Locale;
    std::array<RowShift, ShiftCount> shifts;
    shifts[Stub] =
        CalibratedShift(state, locale, state.AcceptGiroBGSoucheLinks, state.AcceptGiroBGSoucheTop, positie);
    // The calibration to the right also moves the accept part's block down, and its own setting for that has
    // no effect: settings that organisations have depend on it.
    shifts[Accept] =
        CalibratedShift(state, locale, state.AcceptGiroBGAcceptLinks, state.AcceptGiroBGAcceptLinks, positie);
    if (!smalleStub) {
        shifts[Accept].x += WideStubCm * state.TwipsPerCm;
    }
    const std::string addressLine = AddressLine(incassant);
    std::array<std::string_view, TextCount> texts;
    texts[Rekening] = incassant.rekening;
    texts[Naam] = incassant.naam;
    texts[Plaats] = incassant.plaats;
    texts[Adresregel] = addressLine;

    // The stub's lines stand at the height of its small print, the account among them.
    ChangeFont(state, platform, {.Points = StubPoints, .NewLineHeight = true}, true);
    DrawRows(state, platform, Rows,
             {.Texts = texts,
              .Fonts = FontsOfLines,
              .Shifts = shifts,
              .Corner = CalibratedForm(state, locale, corner, positie),
              .MeasureOnPrinter = true});
}

} // namespace composition
