#pragma once

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace desktop::regfile {

/// An open file of the machine, which is closed when this goes.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

    /// 0, or -1 with errno set.
    int Close() { return IsOpen() ? close(std::exchange(number_, -1)) : 0; }

  private:
    int number_;
};

/// Makes a call of the machine again as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace desktop::regfile
