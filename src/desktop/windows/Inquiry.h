#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "desktop/windows/Background.h"

namespace desktop::windows {

/// A question that may take as long as a network does, asked in the background: whoever wants to know waits a
/// moment for the answer, and else has the one before it.
template <class Answer>
class Inquiry {
  public:
    /// The last answer; nothing if there has been none. Asks anew where that is older than `fresh` and no
    /// question is under way. The question holds all that it needs.
    template <class Question>
    const std::optional<Answer>& Ask(Question question, std::chrono::milliseconds fresh) {
        Collect(std::chrono::milliseconds(0));
        if (!under_ && (!last_ || SinceStart() - answeredAt_ > fresh)) {
            answer_ = std::make_shared<std::optional<Answer>>();
            under_.emplace([question, answer = answer_] { *answer = question(); });
            askedAt_ = SinceStart();
            Collect(Moment);
        }
        return last_;
    }

    /// For how long a question has been waiting for its answer.
    std::chrono::milliseconds Waiting() const {
        return under_ ? SinceStart() - askedAt_ : std::chrono::milliseconds(0);
    }

  private:
    /// What nobody notices. A printer that is there answers sooner.
    static constexpr std::chrono::milliseconds Moment{30};

    void Collect(std::chrono::milliseconds patience) {
        if (under_ && under_->HasEnded(patience)) {
            last_ = *answer_ ? *answer_ : last_;
            answeredAt_ = SinceStart();
            under_.reset();
        }
    }

    std::optional<Background> under_;
    std::shared_ptr<std::optional<Answer>> answer_; ///< of the question under way; the thread's until it ends
    std::optional<Answer> last_;
    std::chrono::milliseconds askedAt_{0};
    std::chrono::milliseconds answeredAt_{0};
};

} // namespace desktop::windows
