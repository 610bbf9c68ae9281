#include "unit/preview/WindowFixture.h"

namespace preview {
namespace {

using testing::ElementsAre;
namespace key = forms::key;

struct KeyRow {
    int key;
    int from;
    int to;
};

TEST_F(WindowTest, KeysMoveTheVerticalBar) {
    Start(1);
    for (const KeyRow& row : {KeyRow{key::PageUp, 26, 1},
                              {key::PageUp, 25, 0},
                              {key::PageUp, 1, 0},
                              {key::PageUp, 100, 75},
                              {key::PageDown, 74, 99},
                              {key::PageDown, 75, 100},
                              {key::PageDown, 99, 100},
                              {key::PageDown, 0, 25},
                              {key::Up, 11, 1},
                              {key::Up, 10, 0},
                              {key::Up, 0, 0},
                              {key::Down, 89, 99},
                              {key::Down, 90, 100},
                              {key::Down, 100, 100},
                              {key::Home, 50, 0},
                              {key::End, 50, 100},
                              {key::Left, 50, 50},
                              {key::Right, 50, 50}}) {
        GoTo(row.from, 0);
        Key(row.key);
        EXPECT_EQ(V(), row.to) << "key " << row.key << " at " << row.from;
    }
}

TEST_F(WindowTest, KeysMoveTheHorizontalBarAlsoWhereItIsHidden) {
    Start(1);
    ASSERT_FALSE(Window().pictHScroll.Visible());
    for (const KeyRow& row : {KeyRow{key::Left, 11, 1},
                              {key::Left, 10, 0},
                              {key::Left, 0, 0},
                              {key::Right, 89, 99},
                              {key::Right, 90, 100},
                              {key::Right, 100, 100},
                              {key::Home, 50, 0},
                              {key::End, 50, 100},
                              {key::Up, 50, 50},
                              {key::PageDown, 50, 50}}) {
        GoTo(20, row.from);
        Key(row.key);
        EXPECT_EQ(H(), row.to) << "key " << row.key << " at " << row.from;
    }
}

TEST_F(WindowTest, HelpIsTheHandbooksSectionOfThePreview) {
    Start(1);
    Window().UserHelp();
    EXPECT_THAT(memory.desktop.HandbookSections(), ElementsAre("het-afdrukvoorbeeld"));
}

TEST_F(WindowTest, OtherKeysDoNothing) {
    Start(2);
    GoTo(50, 50);
    for (const int code : {0, 9, 13, 32, 65, 112, -1, 100000}) {
        Key(code);
    }
    EXPECT_EQ(V(), 50);
    EXPECT_EQ(H(), 50);
    EXPECT_EQ(Window().iCurrentPage, 1);
    EXPECT_TRUE(Window().Visible());
}

TEST_F(WindowTest, PageDownTurnsThePageOnlyFromTheBottom) {
    Start(2);
    GoTo(75, 30);
    Key(key::PageDown);
    EXPECT_EQ(V(), 100);
    EXPECT_EQ(Window().iCurrentPage, 1);
    Key(key::PageDown);
    EXPECT_EQ(Window().iCurrentPage, 2);
    EXPECT_THAT(OnScreen(), ElementsAre("pagina 2"));
    EXPECT_EQ(V(), 0);
    EXPECT_EQ(H(), 30);
}

TEST_F(WindowTest, PageDownAtTheEndOfTheLastPageDoesNothing) {
    Start(1);
    GoTo(100, 0);
    Key(key::PageDown);
    EXPECT_EQ(V(), 100);
    EXPECT_EQ(Window().iCurrentPage, 1);
}

TEST_F(WindowTest, PageUpTurnsThePageOnlyFromTheTopAndStaysThere) {
    Start(2);
    Window().Toolbar.UserClickButton(6);
    GoTo(25, 0);
    Key(key::PageUp);
    EXPECT_EQ(V(), 0);
    EXPECT_EQ(Window().iCurrentPage, 2);
    Key(key::PageUp);
    EXPECT_EQ(Window().iCurrentPage, 1);
    EXPECT_EQ(V(), 0);
    Key(key::PageUp);
    EXPECT_EQ(Window().iCurrentPage, 1);
}

} // namespace
} // namespace preview
