#pragma once

#include <string>

#include "Json.h"
#include "Target.h"

namespace scenario {

class World;

/// The value that stands at a path: "AppState.FIELD", "FORM.FIELD", "FORM.CONTROL.PROPERTY",
/// "Printer.PROPERTY", "Store.NAME", "Spooler.PRINTER.FIELD" or "Forms". ScriptError if there is no such
/// thing.
Json ValueAt(World& world, const std::string& path);

/// Writes a field as another program or an operator would: of AppState, of a form, of the spooler, or a text
/// in the settings store.
void Poke(World& world, const std::string& path, const Json& value);

// The kinds of paths, each in a file of its own. The part that names the kind is taken off.

Json StateValue(const World& world, const PathPart& part);
void PokeState(World& world, const PathPart& part, const Json& value);

Json FormValue(forms::Form& form, const std::vector<PathPart>& parts);
void PokeForm(forms::Form& form, const PathPart& part, const Json& value);

/// ScriptError if a control of this kind has no such property.
Json PropertyOf(const Target& target, const PathPart& property);

Json PrinterValue(World& world, const std::string& property);
Json SpoolerValue(World& world, const std::string& printer, const std::string& field);
void PokeSpooler(World& world, const std::string& printer, const std::string& field, const Json& value);

} // namespace scenario
