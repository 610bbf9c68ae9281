#include "composition/ContractTexts.h"

#include <array>

namespace composition {

namespace {

struct ContractRow {
    std::int16_t contractVorm;
    std::string_view screen;
    std::string_view report;
};

constexpr std::array<ContractRow, 6> contracts = {{
    {contractA, "Contract A", "Contract A"},
    {contractB, "Contract B", "Contract B"},
    {contractCBlank, "C-contract - Blanco acceptgiro", "C-Contract - Blanco acceptgiro zonder servicenr."},
    {contractSBlank, "S-Certificaat - Blanco acceptgiro met servicenr.",
     "S-Certificaat - Blanco acceptgiro met servicenr."},
    {contractCPreprinted, "C-contract - Voorbedrukte acceptgiro", "C-Contract - Voorbedrukte acceptgiro"},
    {contractCAccount, "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken.",
     "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken."},
}};

constexpr std::string_view noContract = "Er is (nog) geen contractsoort ingesteld.";

struct TypeRow {
    std::int16_t acceptgiroType;
    std::string_view report;
};

constexpr std::array<TypeRow, 3> types = {{
    {typeNarrowStub, "Acceptgiro's, 3 op 1 vel, smalle souche"},
    {typeWideStub, "Acceptgiro's, 3 op 1 vel, brede souche"},
    {typeUnderLetter, "Acceptgiro onder brief, smalle souche"},
}};

std::string_view ContractText(std::int16_t contractVorm, std::string_view ContractRow::*wording) {
    for (const ContractRow& row : contracts) {
        if (row.contractVorm == contractVorm) {
            return row.*wording;
        }
    }
    return noContract;
}

} // namespace

std::string_view ContractScreenText(std::int16_t contractVorm) {
    return ContractText(contractVorm, &ContractRow::screen);
}

std::string_view ContractReportText(std::int16_t contractVorm) {
    return ContractText(contractVorm, &ContractRow::report);
}

std::string_view AcceptgiroTypeText(std::int16_t acceptgiroType) {
    for (const TypeRow& row : types) {
        if (row.acceptgiroType == acceptgiroType) {
            return row.report;
        }
    }
    return {};
}

} // namespace composition
