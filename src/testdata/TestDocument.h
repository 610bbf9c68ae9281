#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "testdata/Person.h"
#include "testdata/Tables.h"

namespace machine {
class Clock;
class RandomSource;
} // namespace machine

namespace testdata {

/// What one form of the test batch shows: the person, the account and the amount. The views point into the
/// tables. One record serves a whole run and keeps its memory from form to form.
struct TestDocument : Person {
    std::string_view rekening;   ///< IBAN, or empty on a form without an account
    std::string_view bic;        ///< BIC, or empty with `rekening`
    std::string euro;            ///< "1" to "998"
    std::string cent;            ///< "01" to "98"
    std::string volgnummertekst; ///< running number in 8 digits
};

/// How far a run has come. It starts as it stands here, and its caller moves `Rij` on.
struct DrawState {
    std::int32_t Volgnummer = 0; ///< forms drawn so far
    std::int32_t Rij = 0;        ///< index of the run's loop, 0 to LastRij over and over
    std::int16_t LeegTeller = 0; ///< forms since the last one without an account
    std::string_view PersonRow;  ///< the row last taken, which stays where the table has no further one
};

/// Where the values come from.
struct DrawSources {
    machine::RandomSource& Random;
    const machine::Clock& Clock;
    const base::TextTable& Persons = PersonTable();
    const base::TextTable& Accounts = AccountTable();
};

/// Draws the next test document: the persons in table order, account and amount by chance. Every 26th form
/// after the first six has no account. Behind the last row of the table the payer is blank. An account row
/// without an 18-character IBAN is a defect of the table: the program stops at once.
void DrawTestDocument(DrawState& state, const DrawSources& sources, TestDocument& document);

/// Euros, "1" to "998", and cents, "01" to "98", each drawn after a seed of its own from the clock.
std::string TrekEuro(machine::RandomSource& random, const machine::Clock& clock);
std::string TrekCent(machine::RandomSource& random, const machine::Clock& clock);

} // namespace testdata
