#include "machine/PageRecord.h"

#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "machine/RecordedPage.h"

namespace machine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down each call.
class Noting final : public Canvas {
  public:
    std::vector<std::string> Calls;

    TextSize MeasureText(std::string_view text, const FontSpec& font) override {
        return {static_cast<double>(text.size()) * font.Size, font.Size};
    }
    void DrawText(double x, double y, std::string_view text, const FontSpec& font) override {
        std::ostringstream call;
        call << text << " at " << x << ", " << y << " in " << font.Name << " " << font.Size
             << (font.Bold ? " bold" : "");
        Calls.push_back(call.str());
    }
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
        std::ostringstream call;
        call << "line " << x1 << ", " << y1 << " to " << x2 << ", " << y2 << " in " << colour;
        Calls.push_back(call.str());
    }
    void NewPage() override { Calls.emplace_back("page"); }
    void EndDocument() override { Calls.emplace_back("end"); }
};

std::vector<std::string> CallsOf(const PageRecord& record) {
    Noting canvas;
    record.DrawOn(canvas);
    return canvas.Calls;
}

const FontSpec Plain{"Tahoma", 8, false};
const FontSpec Bold{"Tahoma", 8, true};

TEST(PageRecordTest, DrawsEachCallInItsTurn) {
    PageRecord record;
    record.AddLine(0, 1.5, 10, 1.5, 255);
    record.AddText(0.25, 2, "één", Plain);
    record.AddLine(1, 2, 3, 4, 0);
    record.AddLine(5, 6, 7, 8, 0);
    record.AddText(3, 4, " twee ", Bold);
    record.AddText(5, 6, "drie", Plain);
    record.AddLine(9, 9, 9, 9, 1);
    const auto expected =
        ElementsAre("line 0, 1.5 to 10, 1.5 in 255", "één at 0.25, 2 in Tahoma 8", "line 1, 2 to 3, 4 in 0",
                    "line 5, 6 to 7, 8 in 0", " twee  at 3, 4 in Tahoma 8 bold", "drie at 5, 6 in Tahoma 8",
                    "line 9, 9 to 9, 9 in 1");
    EXPECT_THAT(CallsOf(record), expected);
    EXPECT_THAT(CallsOf(record), expected) << "and so every time";
}

TEST(PageRecordTest, HoldsNothingAtFirstAndAfterClear) {
    PageRecord record;
    EXPECT_THAT(CallsOf(record), IsEmpty());
    record.AddText(1, 2, "weg", Plain);
    record.AddLine(1, 2, 3, 4, 0);
    record.Clear();
    EXPECT_THAT(CallsOf(record), IsEmpty());
    record.AddText(1, 2, "nieuw", Bold);
    EXPECT_THAT(CallsOf(record), ElementsAre("nieuw at 1, 2 in Tahoma 8 bold"));
}

TEST(PageRecordTest, AnEmptyTextLeavesNothing) {
    PageRecord record;
    record.AddText(1, 2, "", Plain);
    EXPECT_THAT(CallsOf(record), IsEmpty());
}

TEST(PageRecordTest, ACopyStaysAsItIs) {
    PageRecord record;
    record.AddText(1, 2, "een", Plain);
    const PageRecord copy = record;
    record.AddText(3, 4, "twee", Plain);
    EXPECT_THAT(CallsOf(copy), ElementsAre("een at 1, 2 in Tahoma 8"));
    EXPECT_EQ(CallsOf(record).size(), 2U);
}

class Picture final : public PageBitmap {
  public:
    explicit Picture(const PageRecord& record) : Record(record) {}

    double Width() const override { return 100; }
    double Height() const override { return 200; }

    PageRecord Record;
};

/// A page whose memory can run out.
class Page final : public RecordedPage {
  public:
    bool Full = false;

  private:
    machine::Canvas& Measures() override { return measures_; }
    std::shared_ptr<const PageBitmap> PictureOf(const PageRecord& record) override {
        if (Full) {
            throw std::bad_alloc();
        }
        return std::make_shared<Picture>(record);
    }

    Noting measures_;
};

std::vector<std::string> CallsOf(Page& page) {
    return CallsOf(dynamic_cast<const Picture&>(*page.Image()).Record);
}

int FailureOfImage(Page& page) {
    try {
        page.Image();
    } catch (const base::RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

/// More than a text can hold.
std::string_view Endless(const std::string& text) {
    return {text.data(), std::string().max_size()};
}

TEST(RecordedPageTest, ItsPictureHoldsWhatWasDrawnAndMeasuresGoToTheDesktop) {
    Page page;
    EXPECT_EQ(page.Drawing().MeasureText("abc", Plain).Width, 24);
    page.Drawing().DrawText(1, 2, "een", Plain);
    const auto first = page.Image();
    page.Drawing().DrawLine(1, 2, 3, 4, 5);
    page.Drawing().EndDocument();
    EXPECT_THAT(CallsOf(page), ElementsAre("een at 1, 2 in Tahoma 8", "line 1, 2 to 3, 4 in 5"));
    page.Drawing().NewPage();
    EXPECT_THAT(CallsOf(page), IsEmpty());
    EXPECT_THAT(CallsOf(dynamic_cast<const Picture&>(*first).Record), ElementsAre("een at 1, 2 in Tahoma 8"));
}

TEST(RecordedPageTest, WithoutMemoryThePictureFailsAndNoDrawing) {
    Page page;
    const std::string text = "x";
    page.Drawing().DrawText(1, 2, Endless(text), Plain);
    page.Drawing().DrawText(1, 2, "een", Plain);
    EXPECT_EQ(FailureOfImage(page), base::ErrorOutOfMemory);
    page.Cls();
    page.Drawing().DrawText(1, 2, "twee", Plain);
    EXPECT_THAT(CallsOf(page), ElementsAre("twee at 1, 2 in Tahoma 8"));
    page.Full = true;
    EXPECT_EQ(FailureOfImage(page), base::ErrorOutOfMemory);
    page.Full = false;
    EXPECT_THAT(CallsOf(page), ElementsAre("twee at 1, 2 in Tahoma 8")) << "another try finds it all";
}

TEST(RecordedPageTest, ADiscardedPageKeepsNothingUntilItIsWiped) {
    Page page;
    page.Drawing().DrawText(1, 2, "een", Plain);
    page.Discard();
    page.Drawing().DrawText(1, 2, "twee", Plain);
    EXPECT_THAT(CallsOf(page), IsEmpty());
    page.Cls();
    page.Drawing().DrawText(1, 2, "drie", Plain);
    EXPECT_THAT(CallsOf(page), ElementsAre("drie at 1, 2 in Tahoma 8"));
}

} // namespace
} // namespace machine
