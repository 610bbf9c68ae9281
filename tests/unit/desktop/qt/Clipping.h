#pragma once

#include <string>
#include <vector>

#include <QString>

namespace window {

/// The labels, buttons and boxes of a shown window whose text needs more room than they have, or that reach
/// out of what holds them: each with the room that it needs and has.
std::vector<std::string> Clipped(const QString& form);

} // namespace window
