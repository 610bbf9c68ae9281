#include "payment/TextRoutines.h"

#include <cmath>

#include "base/Numbers.h"
#include "base/Text.h"

namespace payment {

namespace text = base::text;

std::string VerwijderTeken(std::string_view tekst, std::string_view teken) {
    if (text::Length(teken) != 1) {
        return std::string(tekst);
    }
    std::string result;
    result.reserve(tekst.size());
    while (!tekst.empty()) {
        const std::string_view character = tekst.substr(0, text::DecodeFirst(tekst).Bytes);
        if (character != teken) {
            result.append(character);
        }
        tekst.remove_prefix(character.size());
    }
    return result;
}

bool IsGetal(std::string_view tekst) {
    if (tekst.empty()) {
        return false;
    }
    const double value = base::NumericValue(tekst);
    return std::isfinite(value) && base::NumberText(value) == tekst;
}

std::string PostcodeFormaat(std::string& tekst) {
    std::erase(tekst, ' ');
    const std::string_view figures = text::Left(tekst, 4);
    if (text::Length(tekst) != 6 || !IsGetal(figures)) {
        return tekst;
    }
    std::string result(figures);
    result.append(1, ' ').append(tekst, figures.size());
    return result;
}

} // namespace payment
