#include <algorithm>
#include <cctype>
#include <functional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "payment/TextRoutines.h"
#include "testdata/Tables.h"

namespace testdata {
namespace {

constexpr int RowCount = 250;

struct Row {
    std::string text;
    std::string name;
    std::string postcode;
    std::string address;
    std::string place;
};

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (int i = 0; i < RowCount; ++i) {
            const std::string text(PersonTable()[i]);
            const auto trimmed = [&](std::size_t at, std::size_t width) {
                return std::string(base::text::Trim(text.substr(at, width)));
            };
            all.push_back({text, trimmed(0, 80), text.substr(80, 7), trimmed(88, 50), text.substr(138)});
        }
        return all;
    }();
    return rows;
}

int CountRows(const std::function<bool(const Row&)>& holds) {
    return static_cast<int>(std::count_if(Rows().begin(), Rows().end(), holds));
}

int NamesWith(const std::string& part) {
    return CountRows([&](const Row& row) { return row.name.find(part) != std::string::npos; });
}

TEST(PersonRowsTest, HaveTheirColumns) {
    for (const Row& row : Rows()) {
        ASSERT_EQ(row.text.size(), 148U);
        ASSERT_EQ(row.text[87], ' ');
        ASSERT_NE(row.text[0], ' ');
        ASSERT_NE(row.text[88], ' ');
        ASSERT_EQ(row.text.find(','), std::string::npos);
    }
}

TEST(PersonRowsTest, HaveNamesOfPlainLetters) {
    const std::regex allowed("[A-Za-z .'/-]{10,61}");
    for (const Row& row : Rows()) {
        ASSERT_TRUE(std::regex_match(row.name, allowed)) << row.name;
    }
    EXPECT_EQ(CountRows([](const Row& row) { return row.name.size() == 61; }) > 0, true);
    EXPECT_EQ(CountRows([](const Row& row) { return row.name.size() == 10; }) > 0, true);
}

TEST(PersonRowsTest, HaveTitlesInitialsAndSurnames) {
    EXPECT_EQ(CountRows([](const Row& row) { return row.name.starts_with("Mevr. "); }), 160);
    EXPECT_EQ(CountRows([](const Row& row) { return row.name.starts_with("Dhr. "); }), 87);
    const std::regex titled(R"((Mevr|Dhr)\. ([A-Z]\.)+ [A-Za-z].*)");
    const std::regex untitled("[A-Z][a-z]+ [A-Z][a-z]+");
    EXPECT_EQ(CountRows([&](const Row& row) { return std::regex_match(row.name, titled); }), 247);
    EXPECT_EQ(CountRows([&](const Row& row) { return std::regex_match(row.name, untitled); }), 3);
}

TEST(PersonRowsTest, HaveDoubleNamesAndCouples) {
    EXPECT_EQ(NamesWith(" - "), 156);
    EXPECT_EQ(NamesWith("e/o"), 30);
    EXPECT_EQ(NamesWith(" e/o "), 30);
    EXPECT_EQ(NamesWith(" en "), 1);
    EXPECT_EQ(CountRows([](const Row& row) {
                  return row.name.find(" en ") != std::string::npos &&
                         row.name.find("e/o") != std::string::npos;
              }),
              0);
    EXPECT_EQ(CountRows([](const Row& row) { return row.address.find("e/o") != std::string::npos; }), 0);
}

TEST(PersonRowsTest, HavePostcodesOfOneRegion) {
    std::set<std::string> different;
    for (const Row& row : Rows()) {
        ASSERT_TRUE(std::regex_match(row.postcode, std::regex("[0-9]{4} [A-Z]{2}"))) << row.postcode;
        std::string postcode = row.postcode;
        ASSERT_EQ(payment::PostcodeFormaat(postcode), row.postcode);
        different.insert(row.postcode);
    }
    EXPECT_EQ(different.size(), 59U);
    EXPECT_EQ(CountRows([](const Row& row) { return row.postcode.starts_with("99"); }), 249);
    EXPECT_EQ(CountRows([](const Row& row) { return row.postcode.starts_with("98"); }), 1);
}

TEST(PersonRowsTest, HaveStreetAndHouseNumber) {
    const std::regex form("[A-Z][A-Za-z ]* [1-9][0-9]{0,2}(/A)?");
    for (const Row& row : Rows()) {
        ASSERT_TRUE(std::regex_match(row.address, form)) << row.address;
        ASSERT_GE(row.address.size(), 7U) << row.address;
        ASSERT_LE(row.address.size(), 28U) << row.address;
    }
    EXPECT_EQ(CountRows([](const Row& row) { return row.address.ends_with("/A"); }), 3);
}

TEST(PersonRowsTest, HaveOnePlace) {
    const std::string place = Rows()[0].place;
    EXPECT_TRUE(std::regex_match(place, std::regex("[A-Z]{10}"))) << place;
    EXPECT_EQ(CountRows([&](const Row& row) { return row.place == place; }), RowCount);
}

TEST(PersonRowsTest, AreDifferentAndInNoOrder) {
    std::set<std::string> different;
    for (const Row& row : Rows()) {
        different.insert(row.text);
    }
    EXPECT_EQ(different.size(), 250U);

    for (const auto& column : {&Row::name, &Row::postcode, &Row::address}) {
        const auto less = [&](const Row& a, const Row& b) { return a.*column < b.*column; };
        const auto greater = [&](const Row& a, const Row& b) { return a.*column > b.*column; };
        EXPECT_FALSE(std::is_sorted(Rows().begin(), Rows().end(), less));
        EXPECT_FALSE(std::is_sorted(Rows().begin(), Rows().end(), greater));
    }
}

} // namespace
} // namespace testdata
