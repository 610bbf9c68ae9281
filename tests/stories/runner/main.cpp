// Runs the whole program without a window system, a spooler or a registry, plays a user who follows a script,
// and writes down everything that happens.
#include <fstream>
#include <iostream>

#include "Player.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    if (argc > 2) {
        std::cerr << "usage: drukkeuring-scenario [FILE]\n";
        return scenario::StatusScriptError;
    }
    if (argc == 1) {
        return scenario::Player(std::cin, std::cout, std::cerr).Run();
    }
    std::ifstream file(argv[1]);
    if (!file) {
        std::cerr << "cannot read " << argv[1] << '\n';
        return scenario::StatusScriptError;
    }
    return scenario::Player(file, std::cout, std::cerr).Run();
}
