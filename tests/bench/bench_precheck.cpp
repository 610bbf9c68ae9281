// What it costs to look for what would spoil a batch, beside composing that batch on a canvas that keeps
// nothing.

#include <optional>

#include <benchmark/benchmark.h>

#include "bench/Batch.h"
#include "precheck/Precheck.h"
#include "support/CountingPrinter.h"

namespace {

constexpr int Forms = 250;

class OnePrinter final : public machine::Printers {
  public:
    int Count() override { return 1; }
    machine::PrinterEntry Item(int) override { return {"Printer", "Port"}; }
    machine::PrinterCondition Condition(int) override { return {.Name = "Printer"}; }
    std::optional<machine::SheetArea> SheetOf(int, std::int16_t, std::int16_t) override { return {}; }
};

/// The batch, and what it is printed with.
struct Sample {
    OnePrinter Printers;
    support::CountingPrinter Printer{Printers};
    bench::Batch Batch{Printers, Printer};
    precheck::Intent Intent{.Forms = Forms, .FormsAskedFor = Forms};
};

void Compose(benchmark::State& run) {
    Sample sample;
    for ([[maybe_unused]] auto _ : run) {
        sample.Batch.Print(Forms);
    }
}
BENCHMARK(Compose)->Unit(benchmark::kMillisecond);

void CheckSettings(benchmark::State& run) {
    Sample sample;
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(
            precheck::CheckSettings(sample.Batch.State(), sample.Batch.Services(), sample.Intent));
    }
}
BENCHMARK(CheckSettings)->Unit(benchmark::kMillisecond);

void CheckDocument(benchmark::State& run) {
    Sample sample;
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(precheck::CheckDocument(sample.Batch.State(), sample.Batch.Services(),
                                                         sample.Intent, std::nullopt));
    }
}
BENCHMARK(CheckDocument)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
