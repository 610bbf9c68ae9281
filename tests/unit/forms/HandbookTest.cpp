#include "forms/Handbook.h"

#include <gmock/gmock.h>

#include "memory/MemoryPlatform.h"

namespace {

TEST(HandbookTest, EachSectionHasAPageThatLeadsThere) {
    EXPECT_EQ(forms::HandbookPage(""), "index.html");
    EXPECT_EQ(forms::HandbookPage("wat-u-opstuurt"), "sections/wat-u-opstuurt.html");
}

TEST(HandbookTest, TellsWhichFileCouldNotBeOpened) {
    memory::MemoryPlatform memory;
    forms::TellHandbookNotOpened(memory.desktop, "/map/index.html", "Titel");
    ASSERT_EQ(memory.desktop.Messages().size(), 1U);
    const memory::ShownMessage& message = memory.desktop.Messages()[0];
    EXPECT_THAT(message.Text, testing::StartsWith("De handleiding kan niet worden geopend.\n"));
    EXPECT_THAT(message.Text, testing::EndsWith("\n/map/index.html"));
    EXPECT_EQ(message.Icon, forms::MessageIcon::Exclamation);
    EXPECT_EQ(message.Title, "Titel");
}

} // namespace
