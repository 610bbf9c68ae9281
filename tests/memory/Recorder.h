#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "memory/Event.h"

namespace memory {

/// What a printer that fails says.
inline constexpr const char* PrinterError = "Printer error";

/// What all parts of the memory platform share: where events go, and which calls are to fail.
class Recorder {
  public:
    /// Receives each event as it happens; events without a sink are lost.
    EventSink Sink;

    void Record(const Event& event) const {
        if (Sink) {
            Sink(event);
        }
    }

    /// Names of all calls that can fail.
    static std::span<const std::string_view> CallsThatCanFail();

    /// Asked at each call that can fail, by its name; true lets it fail, whatever Fail() says.
    std::function<bool(std::string_view call)> ShouldFail;

    /// Lets the next `count` calls of this name fail. False if no such call can fail.
    bool Fail(std::string_view call, int count = 1);

    /// How many calls of this name are still to fail after Fail(): less than it was told if a failure struck.
    int Left(std::string_view call) const;

    /// True if this call is to fail; counts it.
    bool TakeFailure(std::string_view call);

    /// TakeFailure, raised as an error with this number and description.
    void RaiseFailure(std::string_view call, int number, const char* description);

  private:
    std::map<std::string, int, std::less<>> failures_;
};

} // namespace memory
