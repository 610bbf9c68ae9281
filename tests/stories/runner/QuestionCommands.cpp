#include <string>

#include "Calls.h"
#include "CommandLine.h"
#include "Commands.h"
#include "Paths.h"
#include "ScriptError.h"
#include "World.h"
#include "testdata/Tables.h"

namespace scenario {

namespace {

Json Answer(World& world, const std::string& path) {
    Json value = ValueAt(world, path);
    world.record.Write(Json{{"get", path}, {"value", value}});
    return value;
}

void Get(World& world, CommandLine& line) {
    Answer(world, line.Word("path"));
}

void Expect(World& world, CommandLine& line) {
    const std::string path = line.Word("path");
    const Json expected = Parsed(line.Rest());
    const Json value = Answer(world, path);
    if (value != expected) {
        throw ExpectationFailed(path + " is " + LineOf(value) + ", not " + LineOf(expected));
    }
}

void CallCommand(World& world, CommandLine& line) {
    const std::string name = line.Word("routine");
    Call(world, name, Parsed(line.Rest()));
}

void Dump(World& world, CommandLine& line) {
    const std::string what = line.Word("table");
    if (what != "accounts" && what != "persons") {
        throw ScriptError("no such table: " + what);
    }
    const base::TextTable& table = what == "accounts" ? testdata::AccountTable() : testdata::PersonTable();
    for (std::int32_t row = 0; row < table.FilledRows(); ++row) {
        world.record.Write(Json{{"row", row}, {"text", table[row]}});
    }
}

constexpr Command Commands[] = {
    {"get", Get},
    {"expect", Expect},
    {"call", CallCommand},
    {"dump", Dump},
};

} // namespace

std::span<const Command> QuestionCommands() {
    return Commands;
}

} // namespace scenario
