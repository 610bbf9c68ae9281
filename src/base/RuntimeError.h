#pragma once

#include <stdexcept>
#include <string>

namespace base {

/// A failing operation of the machine (printer, spooler, store, window system) or a conversion that does not
/// fit, as one type with the number that users and support know it by. Callers that promise to go on all the
/// same do so through Resume(); everybody else lets it pass.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    int Number() const noexcept { return number_; }
    std::string Description() const { return what(); }

  private:
    int number_;
};

// The numbers that the program tells apart or raises itself.
inline constexpr int ErrorOverflow = 6;
inline constexpr int ErrorOutOfMemory = 7;
inline constexpr int ErrorSubscriptOutOfRange = 9;
inline constexpr int ErrorTypeMismatch = 13;
inline constexpr int ErrorNoObject = 91;
inline constexpr int ErrorInvalidPropertyValue = 380;
inline constexpr int ErrorNoSuchMember = 438;
inline constexpr int ErrorDuplicateKey = 457;
inline constexpr int ErrorPrinter = 482;

// Those that are raised in more than one place, with the words that go with the number.

/// What the machine answers where it cannot make one more bitmap or window.
inline RuntimeError OutOfMemory() {
    return {ErrorOutOfMemory, "Out of memory"};
}
/// A number that its type cannot hold.
inline RuntimeError Overflow() {
    return {ErrorOverflow, "Overflow"};
}
/// A place in a list or a table that is not there.
inline RuntimeError SubscriptOutOfRange() {
    return {ErrorSubscriptOutOfRange, "Subscript out of range"};
}
/// A text where a number has to stand.
inline RuntimeError TypeMismatch() {
    return {ErrorTypeMismatch, "Type mismatch"};
}
/// A page or a surface that is not there (yet).
inline RuntimeError NoObject() {
    return {ErrorNoObject, "Object variable not set"};
}
/// A property that does not take the value.
inline RuntimeError InvalidPropertyValue() {
    return {ErrorInvalidPropertyValue, "Invalid property value"};
}

} // namespace base
