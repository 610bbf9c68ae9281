#include "payment/Accounts.h"

#include <array>
#include <initializer_list>

#include "base/Numbers.h"
#include "base/Text.h"
#include "machine/Clock.h"
#include "machine/RandomSource.h"
#include "payment/BareText.h"
#include "payment/Iban.h"
#include "payment/TextRoutines.h"

namespace payment {

namespace text = base::text;

namespace {

constexpr std::size_t ShortestBankNumber = 9;
constexpr std::size_t FiguresUnderTest = 10;

// The 11-test on the last ten characters: weights 10 to 1 from left to right, where a shorter number is
// filled with zeros in front, which add nothing.
bool ElevenTest(std::string_view number) {
    number = text::Right(number, FiguresUnderTest);
    int weight = static_cast<int>(text::Length(number));
    int sum = 0;
    while (!number.empty()) {
        const text::Decoded first = text::DecodeFirst(number);
        if (first.Code >= U'0' && first.Code <= U'9') {
            sum += weight * static_cast<int>(first.Code - U'0');
        }
        --weight;
        number.remove_prefix(first.Bytes);
    }
    return sum > 0 && sum % 11 == 0;
}

std::string Blocks(std::string_view tekst, std::initializer_list<std::size_t> widths, char between) {
    std::string result;
    for (const std::size_t width : widths) {
        const std::string_view block = text::Left(tekst, width);
        if (!result.empty()) {
            result.push_back(between);
        }
        result.append(block);
        tekst.remove_prefix(block.size());
    }
    return result;
}

std::string BlocksOfFour(std::string_view tekst) {
    std::string result;
    result.reserve(tekst.size() + tekst.size() / 4 + 1);
    while (!tekst.empty()) {
        const std::string_view block = text::Left(tekst, 4);
        result.append(block).push_back(' ');
        tekst.remove_prefix(block.size());
    }
    result.pop_back();
    return result;
}

int DrawNumber(machine::RandomSource& random, const machine::Clock& clock) {
    random.Randomize(clock.Now().SecondsSinceMidnight());
    random.Randomize(clock.Now().SecondsSinceMidnight());
    return static_cast<int>(random.Rnd() * 99) + 1;
}

// Which hundred of three-digit endings goes with a drawn number: the first row that reaches it.
struct EndingRow {
    int UpTo;
    int Hundred;
};
constexpr std::array<EndingRow, 10> Endings = {
    {{10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}, {60, 6}, {70, 7}, {80, 8}, {90, 9}, {99, 1}}};

// The first of the endings x01 to x99 that makes the number pass; x00 is no ending. Empty if none does.
std::string WithEnding(const std::string& number, int drawn) {
    const EndingRow* row = Endings.begin();
    while (row->UpTo < drawn) {
        ++row;
    }
    for (int ending = row->Hundred * 100 + 1; ending < (row->Hundred + 1) * 100; ++ending) {
        std::string candidate = number + base::NumberText(ending);
        if (BankGiroCheck(candidate)) {
            return candidate;
        }
    }
    return {};
}

} // namespace

bool BankGiroCheck(std::string_view tekst) {
    // No capitals are made here: none of the three tests tells them from small letters.
    const BareText bare(tekst);
    const std::string_view number = bare.View();
    if (text::Length(number) < ShortestBankNumber) {
        return number.empty() || IsGetal(number);
    }
    return IBANCheck(number) || ElevenTest(number);
}

std::string Text2Rekening(std::string_view tekst) {
    std::string number = text::Upper(BareText(tekst).View());
    const std::size_t length = text::Length(number);
    if (length == 9) {
        return Blocks(number, {2, 2, 2, 3}, '.');
    }
    if (length == 10) {
        return Blocks(number, {4, 3, 3}, '.');
    }
    return length > 10 ? BlocksOfFour(number) : number;
}

std::string Rekening2Text(std::string_view tekst) {
    return std::string(BareText(tekst).View());
}

std::string NieuwRekeningnummer(std::string_view begin, machine::RandomSource& random,
                                const machine::Clock& clock) {
    // About one number in eleven passes, so a hundred endings nearly always hold one, and nine draws in ten
    // are of two figures. A thousand rounds without success mean that `begin` or the generator is at fault.
    constexpr int rounds = 1000;
    for (int round = 0; round < rounds; ++round) {
        const int first = DrawNumber(random, clock);
        if (first < 10) {
            continue;
        }
        const int second = DrawNumber(random, clock);
        if (second < 10) {
            continue;
        }
        std::string number(begin);
        number += base::NumberText(first) + base::NumberText(second);
        if (std::string found = WithEnding(number, second); !found.empty()) {
            return found;
        }
    }
    return {};
}

} // namespace payment
