// What composing costs by itself: the same work as printing, on a canvas that draws nothing.

#include <benchmark/benchmark.h>

#include "bench/Batch.h"
#include "forms/Session.h"
#include "support/CountingPrinter.h"
#include "wizard/frmMain.h"

namespace {

constexpr int Forms = 250;

class OnePrinter final : public machine::Printers {
  public:
    int Count() override { return 1; }
    machine::PrinterEntry Item(int) override { return {"Printer", "Port"}; }
    machine::PrinterCondition Condition(int) override { return {.Name = "Printer"}; }
    std::optional<machine::SheetArea> SheetOf(int, std::int16_t, std::int16_t) override { return {}; }
};

void ComposeBatch(benchmark::State& run) {
    OnePrinter printers;
    support::CountingPrinter printer(printers);
    bench::Batch batch(printers, printer);
    for ([[maybe_unused]] auto _ : run) {
        batch.Print(Forms);
    }
    using benchmark::Counter;
    const auto perRun = Counter::kIsRate | Counter::kInvert;
    run.counters["per_form"] = Counter(static_cast<double>(run.iterations() * Forms), perRun);
    run.counters["per_text"] = Counter(static_cast<double>(printer.Canvas.Texts), perRun);
}
BENCHMARK(ComposeBatch)->Unit(benchmark::kMicrosecond);

/// The program from its start to the first page, without a window system.
void StartUp(benchmark::State& run) {
    for ([[maybe_unused]] auto _ : run) {
        memory::MemoryPlatform memory;
        memory.registry.CreateKey("Software\\Ondor\\Tarvik\\CurrentVersion");
        memory::PrintQueue queue;
        queue.Name = "Printer";
        memory.InstallPrinter(queue);
        state::AppState state;
        forms::Session session(memory.Services().Desktop);
        wizard::frmMain form(session, memory.Services(), state);
        form.Show();
        benchmark::DoNotOptimize(form.Page);
    }
}
BENCHMARK(StartUp)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
