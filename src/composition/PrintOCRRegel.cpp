#include "composition/PrintOCRRegel.h"

#include <array>
#include <string>

#include "base/Numbers.h"
#include "base/Text.h"
#include "composition/FormRows.h"
#include "composition/PrintSurface.h"
#include "composition/SurfaceRules.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "state/ContractTexts.h"

namespace composition {

namespace text = base::text;

namespace {

enum Text : std::size_t { WholeReference, FirstHalf, SecondHalf, ServiceNumber, TextCount };
enum Font : std::size_t { Ocr, Ocr9, Plain, Plain5, FontCount };
enum Shift : std::size_t { Accept, Stub, ShiftCount };

constexpr auto OnStub = state::CalibratedBlock::ReferenceOnStub;
constexpr auto OnAccept = state::CalibratedBlock::ReferenceOnAccept;

constexpr std::array<FormRow, 5> ReferenceRows = {{
    {.Field = {"het betalingskenmerk", OnAccept},
     .Text = WholeReference,
     .Font = Ocr,
     .XCm = 10,
     .YCm = 1.75,
     .Shift = Accept},
    {.Field = {"de eerste regel van het betalingskenmerk op de souche", OnStub},
     .Text = FirstHalf,
     .Font = Ocr9,
     .XCm = 0.5,
     .YCm = 1.3,
     .Shift = Stub,
     .LeastXTwips = 0},
    {.Field = {"de tweede regel van het betalingskenmerk op de souche", OnStub},
     .Text = SecondHalf,
     .XCm = 0.5,
     .YCm = 1.8,
     .Shift = Stub,
     .LeastXTwips = 0},
    {.Font = Plain},
    {.Field = {"het servicenummer"},
     .Text = ServiceNumber,
     .When = RowWhen::Filled,
     .Font = Plain5,
     .XCm = 15.7,
     .YCm = 6.44},
}};

constexpr double ReferencePoints = 11;
constexpr double OcrLineYCm = 8.975;
constexpr std::size_t FirstHalfLength = 9;
constexpr std::size_t SecondHalfStart = 11;
constexpr std::string_view ServiceMark = "S";

/// How a setting reads that was stored without a text.
bool IsNul(std::string_view setting) {
    return setting == std::string_view("\0", 1);
}

} // namespace

bool HasOcrRegel(const state::AppState& state) {
    return state.GMUContractVorm != state::ContractNone && state.GMUContractVorm != state::ContractA &&
           state.GMUVerkeer && !state.GMUFontName.empty() && !IsNul(state.GMUFontName);
}

void PrintOCRRegel(state::AppState& state, machine::Platform& platform, Twips corner,
                   payment::OcrValues values, std::int16_t& positie, payment::OcrLine& line) {
    if (!HasOcrRegel(state)) {
        return;
    }
    PrintSurface& surface = SurfaceOf(state);
    const std::string fontBefore = surface.Font();
    const double sizeBefore = surface.FontSize();
    values.ContractVorm = state.GMUContractVorm;
    payment::MakeOcrLine(values, line);
    if (IsNul(state.GMUCode)) {
        state.GMUCode.clear();
    }

    positie = PlaceOf(state, positie);
    machine::Locale& locale = platform.Locale;
    const double ocrPoints = base::NumericValue(state.GMUFontSize);
    std::array<RowShift, ShiftCount> shifts;
    shifts[Accept] =
        CalibratedShift(state, locale, state.AcceptGiroBKAcceptLinks, state.AcceptGiroBKAcceptTop, positie);
    shifts[Stub] =
        CalibratedShift(state, locale, state.AcceptGiroBKSoucheLinks, state.AcceptGiroBKSoucheTop, positie);
    std::array<FontChange, FontCount> fonts = {};
    fonts[Ocr] = {.Name = state.GMUFontName, .Points = ocrPoints};
    fonts[Ocr9] = {.Points = 9, .NewLineHeight = true};
    fonts[Plain] = {.Name = fontBefore};
    fonts[Plain5] = {.Points = 5, .NewLineHeight = true};
    std::string service;
    if (state.GMUContractVorm == state::ContractSBlank && !text::Trim(state.GMUServiceNr).empty()) {
        service.append(state.GMUServiceNr).append(ServiceMark);
    }
    std::array<std::string_view, TextCount> texts;
    texts[WholeReference] = line.GroupedReference;
    texts[FirstHalf] = text::Trim(text::Left(line.GroupedReference, FirstHalfLength));
    texts[SecondHalf] = text::Trim(text::Mid(line.GroupedReference, SecondHalfStart));
    texts[ServiceNumber] = service;
    ChangeFont(state, platform, {.Points = ReferencePoints, .NewLineHeight = true}, false);
    DrawRows(state, platform, ReferenceRows,
             {.Texts = texts,
              .Fonts = fonts,
              .Shifts = shifts,
              .Corner = CalibratedForm(state, locale, corner, positie)});

    // The line has a calibration of its own, from the form's bare corner: the reader takes it at a fixed
    // height of the paper, wherever the rest of the form was moved to.
    corner.y = Kalibreer(state, locale, corner.y, SettingAt(state.OCRTop, positie));
    corner.x = Kalibreer(state, locale, corner.x, SettingAt(state.OCRLinks, positie));
    ChangeFont(state, platform, fonts[Ocr], false);
    surface.SetCurrentY(OcrLineYCm * state.TwipsPerCm + corner.y);
    for (const payment::OcrField& field : payment::OcrFields) {
        surface.SetCurrentX(field.XCm * state.TwipsPerCm + corner.x);
        surface.BeginField({field.Name, state::CalibratedBlock::OcrLine}, line.*field.Text);
        surface.Print(line.*field.Text);
    }
    ChangeFont(state, platform, {.Name = fontBefore, .Points = sizeBefore}, false);
}

} // namespace composition
