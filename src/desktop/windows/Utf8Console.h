#pragma once

namespace desktop::windows {

/// As long as it lives the console takes what is written as UTF-8, as files and pipes have it anyway. The
/// console belongs to the user's shell too, so it gets its own code page back.
class Utf8Console {
  public:
    Utf8Console();
    ~Utf8Console();
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

  private:
    unsigned int before_;
};

} // namespace desktop::windows
