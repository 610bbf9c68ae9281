#pragma once

#include <string_view>

namespace scenario {

class World;

/// Plays one line of a script: a command and its words. ScriptError if it is none.
void PlayLine(World& world, std::string_view line);

} // namespace scenario
