#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "MemoryStage.h"
#include "RecordWriter.h"
#include "World.h"

namespace scenario {

/// Ends of a run, as exit status.
inline constexpr int StatusDone = 0;
inline constexpr int StatusScriptError = 2;
inline constexpr int StatusExpectationFailed = 3;

/// Plays a script, line by line. A modal form does not stop it: the next lines are played inside the call
/// that shows the form, and when the script has come to its end, forms that are still modal are closed.
class Player {
  public:
    /// Reads the script from `script`; the record goes to `out`, and why a run ended early to `complaints`.
    /// Plays on memory, or on the stage that `makeStage` makes.
    Player(std::istream& script, std::ostream& out, std::ostream& complaints,
           const StageMaker& makeStage = MakeMemoryStage);

    /// Told of each command before it is played.
    std::function<void(const std::string& line)> OnCommand;

    /// Plays all of it. The result is an exit status.
    int Run();

  private:
    /// Plays the next command. False if there is none.
    bool Step();
    bool StepInModal();
    /// Runs `play`; an exit status.
    int StatusOf(const std::function<void()>& play);

    std::istream& script_;
    std::ostream& complaints_;
    RecordWriter record_;
    World world_;
    int lineNumber_ = 0;
    int failedLine_ = 0;
};

} // namespace scenario
