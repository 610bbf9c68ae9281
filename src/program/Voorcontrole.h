#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace machine {
struct Platform;
}

/// The precheck without a window, for who looks after many machines.
namespace voorcontrole {

/// What the words of the command line ask for.
struct Request {
    bool Help = false;
    bool Version = false;
    bool Json = false;
    std::string Wrong{}; ///< a word that means nothing here; empty if all are good
};

Request ReadRequest(const std::vector<std::string_view>& words);

/// What the program says, and the status that it ends with.
struct Answer {
    std::string Output;
    std::string Complaint{};
    int Status = 0;
};

/// The answer that needs no machine: help, version, a word that means nothing. The status of that last one is
/// StatusSpoils, for nothing has been found in order.
bool AnswersByItself(const Request& request, Answer& answer);

/// Looks at this user's settings, fonts and default printer, for a batch of the largest size. Writes and
/// prints nothing.
Answer Check(machine::Platform& platform, const Request& request);

/// Writes the answer to the standard streams; the status that the process is to end with, which is no
/// all-clear where nobody has received the list.
int Tell(const Answer& answer);

/// Says on the error stream that nothing could be checked, and why; the status to end with.
int TellFailure(const char* reason);

} // namespace voorcontrole
