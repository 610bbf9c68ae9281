#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Chance.h"
#include "Rows.h"

// Nobody is called by these names and nobody lives at these addresses: surnames and streets are put together
// from words of the printing trade, and there is no such place.

namespace generate {
namespace {

constexpr std::uint64_t PersonSeed = 20260302;

constexpr std::size_t RowCount = 250;
constexpr std::size_t NameColumn = 80;
constexpr std::size_t LongestName = 61;
constexpr std::size_t ShortestName = 10;
constexpr std::size_t AddressColumn = 50;
constexpr std::size_t ShortestAddress = 7;
constexpr std::string_view Place = "TESTERWOLD";

constexpr std::size_t Ladies = 160;
constexpr std::size_t Gentlemen = 87;
constexpr std::size_t DoubleNames = 156;
constexpr std::size_t Couples = 30;
constexpr std::size_t Lettered = 3; // house numbers with "/A" behind them
constexpr std::size_t Postcodes = 58;

constexpr std::string_view Lady = "Mevr.";
constexpr std::string_view Gentleman = "Dhr.";

constexpr std::string_view Trade[] = {"Proef",  "Test",  "Keur",  "Druk",   "Stempel", "Letter", "Inkt",
                                      "Papier", "Zegel", "Regel", "Blad",   "Vouw",    "Pers",   "Zet",
                                      "Lijm",   "Kader", "Marge", "Cijfer", "Kolom",   "Kaft"};
constexpr std::string_view NameEndings[] = {"stra", "ma",   "man",  "mans", "beeld", "huizen", "inga",
                                            "sma",  "veld", "kamp", "ders", "zoon",  "wijk",   "borg"};
constexpr std::string_view Particles[] = {"", "",     "",         "",    "",        "",
                                          "", "van ", "van der ", "de ", "van 't ", "ter "};
constexpr std::string_view InitialLetters[] = {"A.", "B.", "C.", "D.", "E.", "F.", "G.",
                                               "H.", "J.", "K.", "L.", "M.", "N.", "P.",
                                               "R.", "S.", "T.", "V.", "W.", "Y.", "Z."};
constexpr std::string_view StreetEndings[] = {"weg", "laan", "straat", "pad",
                                              "hof", "dijk", "plein",  "singel"};
constexpr char PostcodeLetters[] = {'A', 'B', 'C', 'D', 'E', 'G', 'H', 'J', 'K', 'L',
                                    'M', 'N', 'P', 'R', 'T', 'V', 'W', 'X', 'Z'};

// Names that follow no pattern: three first names without a title, one pair that is joined by " en ", and the
// shortest and the longest name that the column is used for.
const std::string FirstNames[] = {"Inktje Zegelstra", "Letterik Kolomma", "Papierina Bladwijk"};
const std::string JoinedPair = "Dhr. A. Proefstra en Mevr. B.C. Keurmans";
const std::string ShortName = "Dhr. T. Os";
const std::string LongName = "Mevr. A.B.C. van der Letterhuizen - van der Stempelhuizenveld";

struct PersonName {
    std::string_view Title;
    bool DoubleName = false;
    bool Couple = false;
};

struct Street {
    std::string postcode;
    std::string Name;
};

std::string Surname(Chance& chance) {
    std::string name(chance.OneOf(Particles));
    return name.append(chance.OneOf(Trade)).append(chance.OneOf(NameEndings));
}

std::string Initials(Chance& chance) {
    std::string letters;
    for (int count = chance.Between(1, 3); count > 0; --count) {
        letters.append(chance.OneOf(InitialLetters));
    }
    return letters;
}

std::string DrawName(const PersonName& kind, Chance& chance) {
    const std::string surname = Surname(chance);
    std::string name(kind.Title);
    name.append(1, ' ').append(Initials(chance)).append(1, ' ').append(surname);
    if (kind.DoubleName) {
        name.append(" - ").append(Surname(chance));
    }
    if (kind.Couple) {
        name.append(" e/o ").append(kind.Title == Lady ? Gentleman : Lady);
        name.append(1, ' ').append(Initials(chance)).append(1, ' ').append(surname);
    }
    return name;
}

// Which of the drawn names have a title, a second surname and a partner, in no order. The names above stand
// beside them, so what those have is taken off the counts.
std::vector<PersonName> DrawKinds(Chance& chance) {
    std::vector<PersonName> kinds(Ladies - 1, PersonName{Lady});     // less the long name
    kinds.resize(Ladies - 1 + Gentlemen - 2, PersonName{Gentleman}); // less the pair and the short name
    chance.Shuffle(kinds);
    for (std::size_t i = 0; i < DoubleNames - 1; ++i) { // less the long name
        kinds[i].DoubleName = true;
    }
    chance.Shuffle(kinds);
    for (std::size_t i = 0; i < Couples; ++i) {
        kinds[i].Couple = true;
    }
    chance.Shuffle(kinds);
    return kinds;
}

std::vector<std::string> DrawNames(Chance& chance) {
    std::vector<std::string> names(std::begin(FirstNames), std::end(FirstNames));
    names.insert(names.end(), {JoinedPair, ShortName, LongName});
    std::set<std::string> used(names.begin(), names.end());
    for (const PersonName& kind : DrawKinds(chance)) {
        std::string name;
        do {
            name = DrawName(kind, chance);
        } while (name.size() < ShortestName || name.size() > LongestName || !used.insert(name).second);
        names.push_back(name);
    }
    chance.Shuffle(names);
    return names;
}

// A street for each postcode, the first of them the one in the next region.
std::vector<Street> DrawStreets(Chance& chance) {
    std::vector<Street> streets = {
        {"9861 ZA", "Grensweg"}, {"9931 AA", "Kade"}, {"9931 AB", "Burgemeester Voorbeeldweg"}};
    std::set<std::string> used = {"9861 ZA",  "9931 AA", "9931 AB",
                                  "Grensweg", "Kade",    "Burgemeester Voorbeeldweg"};
    while (streets.size() < Postcodes + 1) {
        Street street;
        street.postcode = std::to_string(chance.Between(9931, 9949)) + ' ' + chance.OneOf(PostcodeLetters) +
                          chance.OneOf(PostcodeLetters);
        street.Name = std::string(chance.OneOf(Trade)).append(chance.OneOf(StreetEndings));
        if (used.count(street.postcode) == 0 && used.count(street.Name) == 0) {
            used.insert({street.postcode, street.Name});
            streets.push_back(street);
        }
    }
    return streets;
}

// One row for the street in the next region, at least one for each of the others.
std::vector<Street> DrawAddresses(Chance& chance) {
    const std::vector<Street> streets = DrawStreets(chance);
    std::vector<Street> addresses = streets;
    while (addresses.size() < RowCount) {
        addresses.push_back(streets[static_cast<std::size_t>(chance.Between(1, Postcodes))]);
    }
    chance.Shuffle(addresses);
    for (std::size_t i = 0; i < addresses.size(); ++i) {
        std::string& address = addresses[i].Name;
        const int lowest = address.size() + 2 < ShortestAddress ? 10 : 1;
        const int highest = address.size() > 20 ? 99 : 199;
        address += ' ' + std::to_string(chance.Between(lowest, highest));
        if (i < Lettered) {
            address += "/A";
        }
    }
    chance.Shuffle(addresses);
    return addresses;
}

std::string Filled(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

} // namespace

std::vector<std::string> PersonRows() {
    Chance chance(PersonSeed);
    const std::vector<std::string> names = DrawNames(chance);
    const std::vector<Street> addresses = DrawAddresses(chance);

    std::vector<std::string> rows;
    for (std::size_t i = 0; i < RowCount; ++i) {
        rows.push_back(Filled(names[i], NameColumn) + addresses[i].postcode + ' ' +
                       Filled(addresses[i].Name, AddressColumn) + std::string(Place));
    }
    return rows;
}

} // namespace generate
