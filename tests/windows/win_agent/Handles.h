#pragma once

#include <istream>
#include <string>

/// GDI objects, windows and kernel handles that the program holds.
std::string Handles(std::istream& in);
