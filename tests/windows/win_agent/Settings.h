#pragma once

#include <istream>
#include <string>

// The current user's part of the registry.

std::string Values(std::istream& in);
std::string SetValue(std::istream& in);
std::string DeleteKey(std::istream& in);
