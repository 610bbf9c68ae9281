// Account, IBAN and number texts: what one routine accepts the others format and take back, and each agrees
// with a plain way of reckoning the same.
#include "payment/Accounts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Input.h"
#include "Require.h"
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "memory/MemoryClock.h"
#include "memory/MemoryRandom.h"
#include "payment/CheckDigits.h"
#include "payment/Iban.h"
#include "payment/OcrLine.h"
#include "payment/PaymentReference.h"
#include "payment/TextRoutines.h"

namespace {

namespace text = base::text;
using std::string;
using std::string_view;

bool IsFigure(char c) {
    return c >= '0' && c <= '9';
}

bool AllFigures(string_view t) {
    return std::all_of(t.begin(), t.end(), IsFigure);
}

/// Remainder digit by digit.
int PlainRemainder(string_view digits, int divisor) {
    int value = 0;
    for (const char c : digits) {
        value = (value * 10 + (c - '0')) % divisor;
    }
    return value;
}

/// The digits that the IBAN test is reckoned with; nothing if the text is none by its shape.
std::optional<string> IbanDigits(string_view t) {
    if (text::Length(t) < 10 || t.find(' ') != string_view::npos) {
        return std::nullopt;
    }
    // By characters, before any is taken out: bytes that are none must not become one by losing what parts
    // them.
    std::vector<string> bare;
    while (!t.empty()) {
        const string character(text::Left(t, 1));
        t.remove_prefix(character.size());
        if (string_view("/:\\+-*").find(character) == string_view::npos) {
            bare.push_back(character);
        }
    }
    if (bare.size() < 4) {
        return std::nullopt;
    }
    std::rotate(bare.begin(), bare.begin() + 4, bare.end());
    string digits;
    for (const string& character : bare) {
        const char c = character.front();
        if (IsFigure(c)) {
            digits += c;
        } else if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
            digits += std::to_string(std::tolower(static_cast<unsigned char>(c)) - 'a' + 10);
        }
    }
    return digits;
}

void CheckIban(string_view t) {
    std::optional<string> digits = IbanDigits(t);
    REQUIRE(payment::IBANCheck(t) == (digits && payment::Modulus(*digits, 97) == 1));
    REQUIRE(payment::IBANCheck(t) == payment::IBANCheck(text::Upper(t)));
    REQUIRE(payment::IBANCheck(t) == payment::IBANCheck(text::Lower(t)));
    if (digits && payment::IBANCheck(t)) {
        REQUIRE(PlainRemainder(*digits, 97) == 1);
        // Dots are taken out before an account is tested, but count as one of the four characters in front.
        REQUIRE(t.find('.') != string_view::npos || payment::BankGiroCheck(t));
    }
}

void CheckFormats(string_view t) {
    const string bare = payment::Rekening2Text(t);
    const string shown = payment::Text2Rekening(t);
    REQUIRE(bare == payment::VerwijderTeken(payment::VerwijderTeken(t, "."), " "));
    REQUIRE(bare.find_first_of(" .") == string::npos);
    REQUIRE(payment::Rekening2Text(bare) == bare);
    REQUIRE(payment::Rekening2Text(shown) == text::Upper(bare));
    REQUIRE(payment::Text2Rekening(bare) == shown);
    REQUIRE(payment::Text2Rekening(shown) == shown);

    const bool accepted = payment::BankGiroCheck(t);
    REQUIRE(payment::BankGiroCheck(bare) == accepted);
    REQUIRE(payment::BankGiroCheck(shown) == accepted);
    REQUIRE(payment::BankGiroCheck(text::Lower(shown)) == accepted);

    const std::size_t length = text::Length(bare);
    const std::size_t blocks = length == 9 ? 3 : length == 10 ? 2 : length > 10 ? (length - 1) / 4 : 0;
    REQUIRE(text::Length(shown) == length + blocks);
    if (length < 9) {
        REQUIRE(accepted == (bare.empty() || payment::IsGetal(bare)));
    } else if (AllFigures(bare) && length <= 10) {
        int sum = 0;
        for (std::size_t i = 0; i < length; ++i) {
            sum += (bare[i] - '0') * static_cast<int>(length - i);
        }
        const bool passes = sum > 0 && sum % 11 == 0;
        REQUIRE(accepted == (passes || payment::IBANCheck(bare)));
    }
}

void CheckBic(string_view t) {
    const string bare = payment::Rekening2Text(t);
    const string_view bic = payment::IBAN2BIC(t);
    REQUIRE(payment::IBAN2BIC(bare) == bic);
    if (!bic.empty()) {
        REQUIRE(payment::IBANCheck(bare));
        REQUIRE(bic.size() == 8);
        REQUIRE(string_view(bare).substr(text::Left(bare, 4).size()).starts_with(bic.substr(0, 4)));
        REQUIRE(payment::BankCode2BIC(t, bic.substr(0, 4)) == bic);
        REQUIRE(payment::IBAN2BIC(payment::Text2Rekening(t)) == bic);
    }
    const string_view byCode = payment::BankCode2BIC({}, t);
    REQUIRE(byCode.empty() || byCode.substr(0, 4) == t);
}

/// An IBAN that is made of the text's figures is accepted by all, and by none with one figure changed.
void CheckMadeIban(string_view t) {
    constexpr std::array<const char*, 5> banks = {"ABNA", "BOFA", "DEUT", "RABO", "VPVG"};
    string figures(t);
    std::erase_if(figures, [](char c) { return !IsFigure(c); });
    const string number = string(10, '0') + figures;
    const string bank = banks[figures.size() % banks.size()];
    const string account = bank + number.substr(number.size() - 10);
    string digits = *IbanDigits("NL00" + account);
    const string check = payment::NulVulling(98 - payment::Modulus(digits, 97), 2);
    string iban = "NL" + check + account;
    REQUIRE(payment::IBANCheck(iban) && payment::BankGiroCheck(iban));
    REQUIRE(payment::IBAN2BIC(iban).substr(0, 4) == bank);
    REQUIRE(payment::BankGiroCheck(payment::Text2Rekening(iban)));
    REQUIRE(payment::Rekening2Text(payment::Text2Rekening(iban)) == iban);
    REQUIRE(!payment::IBANCheck(payment::Text2Rekening(iban)));
    char& changed = iban[8 + figures.size() % 10];
    changed = changed == '9' ? '0' : static_cast<char>(changed + 1);
    REQUIRE(!payment::IBANCheck(iban));
}

void CheckNumbers(string_view t) {
    const double value = base::NumericValue(t);
    if (payment::IsGetal(t)) {
        REQUIRE(base::NumberText(value) == t);
        REQUIRE(t.find_first_not_of("-.0123456789") == string_view::npos);
    } else {
        REQUIRE(!(AllFigures(t) && !t.empty() && t.size() <= 15 && (t[0] != '0' || t.size() == 1)));
    }
    string getal(t);
    try {
        const int rest = payment::Modulus(getal, 97);
        REQUIRE(AllFigures(t) && rest == PlainRemainder(t, 97));
        REQUIRE(getal == (t.empty() ? "0" : t));
    } catch (const base::RuntimeError& error) {
        REQUIRE(error.Number() == base::ErrorTypeMismatch && !AllFigures(t));
    }
    string postcode(t);
    const string printed = payment::PostcodeFormaat(postcode);
    REQUIRE(postcode.find(' ') == string::npos);
    REQUIRE(postcode == payment::VerwijderTeken(t, " "));
    REQUIRE(payment::VerwijderTeken(printed, " ") == postcode);
    string again = printed;
    REQUIRE(payment::PostcodeFormaat(again) == printed);
}

/// The check digit by the table of weights, on a text of figures.
char PlainCheckDigit(string_view figures, std::size_t most) {
    constexpr std::array<int, 15> weights = {2, 4, 8, 5, 10, 9, 7, 3, 6, 1, 2, 4, 8, 5, 10};
    int sum = 0;
    for (std::size_t i = 0; i < std::min(most, figures.size()); ++i) {
        sum += (figures[figures.size() - 1 - i] - '0') * weights[i];
    }
    constexpr string_view byRemainder = "01987654321"; // 11 less the remainder; 11 is 0, 10 is 1
    return byRemainder[static_cast<std::size_t>(sum % 11)];
}

void CheckCheckDigits(string_view t) {
    string kenmerk(t);
    string bedrag(t);
    const string ofReference = payment::KenmerkControle(kenmerk);
    const string ofAmount = payment::BedragControle(bedrag);
    REQUIRE(kenmerk == text::Trim(t) && bedrag == kenmerk);
    REQUIRE(ofReference.size() == 1 && AllFigures(ofReference));
    REQUIRE(ofAmount.size() == 1 && AllFigures(ofAmount));
    if (AllFigures(kenmerk)) {
        REQUIRE(ofReference[0] == PlainCheckDigit(kenmerk, 15));
        REQUIRE(ofAmount[0] == PlainCheckDigit(kenmerk, 8));
    }
}

/// The check digit in front of the reference is that of the 15 characters behind it.
void CheckReference(string_view kenmerk, const payment::OcrLine& line) {
    REQUIRE(line.Reference.ends_with('+') && text::Length(line.Reference) == 17);
    REQUIRE(payment::VerwijderTeken(line.GroupedReference, " ") + "+" ==
            payment::VerwijderTeken(line.Reference, " "));
    if (kenmerk.size() == 15 && AllFigures(kenmerk)) {
        REQUIRE(line.Reference.substr(1, 15) == kenmerk);
        REQUIRE(line.Reference[0] == PlainCheckDigit(kenmerk, 15));
    }
}

void CheckOcrLine(fuzz::Input input) {
    const string_view number = input.Line();
    const string_view kind = input.Line();
    const string_view month = input.Line();
    const string_view year = input.Line();
    const string_view euro = input.Line();
    const string_view cent = input.Line();
    const string_view account = input.Line();
    string kenmerk(number);
    try {
        kenmerk = payment::MaakBetalingskenmerk(number, kind, month, year);
        REQUIRE(kenmerk[0] == '1');
        REQUIRE(text::Length(kenmerk) == 13 + std::min<std::size_t>(text::Length(year), 2) ||
                kenmerk.ends_with("00"));
    } catch (const base::RuntimeError& error) {
        REQUIRE(error.Number() == base::ErrorOverflow);
    }
    payment::OcrLine line;
    try {
        payment::MakeOcrLine({kenmerk, euro, cent, account, payment::IBAN2BIC(account), 31}, line);
    } catch (const base::RuntimeError& error) {
        REQUIRE(error.Number() == base::ErrorOverflow);
        return;
    }
    CheckReference(kenmerk, line);
    REQUIRE(line.Amount.empty() || (line.Amount.ends_with('<') && text::Length(line.Amount) == 10));
    if (AllFigures(euro) && AllFigures(cent) && !line.Amount.empty()) {
        REQUIRE(line.Amount[8] == PlainCheckDigit(line.Amount.substr(0, 8), 8));
    }
    REQUIRE(line.Account == (account.empty() ? "" : string(account) + "+"));
    REQUIRE(line.Bic.empty() || line.Bic.size() == 9);
}

void CheckNewNumber(string_view t) {
    if (t.size() < 2 || t.size() > 3 || !AllFigures(t)) {
        return;
    }
    memory::MemoryRandom random;
    random.Seed(t.size());
    const memory::MemoryClock clock;
    const string made = payment::NieuwRekeningnummer(t, random, clock);
    REQUIRE(made.size() == t.size() + 7 && made.starts_with(t) && !made.ends_with("00"));
    REQUIRE(payment::BankGiroCheck(made));
    REQUIRE(payment::Rekening2Text(payment::Text2Rekening(made)) == made);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Input input(data, size);
    const string_view whole = input.Rest();
    for (const string_view t : {whole, fuzz::Input(whole).Line()}) {
        CheckIban(t);
        CheckFormats(t);
        CheckBic(t);
        CheckNumbers(t);
        CheckCheckDigits(t);
        CheckNewNumber(t);
    }
    CheckMadeIban(whole);
    CheckOcrLine(input);
    return 0;
}
