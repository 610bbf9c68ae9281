#include "composition/NameList.h"

#include <array>
#include <cstdint>
#include <string>

#include "composition/ListSteps.h"
#include "composition/SurfaceRules.h"
#include "payment/CheckDigits.h"
#include "state/AppState.h"
#include "testdata/Person.h"
#include "testdata/Tables.h"

namespace composition {

namespace {

constexpr std::int16_t NumberWidth = 3;
constexpr std::int16_t LinesKeptFree = 3;

struct Column {
    double OffsetTwips; ///< from the left margin
    std::string_view Header;
    FormField Field;
};

constexpr std::array<Column, 4> Columns = {{
    {0, "Naam", {"de kolom Naam van de namenlijst"}},
    {5000, "Adres", {"de kolom Adres van de namenlijst"}},
    {8000, "Postcode", {"de kolom Postcode van de namenlijst"}},
    {9500, "Woonplaats", {"de kolom Woonplaats van de namenlijst"}},
}};

void Header(ListSteps& steps, double left) {
    steps.RegelVerder();
    for (const Column& column : Columns) {
        steps.Field(column.Field);
        steps.Print(left + column.OffsetTwips, column.Header);
    }
    steps.RegelVerder();
    steps.TrekLijn();
    steps.RegelVerder();
}

} // namespace

void PrintNameList(const state::AppState& state) {
    ListSteps steps(state);
    const double left = state.LeftMargin;
    Header(steps, left);

    testdata::Person person;
    std::string name;
    for (std::int32_t row = 0; row <= testdata::LastRij; ++row) {
        base::Resume([&] { testdata::SplitPerson((*state.PersonTable)[row], person); });
        name = payment::NulVulling(row + 1, NumberWidth);
        name.append(" : ").append(person.naam).append(" ").append(person.partner);
        const std::array<std::string_view, Columns.size()> cells = {name, person.adres, person.postcode,
                                                                    person.woonplaats};
        for (std::size_t i = 0; i < Columns.size(); ++i) {
            steps.Field(Columns[i].Field);
            steps.Print(left + Columns[i].OffsetTwips, cells[i]);
        }
        steps.RegelVerder();

        bool full = false;
        base::Resume([&] { full = PaginaVol(state, LinesKeptFree); });
        if (full) {
            steps.OnSurface([](PrintSurface& surface) { surface.Newpage(); });
            Header(steps, left);
        }
    }
}

} // namespace composition
