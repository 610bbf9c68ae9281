#pragma once

#include <functional>
#include <string>
#include <vector>

namespace fault {

class Machine;

/// One act of the user on a form. It is left out if the form has not come up.
struct Step {
    const char* Form;
    std::string Name;
    std::function<void(Machine&)> Act;
    /// The user asks for paper here.
    bool Prints = false;
};

/// What a user does from the program's first page on, and how the machine stands before the start.
struct Story {
    const char* Name;
    std::vector<Step> Steps;
    bool HasPrinters = true;
    /// The printer of an earlier use, or empty.
    std::string KnownPrinter{};
};

const std::vector<Story>& Stories();

/// From any page of the wizard to the report on paper: what must work after any fault.
std::vector<Step> PrintReport();

} // namespace fault
