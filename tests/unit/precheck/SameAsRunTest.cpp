#include <map>
#include <variant>

#include "PrecheckTest.h"
#include "composition/DocumentRun.h"
#include "composition/PrinterMeasures.h"
#include "machine/Printer.h"
#include "memory/Recorder.h"
#include "precheck/SteadyChance.h"
#include "support/FakeRunHost.h"

namespace precheck {

using Boxes = std::vector<SheetPlace>;

/// What is looked at against what a run draws on the printer itself.
class SameAsRunTest : public PrecheckTest {
  protected:
    /// Ink on each page of the printer, by the calls that its paper got.
    std::map<int, Boxes> InkOfARun(const machine::SheetArea& sheet) {
        std::map<int, Boxes> pages;
        memory.recorder.Sink = [&](const memory::Event& event) {
            if (event.Kind == "text") {
                AddInk(event, sheet, pages);
            }
        };
        SteadyChance chance;
        machine::Platform drawn = {
            services.Desktop, services.Registry,         services.Locale,   services.Clock,
            chance,           services.Spooler,          services.Printers, services.Printer,
            services.Bitmaps, services.WindowProcedures, services.Fonts};
        state::AppState run = state;
        run.PrinterOrientation = machine::Portrait;
        run.LeftMargin = composition::LeftMarginPortrait;
        memory.printer.Drawing.Font = machine::PrintersOwnFont;
        composition::LeesPrinterMaten(run, drawn);
        support::FakeRunHost host(run, drawn);
        host.count = std::to_string(intent.Forms);
        composition::ComposeDocument(run, drawn, host.printer, host,
                                     {.iMethod = intent.Document, .num_copies = intent.Copies});
        memory.recorder.Sink = nullptr;
        return pages;
    }

  private:
    void AddInk(const memory::Event& event, const machine::SheetArea& sheet, std::map<int, Boxes>& pages) {
        const auto field = [&](const std::string& name) {
            return std::find_if(event.Fields.begin(), event.Fields.end(),
                                [&](const memory::EventField& one) { return one.Name == name; })
                ->Value;
        };
        const auto number = [&](const std::string& name) { return std::get<double>(field(name)); };
        const auto words = std::get<std::string>(field("text"));
        const machine::FontSpec font = {std::get<std::string>(field("font")), number("size"),
                                        std::get<bool>(field("bold"))};
        const std::string inked(words.substr(0, words.find_last_not_of(' ') + 1));
        if (inked.empty()) {
            return;
        }
        // A letter of the memory platform has ink from a tenth to nine of its width, and in the middle of the
        // line.
        const double width = memory.fonts.MeasureText(inked, font).Width;
        const double letter = memory.fonts.MeasureText("n", font).Width;
        const double height = memory.fonts.MeasureText("n", font).Height;
        const double left = sheet.Left + number("x");
        const double top = sheet.Top + number("y");
        pages[static_cast<int>(std::get<std::int64_t>(field("page")))].push_back(
            {left + letter / 10, top + height / 4, left + width - letter / 10, top + height * 3 / 4});
    }
};

MATCHER_P(StandsAt, other, "") {
    return std::abs(arg.Left - other.Left) < 0.5 && std::abs(arg.Top - other.Top) < 0.5 &&
           std::abs(arg.Right - other.Right) < 0.5 && std::abs(arg.Bottom - other.Bottom) < 0.5;
}

TEST_F(SameAsRunTest, EachTextStandsWhereARunDrawsIt) {
    memory.fonts.Describe("Tahoma", {.SlimLetters = ""});
    memory.fonts.Describe(OcrFont, {.WidthPerPoint = 14.4, .SlimLetters = ""});
    memory::PrintQueue& queue = memory.InstallPrinter({.Name = "Laser"});
    queue.Offset = {113, 87};
    intent = {.Forms = 5, .Copies = 2};
    for (const std::int16_t document : Numbers{1, 2, 3}) {
        for (const std::int16_t type : Numbers{0, 1, 2, 3}) {
            intent.Document = document;
            state.AcceptgiroType = type;
            printer.Sheet = memory.printers.SheetOf(0, 9, machine::Portrait);
            Settings(); // stores what `state` has
            const std::map<int, Boxes> pages = InkOfARun(*printer.Sheet);

            // A finding shows all texts of its page; a narrower sheet breaks no page elsewhere.
            printer.Sheet->Right -= ToTwips(20);
            const SheetSketch sketch = First(Document(), "sheet.text-off").Sketch;
            const auto same = std::find_if(pages.begin(), pages.end(), [&](const auto& page) {
                return page.second.size() == sketch.Texts.size() &&
                       std::equal(page.second.begin(), page.second.end(), sketch.Texts.begin(),
                                  [](const SheetPlace& one, const SheetPlace& other) {
                                      return testing::Matches(StandsAt(other))(one);
                                  });
            });
            EXPECT_TRUE(same != pages.end()) << document << ' ' << type;
        }
    }
}

} // namespace precheck
