#pragma once

namespace machine {

/// A local date and time as the user reads it off the clock.
struct DateTime {
    int Year = 0;
    int Month = 0; ///< 1 to 12
    int Day = 0;   ///< 1 to 31
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int Millisecond = 0;

    /// 0 up to 86400, with the milliseconds as its fraction.
    double SecondsSinceMidnight() const { return (Hour * 60 + Minute) * 60 + Second + Millisecond / 1000.0; }
};

/// The clock that the program is given, so that a test can hold it.
class Clock {
  public:
    virtual ~Clock() = default;

    virtual DateTime Now() const = 0;
};

} // namespace machine
