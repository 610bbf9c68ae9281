#include "payment/OcrLine.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "payment/CheckDigits.h"
#include "state/ContractTexts.h"

namespace payment {

namespace text = base::text;

namespace {

constexpr std::size_t ReferenceWidth = 16; // check digit and 15 digits
constexpr std::size_t AmountWidth = 9;     // euros, cents and check digit
constexpr std::int16_t EuroWidth = 6;
constexpr std::size_t CentWidth = 2;
constexpr std::size_t GroupWidth = 4;

// Exactly `width` characters: the last ones, or with zeros put in front.
void FitRight(std::string& tekst, std::size_t width) {
    tekst.erase(0, tekst.size() - text::Right(tekst, width).size());
    const std::size_t length = text::Length(tekst);
    tekst.insert(0, width - length, '0');
}

void MakeReference(std::string_view kenmerk, std::string& reference) {
    reference.assign(kenmerk);
    reference.insert(0, KenmerkControle(reference));
    FitRight(reference, ReferenceWidth);
    reference.push_back('+');
}

void MakeAmount(std::string_view euro, std::string_view cent, std::string& amount) {
    amount.assign(cent).append("000");
    amount.erase(text::Left(amount, CentWidth).size());
    amount.insert(0, NulVulling(base::Int32OfText(euro), EuroWidth));
    amount.append(BedragControle(amount));
    if (base::NumericValue(amount) == 0) {
        amount.clear();
        return;
    }
    FitRight(amount, AmountWidth);
    amount.push_back('<');
}

void MakeClosed(std::string_view tekst, std::string& field) {
    field.assign(tekst);
    if (!field.empty()) {
        field.push_back('+');
    }
}

void MakeGroups(std::string_view reference, std::string& grouped) {
    grouped.clear();
    for (std::size_t start = 1; start <= ReferenceWidth; start += GroupWidth) {
        if (!grouped.empty()) {
            grouped.push_back(' ');
        }
        grouped.append(text::Mid(reference, start, GroupWidth));
    }
}

} // namespace

void MakeOcrLine(const OcrValues& values, OcrLine& line) {
    MakeReference(values.kenmerk, line.Reference);
    MakeAmount(values.euro, values.cent, line.Amount);
    MakeClosed(values.bic, line.Bic);
    MakeClosed(values.ContractVorm == state::ContractB ? std::string_view() : values.rekening, line.Account);
    MakeGroups(line.Reference, line.GroupedReference);
}

} // namespace payment
