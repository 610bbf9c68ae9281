#pragma once

#include <optional>

#include <QWidget>

#include "Json.h"
#include "Target.h"

namespace scenario {

/// What a real control shows of a property, as a script asks for it; nothing if the property is none that it
/// shows.
std::optional<Json> ShownValue(const QWidget& widget, const PathPart& property);

} // namespace scenario
