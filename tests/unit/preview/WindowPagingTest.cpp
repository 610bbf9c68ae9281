#include "unit/preview/WindowFixture.h"

namespace preview {
namespace {

using testing::ElementsAre;

struct NavigationRow {
    int page;
    int pages;
    bool up;
    bool down;
    std::vector<int> buttons;
};

class NavigationTest : public PreviewTest, public testing::WithParamInterface<NavigationRow> {};

TEST_P(NavigationTest, OffersWhatThereIs) {
    const NavigationRow& row = GetParam();
    InstallPrinter();
    Open();
    Compose(row.pages);
    Window().SetButtons(static_cast<std::int16_t>(row.page));
    EXPECT_EQ(Window().cmdUp.Enabled(), row.up);
    EXPECT_EQ(Window().cmdDown.Enabled(), row.down);
    EXPECT_EQ(Pressable(), row.buttons);
    Close();
}

INSTANTIATE_TEST_SUITE_P(Pages, NavigationTest,
                         testing::Values(NavigationRow{1, 1, false, false, {1, 8}},
                                         NavigationRow{1, 3, false, true, {1, 5, 6, 8}},
                                         NavigationRow{2, 3, true, true, {1, 3, 4, 5, 6, 8}},
                                         NavigationRow{3, 3, true, false, {1, 3, 4, 8}},
                                         NavigationRow{1, 2, false, true, {1, 5, 6, 8}},
                                         NavigationRow{2, 2, true, false, {1, 3, 4, 8}},
                                         NavigationRow{5, 3, true, true, {1, 3, 4, 5, 6, 8}}));

TEST_F(WindowTest, ThePanelShowsThePageOnDisplayNotTheOneAskedFor) {
    Start(3);
    Window().SetButtons(3);
    EXPECT_EQ(Window().StatusBar.Panel(1).Text, "Pagina: 1");
}

TEST_F(WindowTest, ThePanelsTellPageAndTotal) {
    Start(3);
    EXPECT_EQ(Window().StatusBar.Panel(1).Text, "Pagina: 1");
    EXPECT_EQ(Window().StatusBar.Panel(2).Text, "Totaal aantal pagina's : 3");
    Window().Toolbar.UserClickButton(6);
    EXPECT_EQ(Window().StatusBar.Panel(1).Text, "Pagina: 3");
    EXPECT_EQ(Window().StatusBar.Panel(2).Text, "Totaal aantal pagina's : 3");
}

TEST_F(WindowTest, TheToolbarTurnsThePagesAndGoesToTheTop) {
    Start(3);
    struct Step {
        int button;
        const char* page;
    };
    for (const Step& step :
         {Step{5, "pagina 2"}, {5, "pagina 3"}, {4, "pagina 2"}, {3, "pagina 1"}, {6, "pagina 3"}}) {
        GoTo(40, 60);
        EXPECT_TRUE(Window().Toolbar.UserClickButton(step.button));
        EXPECT_THAT(OnScreen(), ElementsAre(step.page));
        EXPECT_EQ(V(), 0);
        EXPECT_EQ(H(), 0);
        EXPECT_EQ("pagina " + std::to_string(Window().iCurrentPage), step.page);
        EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    }
    EXPECT_FALSE(Window().Toolbar.UserClickButton(5)) << "there is no page 4";
    EXPECT_FALSE(Window().Toolbar.UserClickButton(2));
}

TEST_F(WindowTest, ACommandRunsUnderTheHourglass) {
    Start(2);
    Window().Toolbar.UserClickButton(5);
    std::vector<std::int64_t> pointers;
    for (const memory::Event& event : events) {
        if (event.Kind == "mouse") {
            pointers.push_back(std::get<std::int64_t>(event.Fields.at(0).Value));
        }
    }
    EXPECT_THAT(pointers, ElementsAre(11, 11, 0, 0))
        << "the page change within ends it early: it does not nest";
}

TEST_F(WindowTest, TheArrowDownGoesToTheTopOfTheNextPageAndLeavesTheSideAlone) {
    Start(3);
    GoTo(40, 60);
    EXPECT_TRUE(Window().cmdDown.UserClick());
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 2"));
    EXPECT_EQ(V(), 0);
    EXPECT_EQ(H(), 60);
}

TEST_F(WindowTest, TheArrowUpKeepsThePosition) {
    Start(3);
    Window().Toolbar.UserClickButton(6);
    GoTo(40, 60);
    EXPECT_TRUE(Window().cmdUp.UserClick());
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 2"));
    EXPECT_EQ(V(), 40);
    EXPECT_EQ(H(), 60);
    EXPECT_TRUE(Window().cmdUp.UserClick());
    EXPECT_FALSE(Window().cmdUp.UserClick());
    EXPECT_EQ(Window().iCurrentPage, 1);
}

TEST_F(WindowTest, TheArrowsHaveTheirPicturesAndTips) {
    Start(3);
    EXPECT_EQ(Window().cmdUp.ButtonStyle(), 1);
    EXPECT_EQ(Window().cmdDown.ButtonStyle(), 2);
    EXPECT_EQ(Window().cmdUp.ToolTipText(), " Vorige pagina... ");
    EXPECT_EQ(Window().cmdDown.ToolTipText(), " Volgende pagina... ");
    EXPECT_EQ(Window().cmdUp.pictNormal(), "imgResourceSmall-1") << "there is no page before the first";
    EXPECT_EQ(Window().cmdDown.pictNormal(), "imgResourceSmall-6");
}

TEST_F(WindowTest, ThePanelsOfOnePageTellOne) {
    Start(1);
    EXPECT_EQ(Window().StatusBar.Panel(1).Text, "Pagina: 1");
    EXPECT_EQ(Window().StatusBar.Panel(2).Text, "Totaal aantal pagina's : 1");
}

TEST_F(WindowTest, PagingCostsNoNewPicture) {
    Start(40);
    const std::size_t alive = memory.bitmaps.Alive();
    for (int page = 1; page < 40; ++page) {
        Window().Toolbar.UserClickButton(5);
    }
    EXPECT_EQ(memory.bitmaps.Alive(), alive);
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 40"));
}

} // namespace
} // namespace preview
