#pragma once

#include <string>
#include <vector>

namespace payment {

/// Texts that a user can paste and a settings store can hold, though nobody means them.
inline std::vector<std::string> HostileTexts() {
    using namespace std::string_literals;
    return {
        "",
        "\0"s,
        "\0\0\0\0\0\0\0\0\0\0\0\0"s,
        "NL13ABNA\0"
        "500000018"s,
        "\xFF\xFE\xFD\xFC\xFB\xFA\xF9\xF8\xF7\xF6\xF5",
        "\xE2\x82\xE2\x82\xE2\x82\xE2\x82\xE2\x82",
        "\xC3",
        "日本語日本語日本語日本語",
        "éééééééééé",
        "😀😀😀😀😀😀😀😀😀😀",
        "١٢٣٤٥٦٧٨٩",
        "----------",
        "..........",
        std::string(100000, ' '),
        std::string(100000, '9'),
        std::string(100000, 'Z'),
        std::string(100000, '-'),
        std::string(100000, '\xFF'),
        std::string(100000, '0') + "1",
    };
}

} // namespace payment
