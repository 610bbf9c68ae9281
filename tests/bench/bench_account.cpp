// One check of an account, and whether it touches the heap.
#include <benchmark/benchmark.h>

#include "payment/Accounts.h"
#include "support/Allocations.h"

namespace {

void CheckAccount(benchmark::State& state, const char* account) {
    const support::LargeAllocations allocations(1);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(payment::BankGiroCheck(account));
    }
    state.counters["allocations"] = allocations.Count();
}

BENCHMARK_CAPTURE(CheckAccount, Iban, "NL13ABNA0500000018");
BENCHMARK_CAPTURE(CheckAccount, IbanInBlocks, "NL13 ABNA 0500 0000 18");
BENCHMARK_CAPTURE(CheckAccount, BankNumber, "12.34.56.789");

} // namespace

BENCHMARK_MAIN();
