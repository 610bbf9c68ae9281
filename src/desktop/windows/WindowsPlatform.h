#pragma once

#include <memory>

#include "machine/Audience.h"

namespace machine {
struct Platform;
}

namespace desktop::windows {

/// The Windows desktop: everything outside the program that it works with.
class WindowsPlatform {
  public:
    explicit WindowsPlatform(machine::Audience audience = machine::Audience::User);
    ~WindowsPlatform();
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    machine::Platform& Services();

    /// Runs the message loop until the last form is gone.
    void Run();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace desktop::windows
