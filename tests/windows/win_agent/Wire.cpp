#include "Wire.h"

std::string Hex(const void* data, std::size_t bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string hex;
    for (std::size_t i = 0; i < bytes; ++i) {
        const auto value = static_cast<const unsigned char*>(data)[i];
        hex += digits[value / 16];
        hex += digits[value % 16];
    }
    return hex.empty() ? "-" : hex;
}

std::string Hex(const std::wstring& text) {
    return Hex(text.data(), text.size() * sizeof(wchar_t));
}

std::wstring Text(const std::string& hex) {
    std::wstring text;
    for (std::size_t at = 0; at + 4 <= hex.size(); at += 4) {
        const unsigned long low = std::stoul(hex.substr(at, 2), nullptr, 16);
        const unsigned long high = std::stoul(hex.substr(at + 2, 2), nullptr, 16);
        text += static_cast<wchar_t>(high * 256 + low);
    }
    return text;
}

HWND Window(std::istream& in) {
    std::uintptr_t handle = 0;
    in >> handle;
    return reinterpret_cast<HWND>(handle);
}

std::uintptr_t Number(HWND window) {
    return reinterpret_cast<std::uintptr_t>(window);
}
