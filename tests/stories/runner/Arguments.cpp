#include "Arguments.h"

#include <utility>

#include "Fields.h"
#include "ScriptError.h"

namespace scenario {

Arguments::Arguments(Json json) : json_(std::move(json)) {
    if (!json_.is_array()) {
        throw ScriptError("the arguments are no list");
    }
}

template <class Value>
Value Arguments::At(std::size_t position) const {
    Value value{};
    Assign(value, json_.at(position));
    return value;
}

std::string Arguments::Text(std::size_t position) const {
    return At<std::string>(position);
}

bool Arguments::Flag(std::size_t position) const {
    return At<bool>(position);
}

std::int16_t Arguments::Int16(std::size_t position) const {
    return At<std::int16_t>(position);
}

std::int32_t Arguments::Int32(std::size_t position) const {
    return At<std::int32_t>(position);
}

void Arguments::ExpectCount(std::size_t count) const {
    if (json_.size() != count) {
        throw ScriptError("the call takes " + std::to_string(count) + " arguments");
    }
}

} // namespace scenario
