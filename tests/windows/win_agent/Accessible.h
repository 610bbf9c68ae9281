#pragma once

#include <istream>
#include <string>

std::string Accessible(std::istream& in);
