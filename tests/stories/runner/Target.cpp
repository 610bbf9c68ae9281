#include "Target.h"

#include "CommandLine.h"
#include "ScriptError.h"
#include "World.h"
#include "forms/StatusBar.h"
#include "forms/Toolbar.h"

namespace scenario {

namespace {

PathPart PartOf(std::string_view text) {
    const std::size_t bracket = text.find('(');
    if (bracket == std::string_view::npos) {
        return {std::string(text)};
    }
    if (!text.ends_with(')')) {
        throw ScriptError("a bracket is not closed: " + std::string(text));
    }
    const std::string_view number = text.substr(bracket + 1, text.size() - bracket - 2);
    return {std::string(text.substr(0, bracket)), WholeNumberOf(number, text)};
}

bool HasElements(const forms::Control& control) {
    return dynamic_cast<const forms::Toolbar*>(&control) != nullptr ||
           dynamic_cast<const forms::StatusBar*>(&control) != nullptr;
}

} // namespace

std::vector<PathPart> PartsOf(std::string_view path) {
    std::vector<PathPart> parts;
    for (;;) {
        const std::size_t point = path.find('.');
        parts.push_back(PartOf(path.substr(0, point)));
        if (point == std::string_view::npos) {
            return parts;
        }
        path.remove_prefix(point + 1);
    }
}

Target ControlOf(forms::Form& form, const PathPart& part) {
    for (forms::Control* control : form.Controls()) {
        if (control->Name() == part.Name && control->Index() == part.Index) {
            return {&form, control};
        }
    }
    for (forms::Control* control : form.Controls()) {
        if (control->Name() == part.Name && HasElements(*control)) {
            return {&form, control, part.Index};
        }
    }
    throw ScriptError("no such control on " + form.Name() + ": " + part.Name +
                      (part.HasIndex() ? "(" + std::to_string(part.Index) + ")" : ""));
}

Target TargetOf(const World& world, std::string_view path) {
    const std::vector<PathPart> parts = PartsOf(path);
    if (parts.size() != 2) {
        throw ScriptError("no control of a form: " + std::string(path));
    }
    return ControlOf(world.FormNamed(parts[0].Name), parts[1]);
}

std::string FullName(const forms::Control& control) {
    return control.Index() == forms::Control::NoIndex
               ? control.Name()
               : control.Name() + "(" + std::to_string(control.Index()) + ")";
}

} // namespace scenario
