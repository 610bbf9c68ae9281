#include "payment/Iban.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "payment/BareText.h"

namespace payment {

namespace text = base::text;

namespace {

constexpr std::size_t ShortestIban = 10;
constexpr std::size_t HeadLength = 4;     // country and check digits, which move behind the rest for the test
constexpr std::size_t BankCodeLength = 4; // the letters of a BIC that name the bank
constexpr std::int16_t LargestDivisor = 1000;

// In alphabetical order, so that a bank is found by halving. A bank's code is the first four letters of its
// BIC.
constexpr std::array<std::string_view, 64> Bics = {
    "ABNANL2A", "AEGONL2U", "ANDLNL2A", "ARBNNL22", "ARSNNL21", "ARTENL2A", "ASNBNL21", "ASRBNL2R",
    "ATBANL2A", "BBRUNL2X", "BCDMNL22", "BCITNL2A", "BICKNL2A", "BKMGNL2A", "BNGHNL2G", "BNPANL2A",
    "BOFANLNX", "BOTKNL2X", "CITCNL2A", "CITINL2X", "COBANL2X", "DEUTNL2N", "DHBNNL2R", "DLBKNL2A",
    "DNIBNL2G", "FBHLNL2A", "FLORNL2A", "FRBKNL2L", "FTSBNL2R", "FVLBNL22", "GILLNL2A", "HANDNL2A",
    "HHBANL22", "HSBCNL2A", "ICBKNL2A", "INGBNL2A", "INKBNL21", "INSINL2A", "ISBKNL2A", "KABANL2A",
    "KASANL2A", "KNABNL2H", "KOEXNL2A", "KREDNL2X", "LOCYNL2A", "LOYDNL2A", "LPLNNL2A", "MHCBNL2A",
    "NNBANL2G", "NWABNL2G", "OVBNNL22", "RABONL2U", "RBOSNL2A", "RBRBNL21", "RGRBNL2R", "SNSBNL2A",
    "SOGENL2A", "STALNL2G", "TEBUNL2A", "TRIONL2U", "UBSWNL2A", "UGBINL2A", "VOWANL21", "VPVGNL22"};
static_assert(std::is_sorted(Bics.begin(), Bics.end()));

bool IsFigure(char c) {
    return c >= '0' && c <= '9';
}

// Remainder of a number that is taken in from its front. A number of any length is reduced on the way, each
// time before the next two digits could pass 64 bits.
class Remainder {
  public:
    explicit Remainder(std::uint64_t divisor) : divisor_(divisor) {}

    void AppendDigit(unsigned digit) { Append(10, digit); }
    void AppendTwoDigits(unsigned number) { Append(100, number); }

    std::int16_t Value() const { return static_cast<std::int16_t>(value_ % divisor_); }

  private:
    static constexpr std::uint64_t ReduceAbove = 100'000'000'000'000'000;

    void Append(unsigned factor, unsigned number) {
        if (value_ > ReduceAbove) {
            value_ %= divisor_;
        }
        value_ = value_ * factor + number;
    }

    std::uint64_t divisor_;
    std::uint64_t value_ = 0;
};

bool IsMarkBetween(char c) {
    switch (c) {
    case '/':
    case ':':
    case '\\':
    case '+':
    case '-':
    case '*':
        return true;
    default:
        return false;
    }
}

// Takes in the digits of a text and the two digits of each letter (a = 10 to z = 35); all else is dropped.
void AppendIbanCharacters(std::string_view part, Remainder& remainder) {
    for (const char c : part) {
        const char small = static_cast<char>(c | 0x20);
        if (IsFigure(c)) {
            remainder.AppendDigit(static_cast<unsigned>(c - '0'));
        } else if (small >= 'a' && small <= 'z') {
            remainder.AppendTwoDigits(static_cast<unsigned>(small - 'a') + 10);
        }
    }
}

// Number of bytes up to the end of the fourth character that is no mark; npos if there are fewer.
std::size_t HeadBytes(std::string_view tekst) {
    std::size_t at = 0;
    for (std::size_t count = 0; count < HeadLength;) {
        if (at == tekst.size()) {
            return std::string_view::npos;
        }
        if (!IsMarkBetween(tekst[at])) {
            ++count;
        }
        at += text::DecodeFirst(tekst.substr(at)).Bytes;
    }
    return at;
}

} // namespace

bool IBANCheck(std::string_view tekst) {
    if (text::Length(tekst) < ShortestIban || tekst.find(' ') != std::string_view::npos) {
        return false;
    }
    const std::size_t head = HeadBytes(tekst);
    if (head == std::string_view::npos) {
        return false;
    }
    Remainder remainder(97);
    AppendIbanCharacters(tekst.substr(head), remainder);
    AppendIbanCharacters(tekst.substr(0, head), remainder);
    return remainder.Value() == 1;
}

std::int16_t Modulus(std::string& getal, std::int16_t deler) {
    if (deler == 0 || deler < -LargestDivisor || deler > LargestDivisor) {
        throw base::Overflow();
    }
    if (!std::all_of(getal.begin(), getal.end(), IsFigure)) {
        throw base::TypeMismatch();
    }
    if (getal.empty()) {
        getal.assign(1, '0');
    }
    // The sign of the divisor has no say in the remainder of a number that is not negative.
    Remainder remainder(static_cast<std::uint64_t>(deler < 0 ? -deler : deler));
    for (const char c : getal) {
        remainder.AppendDigit(static_cast<unsigned>(c - '0'));
    }
    return remainder.Value();
}

std::string_view IBAN2BIC(std::string_view rekening) {
    const BareText bare(rekening);
    std::string_view code;
    if (IBANCheck(bare.View())) {
        code = text::Mid(bare.View(), HeadLength + 1);
        code = code.substr(0, code.find_first_of("0123456789"));
    }
    return BankCode2BIC(bare.View(), code);
}

std::string_view BankCode2BIC(std::string_view /*rekening*/, std::string_view code) {
    const auto* const found =
        std::lower_bound(Bics.begin(), Bics.end(), code, [](std::string_view bic, std::string_view sought) {
            return bic.substr(0, BankCodeLength) < sought;
        });
    const bool known = found != Bics.end() && found->substr(0, BankCodeLength) == code;
    return known ? *found : std::string_view();
}

} // namespace payment
