#pragma once

#include <string>
#include <string_view>

namespace machine {
class Clock;
class RandomSource;
} // namespace machine

/// The account of the creditor as it is typed, shown and stored. Three kinds are told apart by length alone,
/// after blanks and dots are taken out: a giro number of up to 8 figures, a bank number under the 11-test,
/// and an IBAN.
namespace payment {

/// Whether the text can be an account. The empty text can: an account may be left out.
bool BankGiroCheck(std::string_view tekst);

/// The form shown on the screen, in capitals: 12.34.56.789, 1234.567.890, NL13 ABNA 0500 0000 18; of 8
/// characters and fewer, no blocks.
std::string Text2Rekening(std::string_view tekst);

/// The form that is stored and printed: no dots, no blanks, letters as they are.
std::string Rekening2Text(std::string_view tekst);

/// A new bank number that begins with `begin` and passes BankGiroCheck: 7 figures more, so 9 with a `begin`
/// of two figures and 10 with one of three. Empty if no such number turns up, as with a `begin` that nothing
/// can follow.
std::string NieuwRekeningnummer(std::string_view begin, machine::RandomSource& random,
                                const machine::Clock& clock);

} // namespace payment
