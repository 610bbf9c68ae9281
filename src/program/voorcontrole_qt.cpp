// The precheck without a window, on Linux.
#include <cstdlib>
#include <exception>
#include <string_view>
#include <vector>

#include "desktop/qt/QtPlatform.h"
#include "program/Voorcontrole.h"

int main(int argc, char** argv) {
    try {
        const auto request =
            voorcontrole::ReadRequest(std::vector<std::string_view>(argv + (argc > 0 ? 1 : 0), argv + argc));
        voorcontrole::Answer answer;
        if (!voorcontrole::AnswersByItself(request, answer)) {
            setenv("QT_QPA_PLATFORM", "offscreen", 1); // fonts need the toolkit, and nothing needs a screen
            int words = argc > 0 ? 1 : 0;              // the others are none of the toolkit's
            desktop::qt::QtPlatform platform(words, argv, machine::Audience::Nobody);
            answer = voorcontrole::Check(platform.Services(), request);
        }
        return voorcontrole::Tell(answer);
    } catch (const std::exception& error) {
        return voorcontrole::TellFailure(error.what());
    }
}
