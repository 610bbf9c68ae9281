#include "state/ContractTexts.h"

#include <array>

namespace state {

namespace {

struct ContractRow {
    std::int16_t ContractVorm;
    std::string_view Screen;
    std::string_view Report;
};

constexpr std::array<ContractRow, 6> Contracts = {{
    {ContractA, "Contract A", "Contract A"},
    {ContractB, "Contract B", "Contract B"},
    {ContractCBlank, "C-contract - Blanco acceptgiro", "C-Contract - Blanco acceptgiro zonder servicenr."},
    {ContractSBlank, "S-Certificaat - Blanco acceptgiro met servicenr.",
     "S-Certificaat - Blanco acceptgiro met servicenr."},
    {ContractCPreprinted, "C-contract - Voorbedrukte acceptgiro", "C-Contract - Voorbedrukte acceptgiro"},
    {ContractCAccount, "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken.",
     "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken."},
}};

constexpr std::string_view NoContract = "Er is (nog) geen contractsoort ingesteld.";

struct TypeRow {
    std::int16_t AcceptgiroType;
    std::string_view Report;
};

constexpr std::array<TypeRow, 3> Types = {{
    {TypeNarrowStub, "Acceptgiro's, 3 op 1 vel, smalle souche"},
    {TypeWideStub, "Acceptgiro's, 3 op 1 vel, brede souche"},
    {TypeUnderLetter, "Acceptgiro onder brief, smalle souche"},
}};

std::string_view ContractText(std::int16_t contractVorm, std::string_view ContractRow::*wording) {
    for (const ContractRow& row : Contracts) {
        if (row.ContractVorm == contractVorm) {
            return row.*wording;
        }
    }
    return NoContract;
}

} // namespace

std::string_view ContractScreenText(std::int16_t contractVorm) {
    return ContractText(contractVorm, &ContractRow::Screen);
}

std::string_view ContractReportText(std::int16_t contractVorm) {
    return ContractText(contractVorm, &ContractRow::Report);
}

std::string_view AcceptgiroTypeText(std::int16_t acceptgiroType) {
    for (const TypeRow& row : Types) {
        if (row.AcceptgiroType == acceptgiroType) {
            return row.Report;
        }
    }
    return {};
}

} // namespace state
