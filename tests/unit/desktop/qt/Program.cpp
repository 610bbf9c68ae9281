#include "unit/desktop/qt/Program.h"

void Program::Set(const std::string& name, const std::string& value) {
    memory.registry.SetText("Software\\Ondor\\Tarvik\\CurrentVersion", name, value);
}
