#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace desktop::windows {

/// The time since the machine was started.
std::chrono::milliseconds SinceStart();

/// A call in a thread of its own, for which nobody has to wait: it holds all that it needs, and may go on
/// when this object is gone. A failure in it ends it, and nobody is told.
class Background {
  public:
    /// Begins the call; where the machine has no more threads it never ends.
    explicit Background(std::function<void()> call);

    /// Waits for its end no longer than that. What the call has written can be read once it is true.
    bool HasEnded(std::chrono::milliseconds patience) const;

  private:
    struct Shared;
    static unsigned long __stdcall Run(void* shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace desktop::windows
