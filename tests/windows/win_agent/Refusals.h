#pragma once

#include <istream>
#include <string>

/// Has a call of the system fail in the program.
std::string Refuse(std::istream& in);
