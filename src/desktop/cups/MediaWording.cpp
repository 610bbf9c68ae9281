#include "desktop/cups/MediaWording.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include <cups/cups.h>
#include <cups/pwg.h>

namespace desktop::cups {

namespace {

struct Wording {
    std::string_view Keyword; ///< in small letters, without marks
    std::string_view Text;
};

// Texts of bins are short enough for a list of the spooler, which has room for 23 bytes.
constexpr std::array<Wording, 31> Bins = {{
    {"alternate", "Andere lade"},
    {"auto", "Automatisch"},
    {"automatic", "Automatisch"},
    {"autoselect", "Automatisch"},
    {"bottom", "Onderste lade"},
    {"bypass", "Multifunctionele lade"},
    {"bypasstray", "Multifunctionele lade"},
    {"cassette", "Cassette"},
    {"center", "Middelste lade"},
    {"disc", "Schijflade"},
    {"envelope", "Enveloppeninvoer"},
    {"hagaki", "Briefkaartlade"},
    {"largecapacity", "Grote lade"},
    {"left", "Linkerlade"},
    {"lower", "Onderste lade"},
    {"main", "Hoofdlade"},
    {"mainroll", "Rol"},
    {"manual", "Handmatige invoer"},
    {"manualfeed", "Handmatige invoer"},
    {"middle", "Middelste lade"},
    {"multipurpose", "Multifunctionele lade"},
    {"onlyone", "Lade"},
    {"photo", "Fotolade"},
    {"rear", "Achterste lade"},
    {"right", "Rechterlade"},
    {"roll", "Rol"},
    {"side", "Zijlade"},
    {"top", "Bovenste lade"},
    {"tray", "Lade"},
    {"unknown", "Standaardlade"},
    {"upper", "Bovenste lade"},
}};

constexpr std::array<Wording, 15> Papers = {{
    {"doublepostcard", "Dubbele briefkaart"},
    {"env10", "Enveloppe nr. 10"},
    {"env9", "Enveloppe nr. 9"},
    {"env11", "Enveloppe nr. 11"},
    {"env12", "Enveloppe nr. 12"},
    {"env14", "Enveloppe nr. 14"},
    {"envb5", "Enveloppe B5"},
    {"envc4", "Enveloppe C4"},
    {"envc5", "Enveloppe C5"},
    {"envc6", "Enveloppe C6"},
    {"envdl", "Enveloppe DL"},
    {"envinvite", "Enveloppe uitnodiging"},
    {"envmonarch", "Enveloppe Monarch"},
    {"envpersonal", "Enveloppe Personal"},
    {"postcard", "Briefkaart"},
}};

std::string Plain(std::string_view keyword) {
    std::string plain;
    for (const char c : keyword) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0) {
            plain += static_cast<char>(std::tolower(byte));
        }
    }
    return plain;
}

template <std::size_t N>
std::string_view TextIn(const std::array<Wording, N>& table, const std::string& keyword) {
    const auto* const found = std::find_if(
        table.begin(), table.end(), [&keyword](const Wording& each) { return each.Keyword == keyword; });
    return found == table.end() ? std::string_view() : found->Text;
}

/// Begins with a letter and has no digits but those at its end: a name, and not a size.
bool IsName(const std::string& keyword) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto firstDigit = std::find_if(keyword.begin(), keyword.end(), isDigit);
    return firstDigit != keyword.begin() && keyword.find('_') == std::string::npos &&
           std::all_of(firstDigit, keyword.end(), isDigit);
}

} // namespace

std::string WordingOfBin(const std::string& keyword) {
    const std::string plain = Plain(keyword);
    const std::size_t letters = plain.find_last_not_of("0123456789") + 1;
    const std::string number = plain.substr(letters);
    const std::string_view whole = TextIn(Bins, plain);
    const std::string_view text = whole.empty() ? TextIn(Bins, plain.substr(0, letters)) : whole;
    if (text.empty()) {
        return keyword;
    }
    return std::string(text) + (number.empty() ? "" : ' ' + number);
}

std::string WordingOfPaper(const std::string& keyword, const SheetSize& size) {
    const std::size_t point = keyword.find('.');
    std::string name = keyword;
    std::string variant;
    if (point != std::string::npos && keyword.find('_') == std::string::npos) {
        name = keyword.substr(0, point);
        variant = keyword.substr(point);
    }
    const pwg_media_t* const known = pwgMediaForPWG(name.c_str());
    if (known != nullptr && known->ppd != nullptr && *known->ppd != 0) {
        name = known->ppd;
    }
    const std::string_view text = TextIn(Papers, Plain(name));
    std::string result = !text.empty() ? std::string(text) : IsName(name) ? name : Measures(size);
    if (variant == ".Borderless" || variant == ".FullBleed" || variant == ".Fullbleed") {
        result += " zonder rand";
    } else if (variant == ".Transverse") {
        result += " dwars";
    } else if (!variant.empty()) {
        result += ' ' + variant.substr(1);
    }
    return result;
}

} // namespace desktop::cups
