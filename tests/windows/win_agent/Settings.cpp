#include "Settings.h"

#include <sstream>
#include <vector>

#include "Wire.h"

// Name, type and data, in hexadecimal digits, of each value of a key below the current user's root; "none" if
// there is no such key.
std::string Values(std::istream& in) {
    std::string hex;
    in >> hex;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, Text(hex).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return "none";
    }
    std::ostringstream out;
    std::vector<wchar_t> name(LongestText);
    std::vector<BYTE> data(1 << 16);
    for (DWORD i = 0;; ++i) {
        auto nameLength = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        DWORD type = 0;
        if (RegEnumValueW(key, i, name.data(), &nameLength, nullptr, &type, data.data(), &size) !=
            ERROR_SUCCESS) {
            break;
        }
        out << Hex(name.data(), nameLength * sizeof(wchar_t)) << ' ' << type << ' ' << Hex(data.data(), size)
            << ' ';
    }
    RegCloseKey(key);
    return out.str();
}

// Writes a value below the current user's root, and makes its key: path, name, type, data, all but the type
// in hexadecimal digits.
std::string SetValue(std::istream& in) {
    std::string path;
    std::string name;
    std::string hex;
    DWORD type = 0;
    in >> path >> name >> type >> hex;
    std::vector<BYTE> data;
    for (std::size_t at = 0; at + 2 <= hex.size(); at += 2) {
        data.push_back(static_cast<BYTE>(std::stoul(hex.substr(at, 2), nullptr, 16)));
    }
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, Text(path).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    const LSTATUS result = name == "-" ? 0
                                       : RegSetValueExW(key, Text(name).c_str(), 0, type, data.data(),
                                                        static_cast<DWORD>(data.size()));
    RegCloseKey(key);
    return std::to_string(result);
}

std::string DeleteKey(std::istream& in) {
    std::string path;
    in >> path;
    return std::to_string(RegDeleteTreeW(HKEY_CURRENT_USER, Text(path).c_str()));
}
