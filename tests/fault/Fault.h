#pragma once

#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace fault {

/// What a call of the machine belongs to.
enum class Kind { Store, Spooler, Printer, Canvas, Bitmap, Window, Timer, File, Locale };

inline constexpr Kind AllKinds[] = {Kind::Store,  Kind::Spooler, Kind::Printer, Kind::Canvas, Kind::Bitmap,
                                    Kind::Window, Kind::Timer,   Kind::File,    Kind::Locale};

const char* NameOf(Kind kind);

struct CallOfKind {
    std::string_view Name;
    Kind Of;
};

/// All calls that can fail.
std::span<const CallOfKind> AllCalls();

/// True if there is such a call, of this kind.
bool IsOfKind(std::string_view call, Kind kind);

inline constexpr std::string_view CallCreateWindow = "CreatePeer";

// Calls that the memory platform does not have, because nothing of it stands between: a timer's tick, and the
// print log's file.
inline constexpr std::string_view CallTick = "Tick";
inline constexpr std::string_view CallOpenFile = "fopen";
inline constexpr std::string_view CallWriteFile = "fwrite";

/// Lets the n-th call of one kind fail, and no other.
class Fault {
  public:
    /// `number` counts from 1; with 0 no call fails.
    Fault(Kind kind, int number) : kind_(kind), number_(number) {}

    /// True if this call is to fail; counts it.
    bool Strikes(std::string_view call);

    /// Told at the moment of failure, before the caller is.
    std::function<void()> OnStrike;

    /// From now on all calls succeed, and none is counted.
    void Disarm() { armed_ = false; }

    /// Calls of the kind so far.
    int Count() const { return count_; }
    /// Name of the call that failed, or empty.
    const std::string& Call() const { return call_; }
    /// Names of the calls of the kind that were made, if none of them was to fail.
    const std::set<std::string>& Calls() const { return calls_; }

  private:
    Kind kind_;
    int number_;
    bool armed_ = true;
    int count_ = 0;
    std::string call_;
    std::set<std::string> calls_;
};

} // namespace fault
