#pragma once

#include <cstdint>

#include "base/TextTable.h"

// The tables of the test documents. Their rows are part of the executable: they cost no time at start-up and
// no heap, and nothing can write to them.
namespace testdata {

/// The test accounts, rows 0 to 22653 of the indexes 0 to 25000. A row has 38 characters: the account in 10
/// digits, the IBAN in 18 and the BIC in 8, with commas between. Row 0 is never drawn; the giro numbers
/// (INGB) stand in rows 1 to 5000, all other banks behind them, both ascending.
const base::TextTable& AccountTable();

/// The made-up persons, rows 0 to 249 of the indexes 0 to 250. A row has 148 characters: name (80), postcode
/// (7), a blank, street and house number (50), place (10).
const base::TextTable& PersonTable();

/// The last row of the persons that a run and the name list go to.
inline constexpr std::int32_t LastRij = 248;

} // namespace testdata
