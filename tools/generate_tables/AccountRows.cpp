#include <algorithm>
#include <initializer_list>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Chance.h"
#include "Rows.h"
#include "machine/Clock.h"
#include "payment/Accounts.h"
#include "payment/CheckDigits.h"
#include "payment/Iban.h"

namespace generate {
namespace {

constexpr std::uint64_t AccountSeed = 20260301;

// Bank numbers have 9 figures; a band is their first two.
struct Band {
    int From;
    int To;
};

// Different numbers of one bank, drawn from one or several bands. `doubled` of them stand in the table twice,
// so the rows are `numbers` + `doubled`.
struct Quota {
    std::string_view Bank;
    int Numbers;
    int Doubled;
    std::initializer_list<Band> Bands;
};

// What is scattered keeps out of the bands in which the same bank has a count of its own.
const Quota Quotas[] = {
    {"SNSB", 4958, 7, {{90, 96}}},
    {"SNSB", 491, 0, {{80, 89}}},
    {"SNSB", 116, 0, {{10, 79}, {97, 98}}},
    {"RABO", 1949, 2, {{10, 10}}},
    {"RABO", 998, 1, {{11, 11}}},
    {"RABO", 1200, 1, {{12, 12}}},
    {"RABO", 668, 1, {{13, 13}}},
    {"RABO", 180, 0, {{14, 14}}},
    {"ABNA", 4788, 6, {{40, 47}}},
    {"ABNA", 206, 0, {{16, 37}}},
    {"FRBK", 686, 1, {{29, 29}}},
    {"FRBK", 44, 0, {{91, 91}}},
    {"FRBK", 42, 0, {{95, 95}}},
    {"FRBK", 18, 0, {{10, 28}, {30, 90}, {92, 94}, {96, 98}}},
    {"ASNB", 433, 1, {{70, 70}}},
    {"ASNB", 33, 0, {{85, 97}}},
    {"RBRB", 149, 0, {{64, 69}}},
    {"RBRB", 27, 0, {{78, 79}}},
    {"RBRB", 108, 0, {{82, 98}}},
    {"TRIO", 106, 0, {{78, 78}}},
    {"TRIO", 69, 0, {{39, 39}}},
    {"TRIO", 30, 0, {{19, 19}}},
    {"TRIO", 13, 0, {{25, 25}}},
    {"TRIO", 9, 0, {{21, 21}}},
    {"FVLB", 114, 0, {{22, 22}}},
    {"FVLB", 37, 0, {{69, 69}}},
    {"FVLB", 34, 0, {{26, 26}}},
    {"FVLB", 17, 0, {{63, 63}}},
    {"DEUT", 76, 0, {{40, 63}}},
    {"STAL", 8, 0, {{10, 98}}},
    {"ARSN", 6, 0, {{77, 78}}},
    {"INSI", 4, 0, {{10, 98}}},
    {"BNGH", 4, 0, {{28, 28}}},
    {"FTSB", 3, 0, {{10, 98}}},
    {"ARTE", 2, 0, {{63, 63}}},
    {"GILL", 1, 0, {{10, 98}}},
    {"DLBK", 1, 0, {{10, 98}}},
    {"BOFA", 1, 0, {{10, 98}}},
    {"RGRB", 1, 0, {{10, 98}}},
    {"RBOS", 1, 0, {{10, 98}}},
    {"NWAB", 1, 0, {{10, 98}}},
};

// Giro numbers, which stand under no test: how many of each length pass the 11-test by chance and how many do
// not.
struct GiroQuota {
    int From;
    int To;
    int Passing;
    int Failing;
    int DoubledFailing;
};
constexpr GiroQuota GiroQuotas[] = {
    {100, 999, 2, 19, 0},
    {1000, 9999, 16, 159, 0},
    {10000, 99999, 93, 900, 0},
    {100000, 433700, 358, 3449, 4},
};

// A number of row 0, which stands before the giro numbers and so out of order.
constexpr std::string_view FirstRowBand = "84";
constexpr std::string_view FirstRowBank = "RBRB";
constexpr std::string_view GiroBank = "INGB";

// The one test account in the list, of a bank that no table of BICs holds.
constexpr std::string_view TestBank = "TEST";
constexpr std::string_view TestBic = "TESTNL2A";
constexpr int TestNumber = 123456789;

struct Account {
    int Number;
    std::string_view Bank;

    bool operator<(const Account& other) const { return Number < other.Number; }
};

class StandingClock final : public machine::Clock {
  public:
    machine::DateTime Now() const override { return {2026, 3, 1}; }
};

bool PassesElevenTest(int number) {
    // In nine characters a number is too short to pass as an IBAN, so this is the 11-test alone.
    return payment::BankGiroCheck(payment::NulVulling(number, 9));
}

// A band, each number of them as likely as any other.
int DrawBand(const Quota& quota, Chance& chance) {
    int count = 0;
    for (const Band& band : quota.Bands) {
        count += band.To - band.From + 1;
    }
    int place = chance.Between(0, count - 1);
    for (const Band& band : quota.Bands) {
        if (place <= band.To - band.From) {
            return band.From + place;
        }
        place -= band.To - band.From + 1;
    }
    throw std::logic_error("a band beyond the last");
}

int DrawBankNumber(std::string_view band, Chance& chance) {
    const std::string number = payment::NieuwRekeningnummer(band, chance.Source(), StandingClock());
    if (number.empty()) {
        throw std::logic_error("no number begins with " + std::string(band));
    }
    return std::stoi(number);
}

// `used` holds every number so far, so no number stands in two rows but for those that are doubled.
std::vector<Account> DrawBankAccounts(Chance& chance, std::set<int>& used) {
    std::vector<Account> accounts;
    for (const Quota& quota : Quotas) {
        for (int drawn = 0; drawn < quota.Numbers;) {
            const int number = DrawBankNumber(std::to_string(DrawBand(quota, chance)), chance);
            if (!used.insert(number).second) {
                continue;
            }
            accounts.push_back({number, quota.Bank});
            if (drawn < quota.Doubled) {
                accounts.push_back({number, quota.Bank});
            }
            ++drawn;
        }
    }
    accounts.push_back({TestNumber, TestBank});
    std::sort(accounts.begin(), accounts.end());
    return accounts;
}

std::vector<Account> DrawGiroAccounts(Chance& chance) {
    std::vector<Account> accounts;
    std::set<int> used;
    for (const GiroQuota& quota : GiroQuotas) {
        int passing = 0;
        int failing = 0;
        while (passing < quota.Passing || failing < quota.Failing) {
            const int number = chance.Between(quota.From, quota.To);
            const bool passes = PassesElevenTest(number);
            int& count = passes ? passing : failing;
            if (count == (passes ? quota.Passing : quota.Failing) || !used.insert(number).second) {
                continue;
            }
            accounts.push_back({number, GiroBank});
            if (!passes && count < quota.DoubledFailing) {
                accounts.push_back({number, GiroBank});
            }
            ++count;
        }
    }
    std::sort(accounts.begin(), accounts.end());
    return accounts;
}

std::string Iban(std::string_view bank, std::string_view digits) {
    for (int check = 2; check <= 98; ++check) { // what 98 less a remainder of 97 can be
        std::string iban = "NL" + payment::NulVulling(check, 2);
        iban.append(bank).append(digits);
        if (payment::IBANCheck(iban)) {
            return iban;
        }
    }
    throw std::logic_error("no check digits for " + std::string(digits));
}

std::string Row(const Account& account) {
    const std::string digits = payment::NulVulling(account.Number, 10);
    const std::string_view bic = account.Bank == TestBank ? TestBic : payment::BankCode2BIC({}, account.Bank);
    return digits + ',' + Iban(account.Bank, digits) + ',' + std::string(bic);
}

} // namespace

std::vector<std::string> AccountRows() {
    Chance chance(AccountSeed);
    std::set<int> used = {TestNumber};
    const int first = DrawBankNumber(FirstRowBand, chance);
    used.insert(first);

    std::vector<std::string> rows = {Row({first, FirstRowBank})};
    for (const Account& account : DrawGiroAccounts(chance)) {
        rows.push_back(Row(account));
    }
    for (const Account& account : DrawBankAccounts(chance, used)) {
        rows.push_back(Row(account));
    }
    return rows;
}

} // namespace generate
