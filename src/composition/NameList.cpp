#include "composition/NameList.h"

#include <array>
#include <cstdint>
#include <string>

#include "composition/ListSteps.h"
#include "composition/SurfaceRules.h"
#include "payment/CheckDigits.h"
#include "testdata/Person.h"
#include "testdata/Tables.h"
#include "wizard/AppState.h"

namespace composition {

namespace {

constexpr std::int32_t lastRow = 248;
constexpr std::int16_t numberWidth = 3;
constexpr std::int16_t linesKeptFree = 3;

struct Column {
    double offsetTwips; ///< from the left margin
    std::string_view header;
};

constexpr std::array<Column, 4> columns = {{
    {0, "Naam"},
    {5000, "Adres"},
    {8000, "Postcode"},
    {9500, "Woonplaats"},
}};

void Header(ListSteps& steps, double left) {
    steps.RegelVerder();
    for (const Column& column : columns) {
        steps.Print(left + column.offsetTwips, column.header);
    }
    steps.RegelVerder();
    steps.TrekLijn();
    steps.RegelVerder();
}

} // namespace

void PrintNameList(const wizard::AppState& state) {
    ListSteps steps(state);
    const double left = state.LeftMargin;
    Header(steps, left);

    testdata::Person person;
    std::string name;
    for (std::int32_t row = 0; row <= lastRow; ++row) {
        platform::Resume([&] { testdata::SplitPerson((*state.PersonTable)[row], person); });
        name = payment::NulVulling(row + 1, numberWidth);
        name.append(" : ").append(person.naam).append(" ").append(person.partner);
        const std::array<std::string_view, columns.size()> cells = {name, person.adres, person.postcode,
                                                                    person.woonplaats};
        for (std::size_t i = 0; i < columns.size(); ++i) {
            steps.Print(left + columns[i].offsetTwips, cells[i]);
        }
        steps.RegelVerder();

        bool full = false;
        platform::Resume([&] { full = PaginaVol(state, linesKeptFree); });
        if (full) {
            steps.OnSurface([](PrintSurface& surface) { surface.Newpage(); });
            Header(steps, left);
        }
    }
}

} // namespace composition
