#pragma once

namespace desktop::windows {

/// A flag that is up for as long as this lives, whatever ends the scope.
class Raised {
  public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& flag_;
};

} // namespace desktop::windows
