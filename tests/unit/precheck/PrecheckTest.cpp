#include "PrecheckTest.h"

#include "memory/Recorder.h"

namespace precheck {

using testing::ElementsAre;
using testing::IsEmpty;

using CheckAllTest = PrecheckTest;

TEST_F(CheckAllTest, NothingIsWrong) {
    EXPECT_THAT(Codes(All()), IsEmpty());
}

TEST_F(CheckAllTest, WithoutAPrinterThereIsNothingToSayOfOne) {
    All(); // stores what `state` has
    intent.Forms = 249;
    EXPECT_THAT(Codes(CheckAll(state, memory.Services(), intent, std::nullopt)),
                ElementsAre("count.too-few"));
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
