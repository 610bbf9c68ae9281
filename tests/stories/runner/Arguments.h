#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "Json.h"

namespace scenario {

/// The arguments of a call, as JSON. A routine that changes one of them by reference writes it back.
/// ScriptError for an argument that is missing, of another kind or too large for its type.
class Arguments {
  public:
    /// ScriptError if `json` is no list.
    explicit Arguments(Json json);

    std::string Text(std::size_t position) const;
    bool Flag(std::size_t position) const;
    std::int16_t Int16(std::size_t position) const;
    std::int32_t Int32(std::size_t position) const;

    void Set(std::size_t position, const Json& value) { json_[position] = value; }

    /// ScriptError if there are more or fewer than this.
    void ExpectCount(std::size_t count) const;
    const Json& All() const { return json_; }

  private:
    template <class Value>
    Value At(std::size_t position) const;

    Json json_;
};

} // namespace scenario
