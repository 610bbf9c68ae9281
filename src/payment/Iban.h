#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The IBAN test of ISO 13616, and the BICs of the Dutch banks.
namespace payment {

/// Whether the text is an IBAN in its bare form. A blank anywhere makes it none; of the marks / : \ + - * any
/// number may stand between, and capitals and small letters count the same. Only the letters a to z count.
bool IBANCheck(std::string_view tekst);

/// Remainder of a number of any length, written in digits, by `deler` (-1000 to 1000, not 0). An empty text
/// counts as "0" and is changed into it. RuntimeError with ErrorTypeMismatch for a text that holds anything
/// but digits, and with ErrorOverflow for a divisor outside its range.
std::int16_t Modulus(std::string& getal, std::int16_t deler);

/// BIC of the bank of a Dutch IBAN, with or without blanks and dots; empty if the text is no valid IBAN or
/// the bank is not known. The bank code is what stands between the fifth character and the first figure
/// behind it, and it is known in capitals only.
std::string_view IBAN2BIC(std::string_view rekening);

/// BIC of a bank code, compared exactly; empty if it is not known. The account plays no part.
std::string_view BankCode2BIC(std::string_view rekening, std::string_view code);

} // namespace payment
