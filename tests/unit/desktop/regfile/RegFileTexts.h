#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "desktop/regfile/RegFile.h"

/// Registry files with one key, and what stands in them.
namespace regfiletest {

using desktop::regfile::RegFile;
using desktop::regfile::RegValue;
using namespace std::string_literals;

inline constexpr std::uint32_t ValueText = 1;
inline const std::string OndorPath = "HKEY_CURRENT_USER\\Software\\Ondor";

inline std::string Utf16(const std::string& utf8) {
    return "\xFF\xFE" + desktop::regfile::ToUtf16(utf8);
}

inline std::string Five(const std::string& lines) {
    return "Windows Registry Editor Version 5.00\r\n\r\n[" + OndorPath + "]\r\n" + lines;
}

inline std::string Four(const std::string& lines) {
    return "REGEDIT4\r\n\r\n[" + OndorPath + "]\r\n" + lines;
}

/// The text without its closing NUL; "(none)" if there is no such value, "(other)" if it is no text.
inline std::string Text(const RegFile& file, const std::string& name, const std::string& key = OndorPath) {
    const std::optional<RegValue> value = file.Find(key, name);
    if (!value) {
        return "(none)";
    }
    if (value->Type != ValueText || !value->Data.ends_with('\0')) {
        return "(other)";
    }
    return value->Data.substr(0, value->Data.size() - 1);
}

inline RegValue TextValue(const std::string& utf8) {
    return {ValueText, utf8 + '\0'};
}

inline std::string Written(const std::string& bytes, const std::string& name, const std::string& utf8,
                           const std::string& key = OndorPath) {
    return RegFile(bytes).WithValue(key, name, TextValue(utf8)).value_or("(refused)");
}

} // namespace regfiletest
