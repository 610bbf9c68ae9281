#pragma once

#include <utility>

namespace forms {
class Desktop;
}

namespace desktop::qt {

/// From now on a failure that no handler of the program knows is told there, and the program goes on. With
/// nullptr, as at first, it passes on and ends the program. The desktop that was named before.
forms::Desktop* TellFailuresOn(forms::Desktop* desktop);

// To be called where an exception is being handled.

/// Tells the user, but for a failure that comes while another is being told: that one is logged.
void TellFailure();
/// Writes it to the log of the toolkit.
void LogFailure();

// The toolkit knows no exceptions: none may leave what it calls of the program, be it a slot, a filter or an
// event. Each such function does its work in one of these.

/// Runs what the toolkit has called for.
template <class Handler>
void Guarded(Handler&& handler) {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        TellFailure();
    }
}

/// The same where the toolkit wants an answer: `failed` is what it gets where there is none.
template <class Answer, class Handler>
Answer Guarded(Answer failed, Handler&& handler) {
    try {
        return std::forward<Handler>(handler)();
    } catch (...) {
        TellFailure();
    }
    return failed;
}

/// For painting, and for the questions of assistive technology: a message box would bring the next of them.
template <class Handler>
void GuardedQuietly(Handler&& handler) {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        LogFailure();
    }
}

template <class Answer, class Handler>
Answer GuardedQuietly(Answer failed, Handler&& handler) {
    try {
        return std::forward<Handler>(handler)();
    } catch (...) {
        LogFailure();
    }
    return failed;
}

} // namespace desktop::qt
