#include "testdata/Person.h"

#include "base/Text.h"

namespace testdata {

namespace text = base::text;

void SplitPerson(std::string_view row, Person& person) {
    const std::string_view name = text::Mid(row, 1, 80);
    person.postcode = text::Mid(row, 81, 7);
    person.adres = text::Mid(row, 89, 50);
    person.woonplaats = text::Mid(row, 139);

    constexpr std::string_view couple = "e/o";
    const std::size_t at = name.find(couple);
    if (at == std::string_view::npos) {
        person.naam.assign(name);
        person.partner = {};
    } else {
        person.naam.assign(text::Trim(name.substr(0, at))).append(1, ' ').append(couple);
        person.partner =
            text::Trim(text::Mid(name.substr(at), couple.size() + 2)); // one character lies between
    }
}

} // namespace testdata
