#include "desktop/cups/PaperTable.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace desktop::cups {

namespace {

struct Code {
    std::string_view Name;
    std::int16_t Id;
};

constexpr std::array<Code, 41> PaperCodes = {{
    {"na_letter_8.5x11in", 1},
    {"na_ledger_11x17in", 3},
    {"na_invoice_5.5x8.5in", 6},
    {"na_legal_8.5x14in", 5},
    {"na_executive_7.25x10.5in", 7},
    {"iso_a3_297x420mm", 8},
    {"iso_a4_210x297mm", 9},
    {"iso_a5_148x210mm", 11},
    {"jis_b4_257x364mm", 12},
    {"jis_b5_182x257mm", 13},
    {"na_foolscap_8.5x13in", 14},
    {"om_folio_210x330mm", 14},
    {"na_quarto_8.5x10.83in", 15},
    {"na_10x14_10x14in", 16},
    {"na_number-9_3.875x8.875in", 19},
    {"na_number-10_4.125x9.5in", 20},
    {"na_number-11_4.5x10.375in", 21},
    {"na_number-12_4.75x11in", 22},
    {"na_number-14_5x11.5in", 23},
    {"na_c_17x22in", 24},
    {"na_d_22x34in", 25},
    {"na_e_34x44in", 26},
    {"iso_dl_110x220mm", 27},
    {"iso_c5_162x229mm", 28},
    {"iso_c3_324x458mm", 29},
    {"iso_c4_229x324mm", 30},
    {"iso_c6_114x162mm", 31},
    {"iso_c6c5_114x229mm", 32},
    {"iso_b4_250x353mm", 33},
    {"iso_b5_176x250mm", 34},
    {"iso_b6_125x176mm", 35},
    {"om_italian_110x230mm", 36},
    {"na_monarch_3.875x7.5in", 37},
    {"na_personal_3.625x6.5in", 38},
    {"na_fanfold-us_11x14.875in", 39},
    {"na_fanfold-eur_8.5x12in", 40},
    {"jpn_hagaki_100x148mm", 43},
    {"na_9x11_9x11in", 44},
    {"iso_a2_420x594mm", 66},
    {"iso_a6_105x148mm", 70},
    {"jis_b6_128x182mm", 88},
}};

constexpr std::array<Code, 25> BinCodes = {{
    {"upper", 1},
    {"top", 1},
    {"lower", 2},
    {"bottom", 2},
    {"middle", 3},
    {"manual", 4},
    {"manualfeed", 4},
    {"envelope", 5},
    {"envmanual", 6},
    {"envelopemanual", 6},
    {"auto", 7},
    {"automatic", 7},
    {"autoselect", 7},
    {"default", 7},
    {"tractor", 8},
    {"smallformat", 9},
    {"smallfmt", 9},
    {"largeformat", 10},
    {"largefmt", 10},
    {"largecapacity", 11},
    {"large-capacity", 11},
    {"cassette", 14},
    {"main", 14},
    {"formsource", 15},
    {"envelope-manual", 6},
}};

template <std::size_t N>
std::int16_t CodeIn(const std::array<Code, N>& table, std::string_view name) {
    const auto found =
        std::find_if(table.begin(), table.end(), [name](const Code& code) { return code.Name == name; });
    return found == table.end() ? std::int16_t{0} : found->Id;
}

} // namespace

std::int16_t PaperCode(std::string_view pwgName) {
    return CodeIn(PaperCodes, pwgName);
}

std::int16_t BinCode(std::string_view choice) {
    return CodeIn(BinCodes, base::text::Lower(choice));
}

} // namespace desktop::cups
