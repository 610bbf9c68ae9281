// Loads beyond what a user asks of the program: each runs to its end, and nothing is left out.

#include <set>
#include <string>
#include <variant>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/LoadedProgram.h"

namespace {

using support::LoadedProgram;

constexpr int FormsOnSheet = 3;

int Sheets(int forms) {
    return (forms + FormsOnSheet - 1) / FormsOnSheet;
}

void ExpectForms(const LoadedProgram& program, int forms) {
    EXPECT_EQ(program.Printer.Canvas.Forms, forms);
    EXPECT_EQ(program.Printer.Canvas.Pages, Sheets(forms));
    EXPECT_EQ(program.Printer.Canvas.Documents, 1);
    EXPECT_TRUE(program.Memory.desktop.Messages().empty());
    EXPECT_FALSE(program.State.PrintManagerOpen);
}

TEST(LoadTest, MostFormsThatTheWizardTakes) {
    LoadedProgram program;
    program.Print(30000);
    ExpectForms(program, 30000);
}

TEST(LoadTest, FormsWithMostCopies) {
    LoadedProgram program;
    program.Print(101, 99);
    ExpectForms(program, 101 * 99);
}

/// Takes minutes under the sanitizers.
TEST(LoadTest, ManyFormsWithMostCopies) {
    LoadedProgram program;
    program.Print(9999, 99);
    ExpectForms(program, 9999 * 99);
}

TEST(LoadTest, AllOfManyPrintersCanBeChosen) {
    constexpr int many = 200;
    LoadedProgram program(many);
    std::set<std::string> asked;
    program.Memory.recorder.Sink = [&](const memory::Event& event) {
        for (const memory::EventField& field : event.Fields) {
            if (event.Kind == "spooler" && field.Name == "printer") {
                asked.insert(std::get<std::string>(field.Value));
            }
        }
    };
    program.ChooseEachPrinter();
    EXPECT_EQ(asked.size(), static_cast<std::size_t>(many));
    // Who shows a printer's details keeps its handle until the program ends: the first one's, and one for
    // each choice.
    EXPECT_EQ(program.Memory.spooler.OpenHandles(), static_cast<std::size_t>(many + 1));
}

// An opening asks the printer that it selects, however many there are.
TEST(LoadTest, AnOpeningAsksAsManyQuestionsWithManyPrintersAsWithOne) {
    const auto questions = [](int printers) {
        LoadedProgram program(printers);
        int count = 0;
        program.Memory.recorder.Sink = [&](const memory::Event& event) {
            count += event.Kind == "spooler" ? 1 : 0;
        };
        program.OpenManager();
        return count;
    };
    EXPECT_GT(questions(1), 0);
    EXPECT_EQ(questions(200), questions(1));
}

// Of the long name the stub takes what fits, and the rest of the form has it whole.
TEST(LoadTest, ALongCreditorIsDrawn) {
    constexpr int length = 10000;
    constexpr int forms = 30;
    LoadedProgram program(1, std::string(length, 'a'));
    program.Print(forms);
    ExpectForms(program, forms);
    EXPECT_GE(program.Printer.Canvas.Bytes, length * forms);
    EXPECT_LT(program.Printer.Canvas.Bytes, 2 * length * forms);
}

// Who stores a setting keeps the handle of its key until the program ends, once for each opening.
TEST(LoadTest, ThousandOpeningsLeaveTheHandleOfASettingEachAndNothingElse) {
    constexpr std::size_t openings = 1000;
    constexpr std::size_t bytesOfAHandle = 256;
    LoadedProgram program;
    program.OpenManager();
    program.OpenManager();
    const std::size_t bytes = support::AllocatedBytes();
    const std::size_t settings = program.Memory.registry.OpenHandles();
    const std::size_t printers = program.Memory.spooler.OpenHandles();
    for (std::size_t i = 0; i < openings; ++i) {
        program.OpenManager();
    }
    EXPECT_EQ(program.Memory.registry.OpenHandles(), settings + openings);
    EXPECT_EQ(program.Memory.spooler.OpenHandles(), printers);
    EXPECT_LE(support::AllocatedBytes(), bytes + openings * bytesOfAHandle);
    program.Print(3);
    ExpectForms(program, 3);
}

// Both counts are told of by a sentence of one length: there are more forms than names.
TEST(LoadTest, ALongRunHoldsNoMoreThanAShortOne) {
    const auto held = [](int forms) {
        LoadedProgram program;
        program.Print(3);
        const std::size_t before = support::AllocatedBytes();
        program.Print(forms);
        return support::AllocatedBytes() - before;
    };
    EXPECT_EQ(held(3000), held(1000));
}

} // namespace
