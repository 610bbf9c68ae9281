#include "testdata/TestDocument.h"

#include <exception>

#include "base/Numbers.h"
#include "base/Text.h"
#include "machine/Clock.h"
#include "machine/RandomSource.h"
#include "payment/CheckDigits.h"

namespace testdata {
namespace {

constexpr int DrawnRows = 22500; // the rows behind these stand in the table and are never drawn
constexpr std::size_t IbanLength = 18;
constexpr std::int32_t LastRowWithoutCount = 5;
constexpr std::int16_t FormsBetweenEmpty = 25;
constexpr std::int16_t NumberWidth = 8;

// A whole number from 1 to `count`, after a seed from the clock.
int DrawNumber(int count, machine::RandomSource& random, const machine::Clock& clock) {
    random.Randomize(clock.Now().SecondsSinceMidnight());
    return static_cast<int>(random.Rnd() * count) + 1;
}

void TakePerson(DrawState& state, const base::TextTable& persons, TestDocument& document) {
    if (state.Volgnummer <= persons.LastIndex()) {
        state.PersonRow = persons[state.Volgnummer];
    }
    ++state.Volgnummer;
    SplitPerson(state.PersonRow, document);
}

// "account,IBAN,BIC". A row with one comma keeps the BIC of the form before, and one without stays whole.
void SplitAccount(std::string_view row, TestDocument& document) {
    document.rekening = row;
    if (const std::size_t comma = row.find(','); comma != std::string_view::npos) {
        document.rekening = row.substr(comma + 1);
        if (const std::size_t next = document.rekening.find(','); next != std::string_view::npos) {
            document.bic = document.rekening.substr(next + 1);
            document.rekening = document.rekening.substr(0, next);
        }
    }
    if (!document.rekening.empty() && base::text::Length(document.rekening) != IbanLength) {
        std::terminate(); // the table itself is wrong: a batch made from it would be worth nothing
    }
}

void LeaveAccountOut(DrawState& state, TestDocument& document) {
    if (state.Rij <= LastRowWithoutCount) {
        return;
    }
    if (++state.LeegTeller > FormsBetweenEmpty) {
        state.LeegTeller = 0;
        document.rekening = {};
        document.bic = {};
    }
}

} // namespace

void DrawTestDocument(DrawState& state, const DrawSources& sources, TestDocument& document) {
    TakePerson(state, sources.Persons, document);
    SplitAccount(sources.Accounts[DrawNumber(DrawnRows, sources.Random, sources.Clock)], document);
    LeaveAccountOut(state, document);
    document.volgnummertekst = payment::NulVulling(state.Volgnummer, NumberWidth);
    document.euro = TrekEuro(sources.Random, sources.Clock);
    document.cent = TrekCent(sources.Random, sources.Clock);
}

std::string TrekEuro(machine::RandomSource& random, const machine::Clock& clock) {
    return base::NumberText(DrawNumber(998, random, clock));
}

std::string TrekCent(machine::RandomSource& random, const machine::Clock& clock) {
    return payment::NulVulling(DrawNumber(98, random, clock), 2);
}

} // namespace testdata
