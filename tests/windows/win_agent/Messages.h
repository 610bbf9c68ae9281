#pragma once

#include <istream>
#include <string>

// Messages to the program's windows, the keys of the keyboard and the mouse.

std::string Send(std::istream& in);
std::string SendText(std::istream& in);
std::string Begin(std::istream& in);
std::string Done(std::istream& in);
std::string Post(std::istream& in);
std::string Fetch(std::istream& in);
std::string Entry(std::istream& in);
std::string Nap(std::istream& in);
std::string Focus(std::istream& in);
std::string Activate(std::istream& in);
std::string Key(std::istream& in);
std::string Pointer(std::istream& in);
std::string Button(std::istream& in);
