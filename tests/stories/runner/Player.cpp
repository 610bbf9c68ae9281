#include "Player.h"

#include <cstdlib>

#include "PlayLine.h"
#include "ScriptError.h"

namespace scenario {

Player::Player(std::istream& script, std::ostream& out, std::ostream& complaints, const StageMaker& makeStage)
    : script_(script), complaints_(complaints), record_(out), world_(record_, makeStage) {
    world_.stage->WhileModal([this] { return StepInModal(); });
}

int Player::StatusOf(const std::function<void()>& play) {
    int status = StatusDone;
    try {
        play();
    } catch (const ScriptError& error) {
        complaints_ << "line " << failedLine_ << ": " << error.what() << '\n';
        status = StatusScriptError;
    } catch (const ExpectationFailed& error) {
        complaints_ << "line " << failedLine_ << ": " << error.what() << '\n';
        status = StatusExpectationFailed;
    }
    record_.Flush();
    complaints_.flush();
    return status;
}

int Player::Run() {
    return StatusOf([this] {
        while (Step()) {
        }
    });
}

// A run that ends where no exception can pass ends the process.
bool Player::StepInModal() {
    if (world_.stage->ErrorsPass()) {
        return Step();
    }
    bool more = false;
    const int status = StatusOf([&] { more = Step(); });
    if (status != StatusDone) {
        std::_Exit(status);
    }
    return more;
}

bool Player::Step() {
    std::string line;
    while (std::getline(script_, line)) {
        ++lineNumber_;
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#') {
            continue;
        }
        const int number = lineNumber_;
        if (OnCommand) {
            OnCommand(line);
        }
        try {
            PlayLine(world_, line);
        } catch (const std::runtime_error&) {
            // Lines that were played inside this one have told theirs before.
            if (failedLine_ == 0) {
                failedLine_ = number;
            }
            throw;
        }
        record_.Flush();
        return true;
    }
    return false;
}

} // namespace scenario
