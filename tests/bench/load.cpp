// The whole program under a load, on printers that keep nothing; tells time and memory as JSON.
//
// load LOAD SIZE
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "bench/Measured.h"
#include "support/LoadedProgram.h"

namespace {

using support::LoadedProgram;

constexpr int ManyForms = 9999;
constexpr int CreditorForms = 300;

void Forms(int size) {
    LoadedProgram program;
    bench::TellMeasures([&] { program.Print(size); });
}
void Copies(int size) {
    LoadedProgram program;
    bench::TellMeasures([&] { program.Print(ManyForms, size); });
}
void Creditor(int size) {
    LoadedProgram program(1, std::string(static_cast<std::size_t>(size), 'a'));
    bench::TellMeasures([&] { program.Print(CreditorForms); });
}
void Printers(int size) {
    LoadedProgram program(size);
    program.Print(1); // what a first opening makes once
    bench::TellMeasures([&] { program.OpenManager(); });
}
void EachPrinter(int size) {
    LoadedProgram program(size);
    program.Print(1);
    bench::TellMeasures([&] { program.ChooseEachPrinter(); });
}
void Openings(int size) {
    LoadedProgram program;
    program.Print(1);
    bench::TellMeasures([&] {
        for (int i = 0; i < size; ++i) {
            program.OpenManager();
        }
    });
}

struct Load {
    std::string_view Name;
    void (*Run)(int size);
};
constexpr std::array<Load, 6> Loads = {{
    {"forms", Forms},
    {"copies", Copies},
    {"creditor", Creditor},
    {"printers", Printers},
    {"each_printer", EachPrinter},
    {"openings", Openings},
}};

} // namespace

int main(int argc, char** argv) {
    for (const Load& load : Loads) {
        if (argc == 3 && load.Name == argv[1]) {
            load.Run(static_cast<int>(std::strtol(argv[2], nullptr, 10)));
            return 0;
        }
    }
    std::fputs("load forms|copies|creditor|printers|each_printer|openings SIZE\n", stderr);
    return 2;
}
