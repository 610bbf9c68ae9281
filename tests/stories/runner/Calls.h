#pragma once

#include <string>

#include "Json.h"

namespace scenario {

class World;

/// Calls a plain routine, or a public operation of a loaded form ("FORM.NAME"), and records its result, with
/// the arguments if it changed any. A run-time error is recorded in place of the result. ScriptError if there
/// is no such routine.
void Call(World& world, const std::string& name, const Json& arguments);

class Arguments;

// The two kinds of calls, each in a file of its own. ScriptError if there is none of that name.

Json CallRoutine(World& world, const std::string& name, Arguments& arguments);
Json CallOperation(World& world, const std::string& form, const std::string& name, Arguments& arguments);

} // namespace scenario
