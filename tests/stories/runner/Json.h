#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace scenario {

/// JSON whose members keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// A number that is whole becomes a JSON integer, so it is written without a point.
Json Number(double value);

/// One line of the record. Bytes that are no UTF-8 are replaced, never a failure.
std::string LineOf(const Json& json);

/// ScriptError if the text is no JSON.
Json Parsed(std::string_view text);

} // namespace scenario
