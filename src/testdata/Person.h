#pragma once

#include <string>
#include <string_view>

namespace testdata {

/// The columns of one row of the person table. All but `naam` are views into the row that was split.
struct Person {
    std::string naam;          ///< with its trailing blanks; of a couple, trimmed and followed by " e/o"
    std::string_view partner;  ///< the second name of a couple, or empty
    std::string_view postcode; ///< "1234 AB"
    std::string_view adres;    ///< street and house number, filled with blanks
    std::string_view woonplaats;
};

/// Splits a row of the person table into `person`, whose `naam` keeps its memory from row to row. A couple is
/// told by "e/o" in the name. Of a row that is too short, the columns beyond its end are empty.
void SplitPerson(std::string_view row, Person& person);

} // namespace testdata
