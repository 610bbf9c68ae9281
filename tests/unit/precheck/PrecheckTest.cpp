#include "PrecheckTest.h"

#include "base/Text.h"
#include "machine/SeededRandom.h"
#include "memory/Recorder.h"
#include "precheck/Wording.h"

namespace precheck {

using testing::ElementsAre;
using testing::IsEmpty;

using CheckAllTest = PrecheckTest;

constexpr std::int16_t A4 = 9;

TEST_F(CheckAllTest, NothingIsWrong) {
    EXPECT_THAT(Codes(All()), IsEmpty());
}

TEST_F(CheckAllTest, WithoutAPrinterThereIsNothingToSayOfOne) {
    All(); // stores what `state` has
    intent.Forms = 29;
    EXPECT_THAT(Codes(CheckAll(state, memory.Services(), intent, std::nullopt)),
                ElementsAre("count.too-few"));
}

using ChooseForRunTest = PrecheckTest;

TEST_F(ChooseForRunTest, TakesTheForcedPaperAndMeasuresWithTheChosenOne) {
    memory.InstallPrinter({.Name = "Laser"});
    const machine::SheetArea chosen = *memory.printers.SheetOf(0, A4, machine::Portrait);
    const machine::SheetArea forced = *memory.printers.SheetOf(0, machine::PaperLegal, machine::Portrait);
    state.OverrulePaperSize = true;
    printer = ChooseForRun(state, services, 0, A4, machine::Portrait);
    EXPECT_EQ(printer.Condition.Name, "Laser");
    EXPECT_EQ(printer.Sheet->Height, forced.Height);
    EXPECT_EQ(printer.MeasuredSheet->Height, chosen.Height);

    state.MatrixPrinter = true;
    printer = ChooseForRun(state, services, 0, A4, machine::Portrait);
    EXPECT_EQ(printer.Sheet->Height, chosen.Height);
    EXPECT_FALSE(printer.MeasuredSheet);
}

TEST_F(ChooseForRunTest, APrinterWithoutTheForcedPaperKeepsTheChosenOne) {
    memory.InstallPrinter({.Name = "Laser", .Papers = {{A4, 2100, 2970, "A4"}}});
    state.OverrulePaperSize = true;
    printer = ChooseForRun(state, services, 0, A4, machine::Portrait);
    ASSERT_TRUE(printer.Sheet);
    EXPECT_EQ(printer.Sheet->Height, memory.printers.SheetOf(0, A4, machine::Portrait)->Height);
    EXPECT_FALSE(printer.MeasuredSheet);
}

TEST_F(CheckAllTest, TheWorstOfAllComeFirst) {
    intent.Copies = 2;
    printer.Condition.Status = 0x1;
    printer.Condition.Imposed = {"Booklet: On"};
    state.IncassantBegunstigde = "Stichting Tot Behoud Van Lange Namen";
    state.IncassantWoonplaats.clear();
    state.GMUFontSize = "8";
    EXPECT_THAT(Codes(All()), ElementsAre("font.size", "creditor.no-town", "printer.imposed", "count.copies",
                                          "printer.paused", "creditor.name-cut"));
}

TEST_F(CheckAllTest, NothingIsTouched) {
    memory.InstallPrinter({.Name = "Laser"});
    memory.random.Seed(7);
    memory::MemoryRandom untouched;
    untouched.Seed(7);
    std::vector<std::string> calls;
    memory.recorder.ShouldFail = [&](std::string_view call) {
        if (!call.starts_with("Reg")) { // the settings are read
            calls.emplace_back(call);
        }
        return false;
    };
    bool recorded = false;
    memory.recorder.Sink = [&](const memory::Event&) { recorded = true; };
    bool written = false;
    memory.registry.OnWrite = [&](const auto&, const auto&, const auto&, bool) { written = true; };
    const machine::FontSpec font = memory.printer.Drawing.Font;

    for (const std::int16_t document : Numbers{1, 2, 3}) {
        intent.Document = document;
        All();
    }
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(recorded);
    EXPECT_FALSE(written);
    EXPECT_EQ(memory.random.Rnd(), untouched.Rnd());
    EXPECT_EQ(memory.printer.Drawing.Font, font);
    EXPECT_EQ(state.Surface, nullptr);
    EXPECT_EQ(state.PageWidth, 0);
}

namespace {

/// A text that a setting may hold: mostly a sensible one, else bytes of any kind.
std::string AnyText(machine::RandomSource& random, std::string sensible) {
    if (random.Rnd() < 0.7) {
        return sensible;
    }
    std::string bytes(static_cast<std::size_t>(random.Rnd() * 60), ' ');
    for (char& byte : bytes) {
        byte = static_cast<char>(random.Rnd() * 256);
    }
    return bytes;
}

bool IsOneLineOfText(const std::string& sentence) {
    for (std::string_view rest = sentence; !rest.empty();) {
        const base::text::Decoded first = base::text::DecodeFirst(rest);
        if (first.Code < U' ' || (first.Code == 0xFFFD && first.Bytes == 1)) {
            return false;
        }
        rest.remove_prefix(first.Bytes);
    }
    return !sentence.empty();
}

} // namespace

TEST_F(CheckAllTest, AnySettingsAreTakenAndToldInPlainSentences) {
    machine::SeededRandom random(17);
    const auto pick = [&](int count) { return static_cast<std::int16_t>(random.Rnd() * count); };
    for (int round = 0; round < 60; ++round) {
        for (const auto& block : state::CalibrationBlocks(state)) {
            for (std::size_t place = 0; place < state::CalibratedPlaces; ++place) {
                block.X[place] = AnyText(random, Decimal(random.Rnd() * 60 - 30, 2));
                block.Y[place] = AnyText(random, Decimal(random.Rnd() * 60 - 30, 2));
            }
        }
        state.GMUContractVorm = static_cast<std::int16_t>(30 + pick(6));
        state.AcceptgiroType = pick(5);
        state.GMUVerkeer = pick(4) != 0;
        state.GMUFontSize = AnyText(random, std::to_string(pick(49)));
        state.GMUFontName = AnyText(random, OcrFont);
        state.IncassantBegunstigde = AnyText(random, "Stichting Proef");
        state.IncassantWoonplaats = AnyText(random, "Testdam");
        state.IncassantBankGiro = AnyText(random, "NL13ABNA0500000018");
        Set("AcceptFontSizeNAW2", AnyText(random, "10"));
        printer.Sheet = Sheet(100 + random.Rnd() * 200, 100 + random.Rnd() * 300, random.Rnd() * 20);
        printer.Condition.Name = AnyText(random, "Laser");
        intent = {.Document = static_cast<std::int16_t>(1 + pick(3)),
                  .Forms = pick(8),
                  .Copies = static_cast<std::int16_t>(pick(4) - 1)};
        const Findings findings = All();
        EXPECT_TRUE(std::is_sorted(findings.begin(), findings.end(), [](const auto& one, const auto& other) {
            return one.Gravity < other.Gravity;
        }));
        for (const Finding& finding : findings) {
            EXPECT_TRUE(IsOneLineOfText(finding.Wrong)) << testing::PrintToString(finding);
            EXPECT_TRUE(IsOneLineOfText(finding.Mend)) << testing::PrintToString(finding);
        }
    }
}

TEST_F(CheckAllTest, TheSameIsFoundAtAnyMoment) {
    const auto sentences = [&] {
        std::vector<std::string> all;
        for (const Finding& finding : All()) {
            all.push_back(finding.Wrong);
        }
        return all;
    };
    state.AcceptgiroType = 2;
    Set("AcceptFontSizeNAW2", "40");
    printer.Sheet->Right = ToTwips(80);
    const std::vector<std::string> now = sentences();
    memory.clock.Set({2026, 3, 15, 11, 47, 12, 345});
    memory.random.Seed(99);
    memory.random.Rnd();
    EXPECT_EQ(sentences(), now);
}

} // namespace precheck
