#include "testdata/Tables.h"

#include "base/RuntimeError.h"

namespace testdata {
namespace {

// The rows are written by tools/generate_tables; a change of the data is a change of the generator.
constexpr char AccountRows[] =
#include "testdata/generated/AccountRows.inc"
    ;
constexpr char PersonRows[] =
#include "testdata/generated/PersonRows.inc"
    ;

template <std::size_t size>
constexpr std::string_view TextOf(const char (&literal)[size]) {
    return {literal, size - 1};
}

constexpr TextTable Accounts(TextOf(AccountRows), 38, 25000);
constexpr TextTable Persons(TextOf(PersonRows), 148, 250);
static_assert(sizeof AccountRows == 22654 * 38 + 1);
static_assert(sizeof PersonRows == 250 * 148 + 1);

} // namespace

std::string_view TextTable::operator[](std::int32_t index) const {
    if (index < 0 || index > lastIndex_) {
        throw base::SubscriptOutOfRange();
    }
    if (index >= FilledRows()) {
        return {};
    }
    const auto width = static_cast<std::size_t>(rowWidth_);
    return rows_.substr(static_cast<std::size_t>(index) * width, width);
}

const TextTable& AccountTable() {
    return Accounts;
}

const TextTable& PersonTable() {
    return Persons;
}

} // namespace testdata
