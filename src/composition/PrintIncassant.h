#pragma once

#include <cstdint>
#include <string_view>

#include "composition/FormPlace.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

/// Whether the contract form leaves the creditor to the program, all of it or the account alone.
bool ContractPrintsIncassant(std::int16_t contractVorm);

/// The fields that are cut where the stub ends, by FormField::Name.
inline constexpr std::string_view NameOnStub = "de naam van de incassant op de souche";
inline constexpr std::string_view TownOnStub = "de plaats van de incassant op de souche";

/// The creditor as it stands on a form.
struct IncassantTekst {
    std::string_view rekening;
    std::string_view naam;
    std::string_view adres;
    std::string_view postcode;
    std::string_view plaats;
};

/// Draws the creditor on stub and accept part, as far as the contract form leaves it to the program: nothing
/// where the stationery bears it, the account alone under ContractCAccount. It uses the font that is set, and
/// leaves it at size 7. `positie` is the place on the sheet, 1 to 3. The first failure ends the drawing.
void PrintIncassant(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    IncassantTekst incassant, std::int16_t positie);

} // namespace composition
