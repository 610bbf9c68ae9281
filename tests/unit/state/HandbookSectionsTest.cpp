#include "state/HandbookSections.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(HandbookSectionsTest, AreAllInTheHandbookAndEachHasAPageThatLeadsThere) {
    const fs::path folder = HANDBOOK_FOLDER;
    const std::string handbook = Content(folder / "index.html");
    ASSERT_THAT(handbook, testing::HasSubstr("<h1"));
    for (const state::HandbookSection& row : state::HandbookSections) {
        const std::string anchor(row.Anchor);
        EXPECT_THAT(handbook, testing::HasSubstr(" id=\"" + anchor + "\">"));
        EXPECT_THAT(Content(folder / "sections" / (anchor + ".html")),
                    testing::HasSubstr("url=../index.html#" + anchor + "\""));
    }
}

TEST(HandbookSectionsTest, EachPageOfTheWizardHasItsOwn) {
    EXPECT_EQ(state::HandbookAnchor("frmMain", 0), "bladzijde-1-uw-gegevens");
    EXPECT_EQ(state::HandbookAnchor("frmMain", 3), "bladzijde-4-afdrukken");
    EXPECT_EQ(state::HandbookAnchor("frmPrintPreview"), "het-afdrukvoorbeeld");
    EXPECT_EQ(state::HandbookAnchor("frmMain", 4), "");
    EXPECT_EQ(state::HandbookAnchor("frmPrintPreviewGhost"), "") << "no window of the user's";
}

} // namespace
