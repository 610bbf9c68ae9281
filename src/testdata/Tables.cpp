#include "testdata/Tables.h"

#include <string_view>

namespace testdata {
namespace {

// The rows are written by tools/generate_tables; a change of the data is a change of the generator.
constexpr char AccountRows[] =
#include "testdata/generated/AccountRows.inc"
    ;
constexpr char PersonRows[] =
#include "testdata/generated/PersonRows.inc"
    ;

template <std::size_t Size>
constexpr std::string_view TextOf(const char (&literal)[Size]) {
    return {literal, Size - 1};
}

constexpr base::TextTable Accounts(TextOf(AccountRows), 38, 25000);
constexpr base::TextTable Persons(TextOf(PersonRows), 148, 250);
static_assert(sizeof AccountRows == 22654 * 38 + 1);
static_assert(sizeof PersonRows == 250 * 148 + 1);

} // namespace

const base::TextTable& AccountTable() {
    return Accounts;
}

const base::TextTable& PersonTable() {
    return Persons;
}

} // namespace testdata
