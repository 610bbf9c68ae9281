#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace payment {

/// What one form's OCR line is made of.
struct OcrValues {
    std::string_view kenmerk;  ///< the 15 digits of MaakBetalingskenmerk
    std::string_view euro;     ///< whole euros; empty counts as "0"
    std::string_view cent;     ///< one or two digits; "5" counts as "50"
    std::string_view rekening; ///< the creditor's account as stored, or empty
    std::string_view bic;      ///< the creditor's BIC, or empty
    /// Under state::ContractB the bank's reader is given no account.
    std::int16_t ContractVorm = 0;
};

/// The content of one OCR line, field by field, each with its closing mark. A record that is used from form
/// to form keeps its memory, so a run allocates for its first form only.
struct OcrLine {
    std::string Mark = "X";
    std::string Reference; ///< check digit, the digits, "+"
    std::string Amount;    ///< 6 digits of euros, 2 of cents, check digit, "<"; empty for an amount of 0
    std::string Bic;       ///< with "+", or empty
    std::string Account;   ///< with "+", or empty
    std::string Trailer = "17>";

    /// The reference for the reader's eye: four groups of four, without the "+".
    std::string GroupedReference;
};

/// Fills `line`. RuntimeError with ErrorOverflow if the euros do not fit 32 bits; `line` then holds no line.
void MakeOcrLine(const OcrValues& values, OcrLine& line);

/// Where each field stands on the form, left to right, in centimetres from the form's left edge. The scheme's
/// form fixes each place by itself: a field that is absent or short moves no other.
struct OcrField {
    double XCm;
    std::string OcrLine::*Text;
    std::string_view Name; ///< for the user, with its article
};
inline constexpr std::array<OcrField, 6> OcrFields = {{
    {3.2, &OcrLine::Mark, "het begin van de OCR-regel"},
    {4.45, &OcrLine::Reference, "het betalingskenmerk in de OCR-regel"},
    {9.02, &OcrLine::Amount, "het bedrag in de OCR-regel"},
    {11.82, &OcrLine::Bic, "de BIC in de OCR-regel"},
    {14.37, &OcrLine::Account, "de rekening in de OCR-regel"},
    {19.48, &OcrLine::Trailer, "het einde van de OCR-regel"},
}};

} // namespace payment
