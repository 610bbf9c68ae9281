#include "PlayLine.h"

#include <string>

#include "CommandLine.h"
#include "Commands.h"
#include "ScriptError.h"
#include "World.h"

namespace scenario {

void PlayLine(World& world, std::string_view line) {
    CommandLine words(line);
    const std::string name = words.Word("command");
    for (const auto commands : {MachineCommands(), UserCommands(), QuestionCommands()}) {
        for (const Command& command : commands) {
            if (command.Name == name) {
                world.session.Dispatch([&] { command.Run(world, words); });
                words.End();
                world.stage->Settle();
                return;
            }
        }
    }
    throw ScriptError("no such command: " + name);
}

} // namespace scenario
