#include "Calls.h"

#include <optional>

#include "Arguments.h"
#include "World.h"

namespace scenario {

void Call(World& world, const std::string& name, const Json& given) {
    Arguments arguments(given);
    const std::size_t point = name.find('.');
    std::optional<Json> result;
    world.session.Dispatch([&] {
        result = point == std::string::npos
                     ? CallRoutine(world, name, arguments)
                     : CallOperation(world, name.substr(0, point), name.substr(point + 1), arguments);
    });
    if (!result) {
        return;
    }
    Json record{{"call", name}, {"result", *result}};
    if (arguments.All() != given) {
        record["args"] = arguments.All();
    }
    world.record.Write(record);
}

} // namespace scenario
