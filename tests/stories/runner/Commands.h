#pragma once

#include <span>
#include <string_view>

namespace scenario {

class CommandLine;
class World;

/// A command of the script. It reads its own arguments from the rest of the line.
struct Command {
    std::string_view Name;
    void (*Run)(World&, CommandLine&);
};

/// What stands ready on the machine: settings, printers, clock and the like, and the start of the program.
std::span<const Command> MachineCommands();
/// What the user does.
std::span<const Command> UserCommands();
/// What the script asks, calls and lists.
std::span<const Command> QuestionCommands();

} // namespace scenario
