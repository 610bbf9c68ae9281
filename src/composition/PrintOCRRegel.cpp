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

enum Text : std::size_t { wholeReference, firstHalf, secondHalf, serviceNumber, textCount };
enum Font : std::size_t { ocr, ocr9, plain, plain5, fontCount };
enum Shift : std::size_t { accept, stub, shiftCount };

constexpr std::array<FormRow, 5> ReferenceRows = {{
    {.text = wholeReference, .font = ocr, .xCm = 10, .yCm = 1.75, .shift = accept},
    {.text = firstHalf, .font = ocr9, .xCm = 0.5, .yCm = 1.3, .shift = stub, .leastXTwips = 0},
    {.text = secondHalf, .xCm = 0.5, .yCm = 1.8, .shift = stub, .leastXTwips = 0},
    {.font = plain},
    {.text = serviceNumber, .when = RowWhen::Filled, .font = plain5, .xCm = 15.7, .yCm = 6.44},
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

void PrintOCRRegel(state::AppState& state, machine::Platform& platform, Twips corner,
                   payment::OcrValues values, std::int16_t& positie, payment::OcrLine& line) {
    if (state.GMUContractVorm == state::ContractNone || state.GMUContractVorm == state::ContractA ||
        !state.GMUVerkeer) {
        return;
    }
    PrintSurface& surface = SurfaceOf(state);
    const std::string fontBefore = surface.Font();
    const double sizeBefore = surface.FontSize();
    values.contractVorm = state.GMUContractVorm;
    payment::MakeOcrLine(values, line);
    if (state.GMUFontName.empty() || IsNul(state.GMUFontName)) {
        return;
    }
    if (IsNul(state.GMUCode)) {
        state.GMUCode.clear();
    }

    positie = PlaceOf(state, positie);
    machine::Locale& locale = platform.Locale;
    const double ocrPoints = base::NumericValue(state.GMUFontSize);
    std::array<RowShift, shiftCount> shifts;
    shifts[accept] =
        CalibratedShift(state, locale, state.AcceptGiroBKAcceptLinks, state.AcceptGiroBKAcceptTop, positie);
    shifts[stub] =
        CalibratedShift(state, locale, state.AcceptGiroBKSoucheLinks, state.AcceptGiroBKSoucheTop, positie);
    std::array<FontChange, fontCount> fonts = {};
    fonts[ocr] = {.name = state.GMUFontName, .points = ocrPoints};
    fonts[ocr9] = {.points = 9, .newLineHeight = true};
    fonts[plain] = {.name = fontBefore};
    fonts[plain5] = {.points = 5, .newLineHeight = true};
    std::string service;
    if (state.GMUContractVorm == state::ContractSBlank && !text::Trim(state.GMUServiceNr).empty()) {
        service.append(state.GMUServiceNr).append(ServiceMark);
    }
    std::array<std::string_view, textCount> texts;
    texts[wholeReference] = line.groupedReference;
    texts[firstHalf] = text::Trim(text::Left(line.groupedReference, FirstHalfLength));
    texts[secondHalf] = text::Trim(text::Mid(line.groupedReference, SecondHalfStart));
    texts[serviceNumber] = service;
    ChangeFont(state, platform, {.points = ReferencePoints, .newLineHeight = true}, false);
    DrawRows(state, platform, ReferenceRows,
             {.texts = texts,
              .fonts = fonts,
              .shifts = shifts,
              .corner = CalibratedForm(state, locale, corner, positie)});

    // The line has a calibration of its own, from the form's bare corner: the reader takes it at a fixed
    // height of the paper, wherever the rest of the form was moved to.
    corner.y = Kalibreer(state, locale, corner.y, SettingAt(state.OCRTop, positie));
    corner.x = Kalibreer(state, locale, corner.x, SettingAt(state.OCRLinks, positie));
    ChangeFont(state, platform, fonts[ocr], false);
    surface.SetCurrentY(OcrLineYCm * state.TwipsPerCm + corner.y);
    for (const payment::OcrField& field : payment::OcrFields) {
        surface.SetCurrentX(field.xCm * state.TwipsPerCm + corner.x);
        surface.Print(line.*field.text);
    }
    ChangeFont(state, platform, {.name = fontBefore, .points = sizeBefore}, false);
}

} // namespace composition
