#include "Fields.h"
#include "Paths.h"
#include "World.h"

namespace scenario {

namespace {

using memory::MemoryPrinter;
using memory::PrintQueue;

struct PrinterProperty {
    std::string_view Name;
    Json (*Get)(MemoryPrinter&);
};

constexpr PrinterProperty PrinterProperties[] = {
    {"DeviceName", [](MemoryPrinter& p) { return Json(p.DeviceName()); }},
    {"Port", [](MemoryPrinter& p) { return Json(p.Port()); }},
    {"Orientation", [](MemoryPrinter& p) { return Json(p.Orientation()); }},
    {"PaperSize", [](MemoryPrinter& p) { return Json(p.PaperSize()); }},
    {"PaperBin", [](MemoryPrinter& p) { return Json(p.PaperBin()); }},
    {"Copies", [](MemoryPrinter& p) { return Json(p.Copies()); }},
    {"Width", [](MemoryPrinter& p) { return Number(p.Width()); }},
    {"Height", [](MemoryPrinter& p) { return Number(p.Height()); }},
    {"ScaleLeft", [](MemoryPrinter& p) { return Number(p.ScaleLeft()); }},
    {"ScaleTop", [](MemoryPrinter& p) { return Number(p.ScaleTop()); }},
    {"ScaleWidth", [](MemoryPrinter& p) { return Number(p.ScaleWidth()); }},
    {"ScaleHeight", [](MemoryPrinter& p) { return Number(p.ScaleHeight()); }},
    {"CurrentX", [](MemoryPrinter& p) { return Number(p.Drawing.CurrentX); }},
    {"CurrentY", [](MemoryPrinter& p) { return Number(p.Drawing.CurrentY); }},
    {"FontName", [](MemoryPrinter& p) { return Json(p.Drawing.Font.Name); }},
    {"FontSize", [](MemoryPrinter& p) { return Number(p.Drawing.Font.Size); }},
    {"FontBold", [](MemoryPrinter& p) { return Json(p.Drawing.Font.Bold); }},
};

/// Hands the field of an installed printer to `use`; ScriptError if there is no such thing.
template <class Use>
void WithSpoolerField(World& world, const std::string& printer, const std::string& field, const Use& use) {
    PrintQueue* queue = world.memory.printers.Find(printer);
    if (queue == nullptr) {
        throw ScriptError("no such printer: " + printer);
    }
    if (field == "status") {
        use(queue->Status);
    } else if (field == "reachable") {
        use(queue->Reachable);
    } else if (field == "port") {
        use(queue->Port);
    } else if (field == "comment") {
        use(queue->Comment);
    } else if (field == "dmFields") {
        use(queue->Fields);
    } else if (field == "dmOrientation") {
        use(queue->Defaults.Orientation);
    } else if (field == "dmPaperSize") {
        use(queue->Defaults.PaperSize);
    } else if (field == "dmDefaultSource") {
        use(queue->Defaults.DefaultSource);
    } else if (field == "dmCopies") {
        use(queue->Defaults.Copies);
    } else {
        throw ScriptError("no such field of a printer: " + field);
    }
}

} // namespace

Json PrinterValue(World& world, const std::string& property) {
    for (const PrinterProperty& known : PrinterProperties) {
        if (known.Name != property) {
            continue;
        }
        try {
            return known.Get(world.memory.printer);
        } catch (const base::RuntimeError&) { // a machine without a printer
            return nullptr;
        }
    }
    throw ScriptError("no such property of the printer: " + property);
}

Json SpoolerValue(World& world, const std::string& printer, const std::string& field) {
    Json value;
    WithSpoolerField(world, printer, field, [&](const auto& known) { value = known; });
    return value;
}

void PokeSpooler(World& world, const std::string& printer, const std::string& field, const Json& value) {
    WithSpoolerField(world, printer, field, [&](auto& known) { Assign(known, value); });
}

} // namespace scenario
