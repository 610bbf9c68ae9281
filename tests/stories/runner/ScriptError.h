#pragma once

#include <stdexcept>

namespace scenario {

/// A line of the script that cannot be followed: no such command, form, control or property, or arguments
/// that do not fit. It ends the run.
class ScriptError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A value that is not as the script expects. It ends the run as well.
class ExpectationFailed : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace scenario
