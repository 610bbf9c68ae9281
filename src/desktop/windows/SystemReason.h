#pragma once

#include <cstdint>
#include <string>

namespace desktop::windows {

/// The system's own sentence for an error, in the user's language; empty if it has none.
std::string SystemReason(std::uint32_t error);

/// The text with the system's own sentence for an error behind it, in the user's language, where it has one.
std::string WithReason(const std::string& text, std::uint32_t error);

} // namespace desktop::windows
