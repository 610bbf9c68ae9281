#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "Json.h"
#include "ScriptError.h"
#include "Target.h"
#include "base/Boolean.h"

template <>
struct nlohmann::adl_serializer<base::Boolean> {
    template <class Any>
    // NOLINTNEXTLINE(readability-identifier-naming): the name that the library calls
    static void to_json(Any& json, const base::Boolean& flag) {
        json = static_cast<bool>(flag);
    }
};

/// Fields of the program's records by their names: tables of members, read and written by one rule.
namespace scenario {

template <class Record>
using Member = std::variant<base::Boolean Record::*, std::int16_t Record::*, std::int32_t Record::*,
                            std::string Record::*, std::array<std::string, 4> Record::*,
                            std::array<std::string, 5> Record::*, std::array<std::string, 11> Record::*,
                            std::vector<std::int16_t> Record::*>;

template <class Record>
struct Field {
    std::string_view Name;
    Member<Record> Where;
    /// Number of the first element of an array.
    int First = 0;
};

template <class Value>
inline constexpr bool IsList = !std::is_arithmetic_v<Value> && !std::is_same_v<Value, std::string> &&
                               !std::is_same_v<Value, base::Boolean>;

/// ScriptError if the JSON is of another kind, or does not fit.
template <class Value>
void Assign(Value& to, const Json& json) {
    if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, base::Boolean>) {
        if (json.is_boolean()) {
            to = json.get<bool>();
            return;
        }
    } else if constexpr (std::is_integral_v<Value>) {
        if (json.is_number_integer() && json >= std::numeric_limits<Value>::min() &&
            json <= std::numeric_limits<Value>::max()) {
            to = json.get<Value>();
            return;
        }
    } else if constexpr (std::is_same_v<Value, std::string>) {
        if (json.is_string()) {
            to = json.get<std::string>();
            return;
        }
    }
    throw ScriptError("the value does not fit: " + LineOf(json));
}

/// The element of an array that a path names; ScriptError if there is none.
template <class List>
auto& ElementOf(List& list, const PathPart& part, int first) {
    const auto position = static_cast<std::size_t>(part.Index - first);
    if (part.Index < first || position >= list.size()) {
        throw ScriptError(part.Name + " has no element " + std::to_string(part.Index));
    }
    return list[position];
}

/// Looks the field up and hands it, or one element of it, to `use`. False if the table has no such field.
template <class Record, class Table, class Use>
bool WithField(Record& record, const Table& table, const PathPart& part, const Use& use) {
    for (const auto& field : table) {
        if (field.Name != part.Name) {
            continue;
        }
        std::visit(
            [&](const auto member) {
                auto& value = record.*member;
                if constexpr (IsList<std::remove_cvref_t<decltype(value)>>) {
                    if (part.HasIndex()) {
                        use(ElementOf(value, part, field.First));
                    } else {
                        use(value);
                    }
                } else {
                    use(value);
                }
            },
            field.Where);
        return true;
    }
    return false;
}

} // namespace scenario
