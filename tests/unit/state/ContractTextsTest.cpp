#include "state/ContractTexts.h"

#include <vector>

#include <gtest/gtest.h>

namespace state {

TEST(ContractTextsTest, ScreenAndReportNameEachContract) {
    struct Row {
        std::int16_t contractVorm;
        const char* screen;
        const char* report;
    };
    const Row rows[] = {
        {1, "Contract A", "Contract A"},
        {2, "Contract B", "Contract B"},
        {31, "C-contract - Blanco acceptgiro", "C-Contract - Blanco acceptgiro zonder servicenr."},
        {32, "S-Certificaat - Blanco acceptgiro met servicenr.",
         "S-Certificaat - Blanco acceptgiro met servicenr."},
        {33, "C-contract - Voorbedrukte acceptgiro", "C-Contract - Voorbedrukte acceptgiro"},
        {34, "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken.",
         "C-contract - Voorbedrukte acceptgiro, rekeningnr. incassant afdrukken."},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ContractScreenText(row.contractVorm), row.screen);
        EXPECT_EQ(ContractReportText(row.contractVorm), row.report);
    }
}

TEST(ContractTextsTest, AnyOtherNumberIsNoContract) {
    for (const std::int16_t contractVorm : std::vector<std::int16_t>{-32768, -1, 0, 3, 30, 35, 32767}) {
        EXPECT_EQ(ContractScreenText(contractVorm), "Er is (nog) geen contractsoort ingesteld.");
        EXPECT_EQ(ContractReportText(contractVorm), "Er is (nog) geen contractsoort ingesteld.");
    }
}

TEST(ContractTextsTest, TypesOfStationery) {
    EXPECT_EQ(AcceptgiroTypeText(1), "Acceptgiro's, 3 op 1 vel, smalle souche");
    EXPECT_EQ(AcceptgiroTypeText(2), "Acceptgiro's, 3 op 1 vel, brede souche");
    EXPECT_EQ(AcceptgiroTypeText(3), "Acceptgiro onder brief, smalle souche");
    EXPECT_EQ(AcceptgiroTypeText(0), "");
    EXPECT_EQ(AcceptgiroTypeText(4), "");
}

} // namespace state
