// Writes values into a settings file, as the program does: NAME0, NAME1 and so on, and prints those that were
// taken.
//
// campaign-writer FILE NAME NUMBER
#include <cstdio>
#include <cstdlib>
#include <string>

#include "desktop/regfile/RegFileStore.h"
#include "machine/modRegistry.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        return 2;
    }
    desktop::regfile::RegFileStore store(argv[1], desktop::regfile::SettingsBranch);
    const machine::modRegistry registry(store);
    const long count = std::strtol(argv[3], nullptr, 10);
    for (long i = 0; i < count; ++i) {
        const std::string name = argv[2] + std::to_string(i);
        if (registry.SetRegistryValue(machine::HkeyCurrentUser, "Software\\Ondor\\Tarvik\\CurrentVersion",
                                      name, name)) {
            std::puts(name.c_str());
        }
    }
    return 0;
}
