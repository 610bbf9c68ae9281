#pragma once

#include <functional>

namespace desktop::windows {

/// Runs the program, and answers its exit status: 0, or 1 after a failure that left it. The user is told of
/// that one in a box of its own, as there may be no desktop yet, or none any more.
int RunGuarded(const std::function<void()>& program) noexcept;

} // namespace desktop::windows
