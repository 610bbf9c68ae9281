// What composing costs by itself: the same work as printing, on a canvas that draws nothing.

#include "bench/Batch.h"

#include "platform/forms/Session.h"
#include "wizard/frmMain.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int forms = 250;

class CountingCanvas final : public platform::Canvas {
  public:
    platform::TextSize MeasureText(std::string_view text, const platform::FontSpec& font) override {
        return {static_cast<double>(text.size()) * 10 * font.Size, 24 * font.Size};
    }
    void DrawText(double, double, std::string_view, const platform::FontSpec&) override { ++Texts; }
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override {}
    void EndDocument() override {}

    std::int64_t Texts = 0;
};

class OnePrinter final : public platform::Printers {
  public:
    int Count() override { return 1; }
    platform::PrinterEntry Item(int) override { return {"Printer", "Port"}; }
};

class NoPaper final : public platform::Printer {
  public:
    void Assign(int) override {}
    std::string DeviceName() override { return "Printer"; }
    std::string Port() override { return "Port"; }
    std::int16_t Orientation() override { return 1; }
    void SetOrientation(std::int16_t) override {}
    std::int16_t PaperSize() override { return 9; }
    void SetPaperSize(std::int16_t) override {}
    std::int16_t PaperBin() override { return 7; }
    void SetPaperBin(std::int16_t) override {}
    std::int16_t Copies() override { return 1; }
    double Width() override { return 11906; }
    double Height() override { return 16838; }
    double ScaleLeft() override { return 0; }
    double ScaleTop() override { return 0; }
    double ScaleWidth() override { return 11906; }
    double ScaleHeight() override { return 16838; }
    int GetDeviceCaps(int item) override { return item == platform::CapsLogPixelsX ? 600 : 0; }
    void SetDocumentTitle(const std::string&) override {}
    platform::Canvas& Page() override { return Canvas; }

    CountingCanvas Canvas;
};

void ComposeBatch(benchmark::State& run) {
    OnePrinter printers;
    NoPaper printer;
    bench::Batch batch(printers, printer);
    for (auto _ : run) {
        batch.Print(forms);
    }
    using benchmark::Counter;
    const auto perRun = Counter::kIsRate | Counter::kInvert;
    run.counters["per_form"] = Counter(static_cast<double>(run.iterations() * forms), perRun);
    run.counters["per_text"] = Counter(static_cast<double>(printer.Canvas.Texts), perRun);
}
BENCHMARK(ComposeBatch)->Unit(benchmark::kMicrosecond);

/// The program from its start to the first page, without a window system.
void StartUp(benchmark::State& run) {
    for (auto _ : run) {
        platform::MemoryPlatform memory;
        memory.registry.CreateKey("Software\\Ondor\\Tarvik\\CurrentVersion");
        platform::PrintQueue queue;
        queue.Name = "Printer";
        memory.InstallPrinter(queue);
        wizard::AppState state;
        forms::Session session(memory.Services().Desktop);
        wizard::frmMain form(session, memory.Services(), state);
        form.Show();
        benchmark::DoNotOptimize(form.Page);
    }
}
BENCHMARK(StartUp)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
