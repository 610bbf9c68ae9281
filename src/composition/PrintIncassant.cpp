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

enum Text : std::size_t { rekening, naam, plaats, adresregel, textCount };
enum Font : std::size_t { account8, stub6Bold, regular, accept9, accept7, accept7Bold, fontCount };
enum Shift : std::size_t { stub, accept, shiftCount };

constexpr double StubLeastXTwips = 10;
constexpr double WideStubCm = 1; ///< by which the accept part begins further to the right
constexpr double StubPoints = 6;

constexpr std::array<FontChange, fontCount> FontsOfLines = [] {
    std::array<FontChange, fontCount> fonts = {};
    fonts[account8] = {.points = 8};
    fonts[stub6Bold] = {.points = 6, .bold = true};
    fonts[regular] = {.bold = false};
    fonts[accept9] = {.points = 9, .newLineHeight = true};
    fonts[accept7] = {.points = 7, .newLineHeight = true};
    fonts[accept7Bold] = {.points = 7, .bold = true};
    return fonts;
}();

constexpr std::array<FormRow, 12> Rows = {{
    {.text = rekening,
     .font = account8,
     .xCm = 0.25,
     .yCm = 7,
     .shift = stub,
     .leastXTwips = StubLeastXTwips},
    {.way = RowWay::LineFeed, .lines = 1.2},
    {.text = naam,
     .font = stub6Bold,
     .xCm = 0.25,
     .shift = stub,
     .clip = true,
     .leastXTwips = StubLeastXTwips},
    {.way = RowWay::LineFeed, .lines = 1},
    {.text = plaats, .xCm = 0.25, .shift = stub, .clip = true, .leastXTwips = StubLeastXTwips},
    {.font = regular, .way = RowWay::LineFeed, .lines = 1},
    {.text = rekening, .font = accept9, .xCm = 6.5, .yCm = 6.5, .shift = accept},
    {.font = accept7, .way = RowWay::LineFeed, .lines = 1.3},
    {.text = naam, .font = accept7Bold, .xCm = 6.5, .shift = accept},
    {.way = RowWay::LineFeed, .lines = 1},
    {.text = adresregel, .when = RowWhen::Filled, .xCm = 6.5, .shift = accept},
    {.font = regular},
}};

bool IsOnStationery(std::int16_t contractVorm) {
    return contractVorm == state::ContractNone || contractVorm == state::ContractA ||
           contractVorm == state::ContractB || contractVorm == state::ContractCPreprinted;
}

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

void PrintIncassant(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    IncassantTekst incassant, std::int16_t positie) {
    if (IsOnStationery(state.GMUContractVorm) || !state.IncassantAfdrukken) {
        return;
    }
    if (state.GMUContractVorm == state::ContractCAccount) {
        incassant.naam = incassant.adres = incassant.postcode = incassant.plaats = {};
    }

    positie = PlaceOf(state, positie);
    machine::Locale& locale = platform.Locale;
    std::array<RowShift, shiftCount> shifts;
    shifts[stub] =
        CalibratedShift(state, locale, state.AcceptGiroBGSoucheLinks, state.AcceptGiroBGSoucheTop, positie);
    // The calibration to the right also moves the accept part's block down, and its own setting for that has
    // no effect: settings that organisations have depend on it.
    shifts[accept] =
        CalibratedShift(state, locale, state.AcceptGiroBGAcceptLinks, state.AcceptGiroBGAcceptLinks, positie);
    if (!smalleStub) {
        shifts[accept].x += WideStubCm * state.TwipsPerCm;
    }
    const std::string addressLine = AddressLine(incassant);
    std::array<std::string_view, textCount> texts;
    texts[rekening] = incassant.rekening;
    texts[naam] = incassant.naam;
    texts[plaats] = incassant.plaats;
    texts[adresregel] = addressLine;

    // The stub's lines stand at the height of its small print, the account among them.
    ChangeFont(state, platform, {.points = StubPoints, .newLineHeight = true}, true);
    DrawRows(state, platform, Rows,
             {.texts = texts,
              .fonts = FontsOfLines,
              .shifts = shifts,
              .corner = CalibratedForm(state, locale, corner, positie),
              .measureOnPrinter = true});
}

} // namespace composition
