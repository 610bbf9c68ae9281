#pragma once

#include <istream>
#include <string>

// What windows there are, and what they show.

std::string Windows(std::istream& in);
std::string Child(std::istream& in);
std::string Control(std::istream& in);
std::string Area(std::istream& in);
std::string Screen(std::istream& in);
std::string Resize(std::istream& in);
std::string Parent(std::istream& in);
std::string Id(std::istream& in);
std::string GetText(std::istream& in);
std::string Children(std::istream& in);
