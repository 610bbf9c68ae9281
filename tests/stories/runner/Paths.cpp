#include "Paths.h"

#include <optional>

#include "Fields.h"
#include "World.h"

namespace scenario {

namespace {

constexpr std::string_view StorePrefix = "Store.";
constexpr std::string_view SpoolerPrefix = "Spooler.";

/// "Spooler.PRINTER.FIELD": the printer's name may hold points itself.
struct SpoolerPath {
    std::string Printer;
    std::string Field;
};

SpoolerPath SpoolerPathOf(const std::string& path) {
    const std::size_t point = path.rfind('.');
    if (point < SpoolerPrefix.size()) {
        throw ScriptError("no field of a printer: " + path);
    }
    return {path.substr(SpoolerPrefix.size(), point - SpoolerPrefix.size()), path.substr(point + 1)};
}

Json StoreValue(const World& world, const std::string& name) {
    const std::optional<std::string> text = world.memory.registry.Text(SettingsPath, name);
    return text ? Json(*text) : Json();
}

Json LoadedForms(const World& world) {
    Json names = Json::array();
    for (const forms::Form* form : world.session.OpenForms()) {
        names.push_back(form->Name());
    }
    return names;
}

} // namespace

Json ValueAt(World& world, const std::string& path) {
    if (path == "Forms") {
        return LoadedForms(world);
    }
    if (path.starts_with(StorePrefix)) {
        return StoreValue(world, path.substr(StorePrefix.size()));
    }
    if (path.starts_with(SpoolerPrefix)) {
        const SpoolerPath spooler = SpoolerPathOf(path);
        return SpoolerValue(world, spooler.Printer, spooler.Field);
    }
    const std::vector<PathPart> parts = PartsOf(path);
    if (parts.size() < 2) {
        throw ScriptError("no such path: " + path);
    }
    if (parts[0].Name == "AppState" && parts.size() == 2) {
        return StateValue(world, parts[1]);
    }
    if (parts[0].Name == "Printer" && parts.size() == 2) {
        return PrinterValue(world, parts[1].Name);
    }
    forms::Form& form = world.FormNamed(parts[0].Name);
    const Json value = FormValue(form, {parts.begin() + 1, parts.end()});
    const bool ofControl = parts.size() == 3;
    return ofControl ? world.stage->Shown(ControlOf(form, parts[1]), parts[2]).value_or(value) : value;
}

void Poke(World& world, const std::string& path, const Json& value) {
    if (path.starts_with(StorePrefix)) {
        std::string text;
        Assign(text, value);
        world.memory.registry.SetText(SettingsPath, path.substr(StorePrefix.size()), text);
        return;
    }
    if (path.starts_with(SpoolerPrefix)) {
        const SpoolerPath spooler = SpoolerPathOf(path);
        PokeSpooler(world, spooler.Printer, spooler.Field, value);
        return;
    }
    const std::vector<PathPart> parts = PartsOf(path);
    if (parts.size() != 2) {
        throw ScriptError("cannot be written: " + path);
    }
    if (parts[0].Name == "AppState") {
        PokeState(world, parts[1], value);
    } else {
        PokeForm(world.FormNamed(parts[0].Name), parts[1], value);
    }
}

} // namespace scenario
