#include "state/Settings.h"

#include <array>

#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/Text.h"
#include "machine/Locale.h"
#include "machine/modRegistry.h"
#include "state/CalibrationBlocks.h"

namespace state {

namespace text = base::text;

namespace {

/// A text of the creditor and its key.
struct CreditorKey {
    std::string_view Name;
    std::string AppState::*Field;
};

constexpr std::array<CreditorKey, 5> CreditorKeys{{
    {"IncassantBegunstigde", &AppState::IncassantBegunstigde},
    {"IncassantAdres", &AppState::IncassantAdres},
    {"IncassantPostCode", &AppState::IncassantPostCode},
    {"IncassantWoonplaats", &AppState::IncassantWoonplaats},
    {"IncassantBankGiro", &AppState::IncassantBankGiro},
}};

constexpr double LargestFontSize = 48;

std::string GMUFontSize(const std::string& stored) {
    const double points = base::NumericValue(stored);
    return points <= 0 || points > LargestFontSize ? DefaultFontSize : stored;
}

} // namespace

std::string CalibrationKey(std::string_view stem, std::string_view direction, std::size_t place) {
    std::string key(stem);
    key += direction;
    key += static_cast<char>('0' + place);
    return key;
}

std::string LeesInstelling(const AppState& state, machine::Registry& registry, std::string_view name) {
    return machine::modRegistry(registry).GetRegistryValue(machine::HkeyCurrentUser, state.SettingsKey,
                                                           std::string(name));
}

void SchrijfInstelling(const AppState& state, machine::Registry& registry, std::string_view name,
                       const std::string& tekst) {
    machine::modRegistry(registry).SetRegistryValue(machine::HkeyCurrentUser, state.SettingsKey,
                                                    std::string(name), tekst);
}

bool IsAan(std::string_view tekst) {
    return tekst == "1";
}

std::int16_t GetalInstelling(const std::string& tekst) {
    std::int16_t getal = 0;
    base::Resume([&] { getal = base::Int16OfText(tekst); });
    return getal;
}

void LaadInstellingen(AppState& state, machine::Registry& registry, bool metIncassant) {
    const auto read = [&](std::string_view name) { return LeesInstelling(state, registry, name); };

    if (metIncassant) {
        for (const CreditorKey& creditor : CreditorKeys) {
            state.*creditor.Field = text::Trim(read(creditor.Name));
        }
        state.IncassantAfdrukken = IsAan(read("IncassantAfdrukken"));
    }
    for (const auto& block : CalibrationBlocks(state)) {
        for (std::size_t place = 0; place < CalibratedPlaces; ++place) {
            block.X[place] = read(CalibrationKey(block.Stem, DirectionX, place));
            block.Y[place] = read(CalibrationKey(block.Stem, DirectionY, place));
        }
    }
    state.AcceptgiroType = GetalInstelling(read("AcceptgiroType"));
    state.GMUContractVorm = GetalInstelling(std::string(text::Trim(read("GMUContractVorm"))));
}

void LaadLettertype(AppState& state, machine::Registry& registry) {
    state.GMUFontName = text::Trim(LeesInstelling(state, registry, "GMUFontName"));
    state.GMUCode = text::Trim(LeesInstelling(state, registry, "GMUCode"));
    state.GMUServiceNr = LeesInstelling(state, registry, "GMUServiceNr");
}

void LaadStartInstellingen(AppState& state, machine::Registry& registry) {
    const auto read = [&](std::string_view name) { return LeesInstelling(state, registry, name); };

    state.GMUFontSize = GMUFontSize(read(FontSizeSetting));
    state.GMUVerkeer = IsAan(read("GMUVerkeer"));
    state.OverrulePaperSize =
        read("UseSpecificPrinterSettings") == "0" && IsAan(read("PrinterOverrulePaperSize"));
    if (state.GMUFontName.empty()) {
        state.GMUFontName = "Tahoma";
    }
    state.GMUContractVorm = GetalInstelling(std::string(text::Trim(read("GMUContractVorm"))));
    state.MatrixPrinter = IsAan(read("MatrixPrinter"));
}

std::string LeesLocaleTekst(machine::Locale& locale, std::int32_t lcid, std::int32_t item) {
    const std::int32_t size = locale.GetLocaleInfoA(lcid, item, nullptr, 0);
    if (size <= 0) {
        return {};
    }
    std::string buffer(static_cast<std::size_t>(size), '\0');
    const std::int32_t written = locale.GetLocaleInfoA(lcid, item, buffer.data(), size);
    if (written <= 0 || written > size) {
        return {};
    }
    buffer.resize(static_cast<std::size_t>(written - 1));
    return text::FromCodePage(buffer);
}

} // namespace state
