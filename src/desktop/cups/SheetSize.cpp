#include "desktop/cups/SheetSize.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace desktop::cups {

namespace {

constexpr double TwipsPerMillimetre = base::TwipsPerInch / base::MillimetresPerInch;
constexpr double SameWithin = 0.5 * TwipsPerMillimetre;

struct Unit {
    std::string_view Name;
    double Twips;
};
constexpr std::array<Unit, 7> Units = {{
    {"mm", TwipsPerMillimetre},
    {"cm", 10 * TwipsPerMillimetre},
    {"m", 1000 * TwipsPerMillimetre},
    {"in", base::TwipsPerInch},
    {"ft", 12 * base::TwipsPerInch},
    {"pt", base::TwipsPerPoint},
    {"", base::TwipsPerPoint},
}};

/// Takes a number from the beginning; nothing if there is none.
std::optional<double> TakeNumber(std::string_view& text) {
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

/// "210x304.8mm"
std::optional<SheetSize> ParseSides(std::string_view text) {
    const std::optional<double> width = TakeNumber(text);
    if (!width || !text.starts_with('x')) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    const std::optional<double> height = TakeNumber(text);
    const auto* const unit =
        std::find_if(Units.begin(), Units.end(), [text](const Unit& each) { return each.Name == text; });
    if (!height || unit == Units.end()) {
        return std::nullopt;
    }
    const SheetSize size{*width * unit->Twips, *height * unit->Twips};
    const auto isSide = [](double side) { return side > 0 && side <= LongestSide; };
    return isSide(size.Width) && isSide(size.Height) ? std::optional(size) : std::nullopt;
}

/// To a hundredth, without noughts behind the last digit.
std::string Millimetres(double twips) {
    const int hundredths = HundredthsOf(twips);
    std::string text = std::to_string(hundredths / 100);
    if (const int rest = hundredths % 100; rest != 0) {
        text += '.';
        text += static_cast<char>('0' + rest / 10);
        if (rest % 10 != 0) {
            text += static_cast<char>('0' + rest % 10);
        }
    }
    return text;
}

std::string Sides(const SheetSize& size, const char* between) {
    return Millimetres(size.Width) + between + Millimetres(size.Height);
}

} // namespace

bool IsSameSheet(const SheetSize& a, const SheetSize& b) {
    return std::abs(a.Width - b.Width) <= SameWithin && std::abs(a.Height - b.Height) <= SameWithin;
}

std::optional<SheetSize> CustomSize(const std::string& keyword) {
    constexpr std::string_view byPpd = "Custom.";
    constexpr std::string_view byPwg = "custom_";
    if (keyword.starts_with(byPpd)) {
        return ParseSides(std::string_view(keyword).substr(byPpd.size()));
    }
    if (keyword.starts_with(byPwg)) {
        return ParseSides(std::string_view(keyword).substr(keyword.rfind('_') + 1));
    }
    return std::nullopt;
}

std::string PpdKeyword(const SheetSize& size) {
    return "Custom." + Sides(size, "x") + "mm";
}

std::string PwgKeyword(const SheetSize& size) {
    const std::string sides = Sides(size, "x") + "mm";
    return "custom_" + sides + '_' + sides;
}

std::string Measures(const SheetSize& size) {
    std::string text = Sides(size, " x ") + " mm";
    std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

double TwipsOfHundredths(int hundredths) {
    return hundredths * TwipsPerMillimetre / 100;
}

int HundredthsOf(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerMillimetre * 100));
}

} // namespace desktop::cups
