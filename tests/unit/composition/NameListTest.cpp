#include "composition/NameList.h"

#include <cmath>

#include "CompositionTest.h"

namespace composition {

class NameListTest : public CompositionTest {
  protected:
    static constexpr double LineStep = 192 * 1.1;

    /// The cells of the list without its headers, row by row.
    std::vector<support::DrawnText> Cells() {
        std::vector<support::DrawnText> cells;
        for (const support::DrawnText& drawn : Texts()) {
            if (drawn.text != "Naam" && drawn.text != "Adres" && drawn.text != "Postcode" &&
                drawn.text != "Woonplaats") {
                cells.push_back(drawn);
            }
        }
        return cells;
    }
};

TEST_F(NameListTest, HeaderStandsOneLineBelowTheTop) {
    PrintNameList(state);
    const char* const headers[] = {"Naam", "Adres", "Postcode", "Woonplaats"};
    const double offsets[] = {0, 5000, 8000, 9500};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(Texts()[i].text, headers[i]);
        EXPECT_EQ(Texts()[i].x, 450 + offsets[i]);
        EXPECT_DOUBLE_EQ(Texts()[i].y, LineStep);
        EXPECT_FALSE(Texts()[i].bold);
    }
    EXPECT_DOUBLE_EQ(printer.canvas.lines[0].y1, 2 * LineStep);
    EXPECT_EQ(printer.canvas.lines[0].x1, 450);
    EXPECT_EQ(printer.canvas.lines[0].x2, 11424 - 450);
    EXPECT_DOUBLE_EQ(Texts()[4].y, 3 * LineStep);
    EXPECT_EQ(Texts()[4].font, "Printer");
    EXPECT_EQ(Texts()[4].size, 8);
}

TEST_F(NameListTest, ShowsTheFirst249PersonsAlways) {
    PrintNameList(state);
    const std::vector<support::DrawnText> cells = Cells();
    ASSERT_EQ(cells.size(), 4U * 249);
    for (int row = 0; row < 249; ++row) {
        const std::string_view person = testdata::PersonTable()[row];
        const std::size_t cell = 4 * static_cast<std::size_t>(row);
        const std::string number = std::to_string(1000 + row + 1).substr(1);
        EXPECT_EQ(cells[cell].text.substr(0, 6), number + " : ");
        EXPECT_EQ(cells[cell].x, 450);
        EXPECT_EQ(cells[cell + 1].text, person.substr(88, 50)); // not trimmed
        EXPECT_EQ(cells[cell + 1].x, 5450);
        EXPECT_EQ(cells[cell + 2].text, person.substr(80, 7));
        EXPECT_EQ(cells[cell + 2].x, 8450);
        EXPECT_EQ(cells[cell + 3].text, person.substr(138));
        EXPECT_EQ(cells[cell + 3].x, 9950);
        EXPECT_EQ(cells[cell].y, cells[cell + 3].y);
    }
}

TEST_F(NameListTest, CouplesStandBehindOneAnother) {
    const auto row = [](const char* name, const char* address) {
        std::string text = name;
        text.resize(80, ' ');
        text += "9900 AA ";
        text += address;
        text.resize(138, ' ');
        return text + "TESTDAMTES";
    };
    const std::string rows =
        row("Dhr. A. Voorbeeld e/o Mevr. B. Proef", "Proefweg 1") + row("Mevr. C. Proef", "Hof e/o Weg 2");
    const base::TextTable persons(rows, 148, 250);
    state.PersonTable = &persons;
    PrintNameList(state);
    EXPECT_EQ(Texts()[4].text, "001 : Dhr. A. Voorbeeld e/o Mevr. B. Proef");
    EXPECT_EQ(Texts()[8].text, "002 : Mevr. C. Proef" + std::string(66, ' ') + " ");
    EXPECT_EQ(Texts()[9].text, "Hof e/o Weg 2" + std::string(37, ' '));
    EXPECT_EQ(Drawn("003 :  ").x, 450); // a row that is not filled
}

TEST_F(NameListTest, PageBreaksFiveLinesBeforeTheEnd) {
    PrintNameList(state);
    // The rows begin three line steps down; a page is full when the cursor behind a row plus 5 x 192 lies
    // beyond it.
    const int rowsOnPage = static_cast<int>(std::floor((16358 - 5 * 192) / LineStep)) - 3 + 1;
    int onFirst = 0;
    for (const support::DrawnText& cell : Cells()) {
        onFirst += cell.page == 1 ? 1 : 0;
    }
    EXPECT_EQ(onFirst, 4 * rowsOnPage);
    const int pages = (249 + rowsOnPage - 1) / rowsOnPage;
    EXPECT_EQ(printer.canvas.pages, pages);
    EXPECT_EQ(printer.canvas.lines.size(), static_cast<std::size_t>(pages)); // each with its header
    const support::DrawnText header = Drawn("Naam", 2);
    EXPECT_EQ(header.page, 2);
    EXPECT_DOUBLE_EQ(header.y, LineStep);
}

TEST_F(NameListTest, LastRowCanLeaveAPageOfTheHeaderAlone) {
    // Of three lines' header, 249 rows and the five lines that are kept free, one line step too little.
    state.PageHeight = static_cast<std::int32_t>((3 + 248.5) * LineStep + 5 * 192);
    PrintNameList(state);
    EXPECT_EQ(printer.canvas.pages, 2);
    EXPECT_EQ(Texts().back().text, "Woonplaats");
    EXPECT_EQ(Texts().back().page, 2);

    printer.canvas = {};
    printer.Drawing.CurrentY = 0;
    state.PageHeight = static_cast<std::int32_t>((3 + 249.5) * LineStep + 5 * 192);
    PrintNameList(state);
    EXPECT_EQ(printer.canvas.pages, 1);
}

TEST_F(NameListTest, PageWithoutRoomEndsAllTheSame) {
    state.PageHeight = 0;
    PrintNameList(state);
    EXPECT_EQ(printer.canvas.pages, 250);
    EXPECT_EQ(Cells().size(), 4U * 249);
}

} // namespace composition
