#include "memory/MemoryCanvas.h"

#include <gmock/gmock.h>

#include "base/RuntimeError.h"
#include "memory/tests/Events.h"

namespace {

using machine::FontSpec;
using memory::Event;
using testing::ElementsAre;
using testing::IsEmpty;

class MemoryCanvasTest : public testing::Test {
  protected:
    WatchedPlatform watched;
    memory::MemoryCanvas canvas{watched.memory.recorder, watched.memory.fonts, "preview"};
};

TEST_F(MemoryCanvasTest, MeasuresByTheCharacter) {
    const machine::TextSize size = canvas.MeasureText("één", FontSpec{"Tahoma", 8, false});
    EXPECT_EQ(size.Width, 3 * 10 * 8);
    EXPECT_EQ(size.Height, 24 * 8);
    EXPECT_EQ(canvas.MeasureText("een", FontSpec{"Tahoma", 10, true}).Width, 3 * 11 * 10);
    EXPECT_EQ(canvas.MeasureText("", FontSpec{"Tahoma", 10, true}).Width, 0);
}

TEST_F(MemoryCanvasTest, RecordsWhatIsDrawn) {
    canvas.DrawText(10, 20.5, "Jan", FontSpec{"Tahoma", 8, true});
    canvas.DrawLine(1, 2, 3, 4, 255);
    EXPECT_THAT(watched.events, ElementsAre(Event{"text",
                                                  {{"surface", "preview"},
                                                   {"page", 1},
                                                   {"x", 10.0},
                                                   {"y", 20.5},
                                                   {"text", "Jan"},
                                                   {"font", "Tahoma"},
                                                   {"size", 8.0},
                                                   {"bold", true}}},
                                            Event{"line",
                                                  {{"surface", "preview"},
                                                   {"page", 1},
                                                   {"x1", 1.0},
                                                   {"y1", 2.0},
                                                   {"x2", 3.0},
                                                   {"y2", 4.0},
                                                   {"colour", 255}}}));
}

TEST_F(MemoryCanvasTest, AnEmptyTextIsNoEvent) {
    canvas.DrawText(0, 0, "", FontSpec{});
    EXPECT_THAT(watched.events, IsEmpty());
}

TEST_F(MemoryCanvasTest, CountsPagesAfreshForEachDocument) {
    canvas.NewPage();
    canvas.NewPage();
    canvas.EndDocument();
    EXPECT_EQ(canvas.PageNumber(), 1);
    canvas.NewPage();
    EXPECT_THAT(watched.events, ElementsAre(Event{"page", {{"surface", "preview"}, {"page", 2}}},
                                            Event{"page", {{"surface", "preview"}, {"page", 3}}},
                                            Event{"end", {{"surface", "preview"}}},
                                            Event{"page", {{"surface", "preview"}, {"page", 2}}}));
}

TEST_F(MemoryCanvasTest, EachCallFailsAsOftenAsItIsTold) {
    const auto drawText = [&] { canvas.DrawText(0, 0, "a", FontSpec{}); };
    watched.memory.recorder.Fail("DrawText", 2);
    EXPECT_THROW(drawText(), base::RuntimeError);
    EXPECT_THROW(drawText(), base::RuntimeError);
    EXPECT_NO_THROW(drawText());
    EXPECT_EQ(watched.events.size(), 1U);

    watched.memory.recorder.Fail("NewPage");
    EXPECT_THROW(canvas.NewPage(), base::RuntimeError);
    EXPECT_EQ(canvas.PageNumber(), 1);
    watched.memory.recorder.Fail("EndDocument");
    EXPECT_THROW(canvas.EndDocument(), base::RuntimeError);
    watched.memory.recorder.Fail("DrawLine");
    EXPECT_THROW(canvas.DrawLine(0, 0, 0, 0, 0), base::RuntimeError);
    watched.memory.recorder.Fail("MeasureText");
    EXPECT_THROW(canvas.MeasureText("a", FontSpec{}), base::RuntimeError);
}

} // namespace
