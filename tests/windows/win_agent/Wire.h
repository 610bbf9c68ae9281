#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>

#include <windows.h>

// How texts and windows travel in the lines of commands and answers.

/// For an answer of the program to a message.
constexpr UINT PatienceMilliseconds = 60000;
/// Characters that are fetched of a text.
constexpr std::size_t LongestText = 4096;

std::string Hex(const void* data, std::size_t bytes);
std::string Hex(const std::wstring& text);
std::wstring Text(const std::string& hex);
/// The next word, as a window.
HWND Window(std::istream& in);
std::uintptr_t Number(HWND window);
