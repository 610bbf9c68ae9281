#pragma once

#include <string>
#include <vector>

#include "memory/Event.h"

namespace printmanager {

/// Events as short lines that a test can list: "open Laser", "yield*20", "set paper=5 bin=1",
/// "Printer=Laser".
inline std::string FieldText(const memory::Event& event, const std::string& name) {
    for (const memory::EventField& field : event.Fields) {
        if (field.Name != name) {
            continue;
        }
        if (const auto* text = std::get_if<std::string>(&field.Value)) {
            return *text;
        }
        if (const auto* number = std::get_if<std::int64_t>(&field.Value)) {
            return std::to_string(*number);
        }
        if (const auto* flag = std::get_if<bool>(&field.Value)) {
            return *flag ? "true" : "false";
        }
    }
    return "?";
}

inline std::string SpoolerLine(const memory::Event& event) {
    const std::string call = FieldText(event, "call");
    const std::string settings =
        " paper=" + FieldText(event, "dmPaperSize") + " bin=" + FieldText(event, "dmDefaultSource");
    if (call == "OpenPrinterA") {
        return "open " + FieldText(event, "printer");
    }
    if (call == "ClosePrinter") {
        return "close " + FieldText(event, "printer");
    }
    if (call == "DocumentPropertiesA") {
        const std::string mode = FieldText(event, "mode");
        return mode == "0" ? "size" : mode == "2" ? "fetch" : "merge" + settings;
    }
    if (call == "GetPrinterA") {
        return FieldText(event, "size") == "0" ? "info size" : "info";
    }
    if (call == "SetPrinterA") {
        return "set" + settings;
    }
    return "caps " + FieldText(event, "capability");
}

inline std::string TraceLine(const memory::Event& event) {
    if (event.Kind == "spooler") {
        return SpoolerLine(event);
    }
    if (event.Kind == "set") {
        return FieldText(event, "property") + "=" + FieldText(event, "value");
    }
    if (event.Kind == "store") {
        return "store " + FieldText(event, "name") + "=" + FieldText(event, "value");
    }
    if (event.Kind == "progress") {
        return "progress " + FieldText(event, "value");
    }
    if (event.Kind == "mouse") {
        return "mouse " + FieldText(event, "pointer");
    }
    if (event.Kind == "error") {
        return "error " + FieldText(event, "number");
    }
    if (event.Kind == "show" || event.Kind == "unload") {
        return event.Kind + " " + FieldText(event, "form");
    }
    return event.Kind;
}

/// Yields in a row become one line with their number.
inline std::vector<std::string> Traced(const std::vector<memory::Event>& events) {
    std::vector<std::string> lines;
    int yields = 0;
    const auto flush = [&] {
        if (yields > 0) {
            lines.push_back("yield*" + std::to_string(yields));
        }
        yields = 0;
    };
    for (const memory::Event& event : events) {
        if (event.Kind == "yield") {
            ++yields;
            continue;
        }
        flush();
        lines.push_back(TraceLine(event));
    }
    flush();
    return lines;
}

/// Several lists of lines, one after the other.
inline std::vector<std::string> Joined(const std::vector<std::vector<std::string>>& parts) {
    std::vector<std::string> all;
    for (const auto& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

} // namespace printmanager
