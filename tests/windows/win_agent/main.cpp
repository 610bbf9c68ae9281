// Works the program's windows from outside, as a user would: finds them, reads their texts, and sends them
// what a mouse and a keyboard send. Takes one command a line on standard input and answers each with one line
// on standard output. Windows and numbers are decimal; texts are UTF-16LE in hexadecimal digits, "-" for an
// empty one.
#include <iostream>
#include <sstream>

#include "Accessible.h"
#include "Handles.h"
#include "Messages.h"
#include "Program.h"
#include "Refusals.h"
#include "Settings.h"
#include "WindowList.h"

namespace {

struct Command {
    const char* Name;
    std::string (*Run)(std::istream& in);
};

constexpr Command Commands[] = {
    {"start", StartProgram},
    {"open", OpenShortcut},
    {"terminate", Terminate},
    {"windows", Windows},
    {"child", Child},
    {"control", Control},
    {"text", GetText},
    {"children", Children},
    {"send", Send},
    {"sendtext", SendText},
    {"begin", Begin},
    {"done", Done},
    {"post", Post},
    {"area", Area},
    {"screen", Screen},
    {"resize", Resize},
    {"parent", Parent},
    {"id", Id},
    {"focus", Focus},
    {"activate", Activate},
    {"key", Key},
    {"pointer", Pointer},
    {"button", Button},
    {"fetch", Fetch},
    {"entry", Entry},
    {"accessible", Accessible},
    {"handles", Handles},
    {"refuse", Refuse},
    {"values", Values},
    {"setvalue", SetValue},
    {"deletekey", DeleteKey},
    {"nap", Nap},
};

std::string Obey(const std::string& line) {
    std::istringstream in(line);
    std::string name;
    in >> name;
    for (const Command& command : Commands) {
        if (name == command.Name) {
            return command.Run(in);
        }
    }
    return "error no such command";
}

} // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line)) {
        std::cout << Obey(line) << std::endl;
    }
    if (program.Process != nullptr) {
        std::istringstream none;
        Terminate(none);
    }
    // Errands that still wait for an answer end with the process.
    TerminateProcess(GetCurrentProcess(), 0);
}
