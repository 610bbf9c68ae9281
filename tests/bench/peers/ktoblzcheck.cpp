// One check of an IBAN, in nanoseconds: ktoblzcheck IBAN
#include <chrono>
#include <cstdio>
#include <string>

#include <iban.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    constexpr int rounds = 200000;
    const IbanCheck checker;
    const std::string iban = argv[1];
    int valid = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < rounds; ++i) {
        valid += checker.check(iban) == IbanCheck::OK ? 1 : 0;
    }
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
    if (valid != rounds) {
        std::fputs("the IBAN is refused\n", stderr);
        return 1;
    }
    std::printf("%f\n", spent.count() / rounds);
    return 0;
}
