#include "Json.h"

#include <cmath>

#include "ScriptError.h"

namespace scenario {

Json Number(double value) {
    constexpr double largestExactInteger = 9007199254740992.0;
    if (std::abs(value) <= largestExactInteger && value == std::trunc(value)) {
        return static_cast<std::int64_t>(value);
    }
    return value;
}

std::string LineOf(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json Parsed(std::string_view text) {
    Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded()) {
        throw ScriptError("no JSON: " + std::string(text));
    }
    return json;
}

} // namespace scenario
