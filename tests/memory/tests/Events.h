#pragma once

#include <string>
#include <vector>

#include "memory/Event.h"
#include "memory/MemoryPlatform.h"

/// A memory platform whose events are kept.
struct WatchedPlatform {
    WatchedPlatform() {
        memory.recorder.Sink = [this](const memory::Event& event) { events.push_back(event); };
    }

    std::vector<memory::Event> events;
    memory::MemoryPlatform memory;
};

/// The value of an event's field, or the text "?" if it has no such field.
inline std::variant<std::string, std::int64_t, double, bool> FieldOf(const memory::Event& event,
                                                                     const std::string& name) {
    for (const memory::EventField& field : event.Fields) {
        if (field.Name == name) {
            return field.Value;
        }
    }
    return std::string("?");
}
