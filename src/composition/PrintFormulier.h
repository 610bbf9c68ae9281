#pragma once

#include <cstdint>
#include <string_view>

#include "composition/FormPlace.h"

namespace machine {
struct Platform;
}

namespace composition {

/// The texts of a form that belong to the payer and the amount.
struct FormulierTekst {
    std::string_view omschrijving1;
    std::string_view omschrijving2;
    std::string_view euro;
    std::string_view cent;
    std::string_view rekening; ///< the payer's; may be empty
    std::string_view regel0;   ///< the line above the name
    std::string_view naam;
    std::string_view partner; ///< not on the wide stub's form
    std::string_view regel3;  ///< not on the wide stub's form
    std::string_view adres;
    std::string_view plaats;
};

/// Draws payer and amount on the form whose corner is at `corner`, in plain text but for amount and account
/// on the narrow stub's form, which are in the OCR font. `positie` is the place on the sheet, 1 to 3. The
/// payer's sizes are read from the settings for each form. The first failure ends the form's drawing.
void PrintFormulier(state::AppState& state, machine::Platform& platform, bool smalleStub, Twips corner,
                    const FormulierTekst& tekst, std::int16_t positie);

} // namespace composition
