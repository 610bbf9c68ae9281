#pragma once

#include <string>
#include <vector>

namespace fault {

/// One act of the user, as a line of a story. It is left out if its form has not come up.
struct Step {
    explicit Step(std::string line);

    std::string Line;
    /// The form on which it is done.
    std::string Form;
    /// The user asks for paper here.
    bool Prints = false;
};

/// What a user does, and how the machine stands before the start.
struct Story {
    std::string Name;
    std::vector<std::string> Before;
    std::vector<Step> Steps;
};

/// All stories of the folder `stories`, by name.
const std::vector<Story>& Stories();

/// What stands ready before each of them.
const std::vector<std::string>& Settings();

/// From any page of the wizard to the report on paper: what must work after any fault.
const std::vector<Step>& PrintReport();

} // namespace fault
