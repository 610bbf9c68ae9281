#include "testdata/Person.h"

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "testdata/Tables.h"

namespace testdata {
namespace {

std::string RowOf(std::string name, std::string address) {
    name.resize(80, ' ');
    address.resize(50, ' ');
    return name + "9999 ZZ " + address + "TESTERWOLD";
}

TEST(SplitPersonTest, CutsTheColumns) {
    const std::string row = RowOf("Dhr. A. Voorbeeld", "Proefweg 12");
    Person person;
    SplitPerson(row, person);
    EXPECT_EQ(person.naam, row.substr(0, 80)); // with its trailing blanks
    EXPECT_EQ(person.partner, "");
    EXPECT_EQ(person.postcode, "9999 ZZ");
    EXPECT_EQ(person.adres, row.substr(88, 50));
    EXPECT_EQ(person.woonplaats, "TESTERWOLD");
}

TEST(SplitPersonTest, SplitsACouple) {
    const std::string row = RowOf("Dhr. A. Voorbeeld e/o Mevr. B. Proef", "Proefweg 12");
    Person person;
    SplitPerson(row, person);
    EXPECT_EQ(person.naam, "Dhr. A. Voorbeeld e/o");
    EXPECT_EQ(person.partner, "Mevr. B. Proef");
}

TEST(SplitPersonTest, SplitsAtTheFirstPlaceOnly) {
    const std::string row = RowOf("A  e/o B e/o C", "Proefweg 12");
    Person person;
    SplitPerson(row, person);
    EXPECT_EQ(person.naam, "A e/o");
    EXPECT_EQ(person.partner, "B e/o C");
}

TEST(SplitPersonTest, LosesTheCharacterBehindTheMark) {
    const std::string row = RowOf("A e/oXB", "Proefweg 12");
    Person person;
    SplitPerson(row, person);
    EXPECT_EQ(person.partner, "B");
}

TEST(SplitPersonTest, KnowsTheMarkInSmallLettersAndInTheNameAlone) {
    const std::string row = RowOf("Dhr. A. Voorbeeld E/O Mevr. B. Proef", "Huize e/o 12");
    Person person;
    SplitPerson(row, person);
    EXPECT_EQ(person.naam.size(), 80U);
    EXPECT_EQ(person.partner, "");
}

TEST(SplitPersonTest, ForgetsTheRowBefore) {
    const std::string couple = RowOf("Dhr. A. Voorbeeld e/o Mevr. B. Proef", "Proefweg 12");
    Person person;
    SplitPerson(couple, person);
    SplitPerson("", person);
    EXPECT_EQ(person.naam, "");
    EXPECT_EQ(person.partner, "");
    EXPECT_EQ(person.postcode, "");
    EXPECT_EQ(person.adres, "");
    EXPECT_EQ(person.woonplaats, "");
}

TEST(SplitPersonTest, StandsHostileRows) {
    for (const std::string& row :
         {std::string("e/o"), std::string(77, 'x') + "e/o", std::string(78, 'x') + "e/o",
          std::string(100000, 'e'), std::string(148, '\xFF'), std::string(148, '\0'),
          std::string("日本語 e/o 日本")}) {
        Person person;
        SplitPerson(row, person);
        EXPECT_LE(person.naam.size(), 4 * 80U);
    }
    Person person;
    const std::string cut = std::string(77, 'x') + "e/o"; // the mark ends with the column
    SplitPerson(cut, person);
    EXPECT_EQ(person.naam, std::string(77, 'x') + " e/o");
    EXPECT_EQ(person.partner, "");
}

TEST(SplitPersonTest, SplitsThirtyCouplesOfTheTable) {
    int couples = 0;
    Person person;
    for (int i = 0; i < 250; ++i) {
        SplitPerson(PersonTable()[i], person);
        if (person.partner.empty()) {
            EXPECT_EQ(person.naam.size(), 80U);
        } else {
            ++couples;
            EXPECT_TRUE(person.naam.ends_with(" e/o"));
        }
    }
    EXPECT_EQ(couples, 30);
}

} // namespace
} // namespace testdata
