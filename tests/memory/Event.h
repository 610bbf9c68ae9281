#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace memory {

/// One value of an event.
struct EventField {
    std::string Name;
    std::variant<std::string, std::int64_t, double, bool> Value;

    bool operator==(const EventField&) const = default;
};

/// Something that the program did to the world outside it: its kind ("text", "message", "spooler") and what
/// belongs to it, in a fixed order for each kind.
struct Event {
    std::string Kind;
    std::vector<EventField> Fields;

    bool operator==(const Event&) const = default;
};

using EventSink = std::function<void(const Event&)>;

} // namespace memory
