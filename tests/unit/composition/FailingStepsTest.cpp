// A machine that fails in the middle of a job: the job comes to its end, nothing crashes, and what can be
// drawn is drawn.
#include "DocumentTest.h"

namespace composition {

using testing::Contains;

class FailingStepsTest : public DocumentTest {
  protected:
    static constexpr double OcrLineY = 8.975 * 567;

    void Restart() {
        printer.canvas = {};
        printer.Drawing = {0, 0, {"Printer", 12, false}};
        happened.clear();
        host.percentages.clear();
    }
    void ExpectEnd() { EXPECT_EQ(happened.back(), "mouse 0"); }
};

TEST_F(FailingStepsTest, CanvasThatFailsAtEveryCall) {
    host.count = "5";
    for (const std::int16_t type : Numbers{0, 1, 2, 3}) {
        state.AcceptgiroType = type;
        for (const std::int16_t iMethod : AllDocuments) {
            Restart();
            printer.canvas.Fails = [](int) { return true; };
            Print(iMethod);
            ExpectEnd();
            EXPECT_TRUE(Texts().empty());
            EXPECT_EQ(host.percentages.back(), 100);
        }
    }
}

TEST_F(FailingStepsTest, PrinterThatIsGoneForEveryCall) {
    host.count = "2";
    printer.failures = {{"Page", {482, ""}}, {"ScaleLeft", {482, ""}}, {"ScaleTop", {482, ""}}};
    state.OverrulePaperSize = true;
    printer.failures["PaperSize"] = {380, ""};
    for (const std::int16_t iMethod : AllDocuments) {
        Print(iMethod);
        ExpectEnd();
    }
    EXPECT_EQ(memory.desktop.Messages().size(), 2 * AllDocuments.size()); // at each opening, and none besides
}

TEST_F(FailingStepsTest, FormsKeepTheirPlacesWhicheverCallFails) {
    host.count = "4";
    Print(1);
    const int calls = printer.canvas.calls;
    for (int failing = 1; failing <= calls; ++failing) {
        Restart();
        printer.canvas.Fails = [failing](int call) { return call == failing; };
        Print(1);
        ExpectEnd();
        EXPECT_EQ(host.percentages.size(), 5U);
        // The forms that were not hit stand where they always do; at most one mark is missing.
        std::vector<support::DrawnText> marks;
        std::copy_if(Texts().begin(), Texts().end(), std::back_inserter(marks),
                     [](const support::DrawnText& drawn) { return drawn.text == "X"; });
        ASSERT_GE(marks.size(), 3U) << failing;
        const double places[] = {0, 5760, 11520};
        for (const support::DrawnText& mark : marks) {
            const double top = mark.y - OcrLineY;
            EXPECT_THAT(places, Contains(testing::DoubleNear(top, 0.01))) << failing;
        }
    }
}

TEST_F(FailingStepsTest, RoutineThatFailsEndsAndTheNextOneRuns) {
    // The first drawing of a form is the payer's: the rest of that routine is lost, creditor and OCR line are
    // not.
    bool failed = false;
    printer.canvas.Fails = [&](int) {
        const bool now = !failed && printer.canvas.texts.empty() && printer.Drawing.Font.Size == 9;
        failed = failed || now;
        return now;
    };
    Print(1);
    EXPECT_FALSE(IsDrawn("DRUKKEURING "));
    EXPECT_TRUE(IsDrawn("Stichting Proef"));
    EXPECT_TRUE(IsDrawn("17>"));
}

TEST_F(FailingStepsTest, ListsLoseOneStepAlone) {
    for (const std::int16_t iMethod : ListDocuments) {
        Restart();
        Print(iMethod);
        const std::size_t all = Texts().size();
        const int calls = printer.canvas.calls;
        for (int failing = 1; failing <= calls; failing += iMethod == DocumentNameList ? 97 : 1) {
            Restart();
            printer.canvas.Fails = [failing](int call) { return call == failing; };
            Print(iMethod);
            ExpectEnd();
            EXPECT_GE(Texts().size() + 1, all) << failing;
        }
    }
}

TEST_F(FailingStepsTest, PageBreakThatFailsIsNotTriedAgain) {
    host.count = "4";
    class BreakFails final : public PrintSurface {
      public:
        explicit BreakFails(machine::DrawingState& drawing, machine::Canvas& canvas)
            : PrintSurface(drawing), canvas_(canvas) {}
        void Newpage() override {
            ++breaks;
            throw base::RuntimeError(482, "");
        }
        int breaks = 0;

      protected:
        machine::Canvas& Page() override { return canvas_; }

      private:
        machine::Canvas& canvas_;
    } surface(printer.Drawing, printer.canvas);
    OnHappening = [&](const std::string& what) {
        if (what == "UpdatePercentage 25") {
            state.Surface = &surface;
        }
    };
    Print(1);
    EXPECT_EQ(surface.breaks, 1);
    EXPECT_EQ(host.percentages.size(), 5U);
}

TEST_F(FailingStepsTest, FormsAroundTheRunMayFail) {
    printer.failures["ScaleLeft"] = {482, ""}; // told in the middle of the opening
    for (const char* failing : {"message", "UpdatePercentage 100", "mouse 0"}) {
        Restart();
        OnHappening = [failing](const std::string& what) {
            if (what == failing) {
                throw base::RuntimeError(5, "");
            }
        };
        Print(1);
        ExpectEnd();
        EXPECT_THAT(happened, Contains(failing));
    }
    for (const char* failing : {"OpenPreview 0", "ShowPreview", "OpenPreview 1"}) {
        Restart();
        OnHappening = [failing](const std::string& what) {
            if (what == failing) {
                throw base::RuntimeError(5, "");
            }
        };
        Preview(1);
        ExpectEnd();
        EXPECT_THAT(happened, Contains(failing));
    }
}

TEST_F(FailingStepsTest, HostileStateComesToItsEnd) {
    const std::string garbage("\xff\xfe\0\r\n\t ,.-+e99\0", 15);
    state.GMUFontName = garbage;
    state.GMUFontSize = garbage;
    state.GMUServiceNr = garbage;
    state.GMUCode = garbage;
    state.IncassantBankGiro = state.IncassantPostCode = state.IncassantAdres = garbage;
    state.IncassantBegunstigde = std::string(3000, '\xe9');
    state.IncassantWoonplaats = std::string(3000, 'W');
    std::int16_t type = 0;
    // Behind the reading of the settings, which would turn some of it into text.
    memory.desktop.OnYield = [&] {
        state.OCRLinks.fill(garbage);
        state.OCRTop.fill("2147483647");
        state.AcceptGiroLinks.fill("-37000000");
        state.AcceptGiroTop.fill("37000000");
        state.AcceptGiroNAWLinks.fill(std::string(5000, '9'));
        state.AcceptGiroBGAcceptLinks.fill("37870000");
        state.AcceptGiroBGSoucheLinks.fill("37870000");
        state.AcceptgiroType = type;
        state.GMUContractVorm = 32;
    };
    memory.registry.SetText(SettingsPath, "AcceptFontSizeNAW1", garbage);
    memory.registry.SetText(SettingsPath, "AcceptFontSizeNAW2", "1e400");
    host.count = "3";
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t number : {least, -1, 0, most}) {
        state.PhysicalOffsetX = state.PhysicalOffsetY = number;
        state.LeftMargin = number;
        state.PageWidth = state.PageHeight = state.LineHeight = number;
        for (type = 0; type <= 3; ++type) {
            for (const std::int16_t iMethod : AllDocuments) {
                Print(iMethod);
                Preview(iMethod);
                ExpectEnd();
            }
        }
    }
}

} // namespace composition
