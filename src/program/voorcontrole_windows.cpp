// The precheck without a window, on Windows.
#include <exception>
#include <string_view>
#include <vector>

#include "desktop/windows/Utf8Console.h"
#include "desktop/windows/WindowsPlatform.h"
#include "program/Voorcontrole.h"

int main(int argc, char** argv) {
    try {
        const desktop::windows::Utf8Console console;
        const auto request =
            voorcontrole::ReadRequest(std::vector<std::string_view>(argv + (argc > 0 ? 1 : 0), argv + argc));
        voorcontrole::Answer answer;
        if (!voorcontrole::AnswersByItself(request, answer)) {
            desktop::windows::WindowsPlatform platform(machine::Audience::Nobody);
            answer = voorcontrole::Check(platform.Services(), request);
        }
        return voorcontrole::Tell(answer);
    } catch (const std::exception& error) {
        return voorcontrole::TellFailure(error.what());
    }
}
