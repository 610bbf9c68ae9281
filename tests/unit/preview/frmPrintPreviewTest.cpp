#include "PreviewFixture.h"

#include "platform/Desktop.h"

namespace preview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
namespace key = platform::key;

/// A window on a document of `pages` pages, shown as far as a test needs it.
class WindowTest : public PreviewTest {
  protected:
    void Start(int pages) {
        InstallPrinter(printerName);
        Open();
        Compose(pages);
        Window().Show();
        events.clear();
    }
    ~WindowTest() override { Close(); }

    void Key(int code) { Window().UserKey(code); }
    void Wheel(std::int16_t delta) { memory.desktop.Windows().SendWheel(Window().hWnd(), delta); }
    int V() { return Window().VScroll.Value(); }
    int H() { return Window().HScroll.Value(); }
    void GoTo(int v, int h) {
        Window().VScroll.SetValue(v);
        Window().HScroll.SetValue(h);
    }

    std::string printerName = "Laser";
};

TEST_F(WindowTest, FillsTheWorkArea) {
    memory.desktop.SetWorkArea(15000, 9000);
    Start(1);
    EXPECT_EQ(Window().Left(), 0);
    EXPECT_EQ(Window().Top(), 0);
    EXPECT_EQ(Window().Width(), 15000);
    EXPECT_EQ(Window().Height(), 9000);
    EXPECT_TRUE(Window().Resizable());
}

TEST_F(WindowTest, TheSheetStandsInTheMiddleWithItsShadow) {
    Start(1);
    const forms::PictureBox& sheet = Window().pictPageContainer;
    EXPECT_TRUE(sheet.Visible());
    EXPECT_EQ(sheet.Width(), 11664);
    EXPECT_EQ(sheet.Height(), 16838.4);
    EXPECT_EQ(sheet.Top(), 1020);
    EXPECT_EQ(sheet.Left(), 19200.0 / 2 - 11664.0 / 2 - 270)
        << "the scroll bar's panel was made 270 wide by then";
    EXPECT_EQ(Window().pictShadow.Left(), sheet.Left() + 30);
    EXPECT_EQ(Window().pictShadow.Top(), 1050);
    EXPECT_EQ(Window().pictShadow.Width(), sheet.Width() + 15);
    EXPECT_EQ(Window().pictShadow.Height(), sheet.Height() + 15);
    EXPECT_EQ(Window().pictShadow.BackColor(), forms::colour::DarkShadow);
}

TEST_F(WindowTest, ThePageIsATenthHigherThanTheSheet) {
    Start(1);
    const forms::PictureBox& page = Window().pictCurrentPage;
    EXPECT_EQ(page.Container(), &Window().pictPageContainer);
    EXPECT_EQ(page.Left(), 120);
    EXPECT_EQ(page.Top(), 60);
    EXPECT_EQ(page.Width(), 11424);
    EXPECT_DOUBLE_EQ(page.Height(), 18522.24);
    EXPECT_EQ(page.BackColor(), forms::colour::Rgb(255, 255, 255));
}

TEST_F(WindowTest, TheTravelComesFromSheetAndWindow) {
    Start(1);
    EXPECT_EQ(Window().lScrollSpanY, 8558) << "|10800 - 16838.4 - 1500| + 1020 = 8558.4";
    EXPECT_EQ(Window().lScrollSpanX, 7056) << "19200 - 11664 - 1500 + 1020";
    EXPECT_FALSE(Window().blnHScroll);
    EXPECT_FALSE(Window().pictHScroll.Visible());
    EXPECT_TRUE(Window().HScroll.Enabled());
}

TEST_F(WindowTest, ASheetSmallerThanTheWindowStillHasATravel) {
    memory.desktop.SetWorkArea(40000, 30000);
    Start(1);
    EXPECT_EQ(Window().lScrollSpanY, 12682) << "30000 - 16838.4 - 1500 + 1020 = 12681.6";
    EXPECT_EQ(Window().lScrollSpanX, 27856);
}

TEST_F(WindowTest, AWideSheetShowsTheHorizontalBarAndStandsAtTheLeft) {
    memory.desktop.SetWorkArea(9000, 9000);
    Start(1);
    EXPECT_TRUE(Window().blnHScroll);
    EXPECT_TRUE(Window().pictHScroll.Visible());
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020);
    EXPECT_EQ(Window().pictShadow.Left(), 1050);
    EXPECT_EQ(Window().lScrollSpanX, 5184) << "|9000 - 11664 - 1500| + 1020";
}

TEST_F(WindowTest, AShadowAtTheVeryEdgeNeedsNoBar) {
    // The shadow's left is half the window, less half the sheet, less 270, plus 30.
    memory.desktop.SetWorkArea(11664 + 480, 9000);
    Start(1);
    EXPECT_EQ(Window().pictShadow.Left(), 0);
    EXPECT_FALSE(Window().blnHScroll);
}

TEST_F(WindowTest, LoadsWithNothingToTurnTo) {
    InstallPrinter();
    Open();
    EXPECT_EQ(Window().iTotalPages, 0);
    EXPECT_EQ(Window().iCurrentPage, 1);
    EXPECT_THAT(Pressable(), ElementsAre(1, 8));
    EXPECT_FALSE(Window().cmdUp.Enabled());
    EXPECT_FALSE(Window().cmdDown.Enabled());
    EXPECT_EQ(Window().StatusBar.Panel(1).Text, "Pagina: 1");
    EXPECT_EQ(Window().StatusBar.Panel(2).Text, "");
}

TEST_F(WindowTest, LoadingClearsTheWishToPrint) {
    state.PrintAfterPreview = true;
    InstallPrinter();
    Open();
    EXPECT_FALSE(state.PrintAfterPreview);
}

TEST_F(WindowTest, LoadingAndActivatingEndTheHourglass) {
    Start(1);
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
    for (const auto& [number, line] : Window().ToolbarLine) {
        EXPECT_EQ(line->ForeColor(), forms::colour::Rgb(160, 152, 135)) << number;
    }
    EXPECT_EQ(std::distance(Window().ToolbarLine.begin(), Window().ToolbarLine.end()), 14);
}

TEST_F(WindowTest, TheToolbarNamesThePrinter) {
    printerName = "  Laser 4  ";
    Start(1);
    EXPECT_EQ(Window().Toolbar.Button(1).ToolTipText, "Afdrukken (Laser 4)");
    EXPECT_EQ(Window().Toolbar.Button(3).ToolTipText, " Eerste pagina ");
    EXPECT_EQ(Window().Toolbar.Button(4).ToolTipText, " Vorige pagina ");
    EXPECT_EQ(Window().Toolbar.Button(5).ToolTipText, " Volgende pagina ");
    EXPECT_EQ(Window().Toolbar.Button(6).ToolTipText, " Laatste pagina ");
    EXPECT_EQ(Window().Toolbar.Button(8).ToolTipText, "");
    EXPECT_EQ(Window().Toolbar.ButtonCount(), 8);
    EXPECT_TRUE(Window().Toolbar.Button(2).Separator);
    EXPECT_TRUE(Window().Toolbar.Button(7).Separator);
}

TEST_F(WindowTest, TheToolbarsImagesAreSixInTheirOwnOrder) {
    Start(1);
    std::vector<std::string> images;
    std::vector<std::string> hotImages;
    for (const int number : {1, 3, 4, 5, 6, 8}) {
        images.push_back(Window().Toolbar.Button(number).Image);
        hotImages.push_back(Window().Toolbar.Button(number).HotImage);
    }
    EXPECT_THAT(images, ElementsAre("imgToolbarNormal-6", "imgToolbarNormal-1", "imgToolbarNormal-2",
                                    "imgToolbarNormal-3", "imgToolbarNormal-4", "imgToolbarNormal-5"));
    EXPECT_THAT(hotImages, ElementsAre("imgToolbarHot-6", "imgToolbarHot-1", "imgToolbarHot-2",
                                       "imgToolbarHot-3", "imgToolbarHot-4", "imgToolbarHot-5"));
}

TEST_F(WindowTest, WithoutAPrinterThePrintButtonIsOffAndTheMenuIsNot) {
    // The printers go away between the choice and the preview.
    InstallPrinter();
    Open();
    Close();
    wizard::AppState otherState;
    platform::MemoryPlatform bare;
    forms::Session bareSession(bare.desktop);
    composition::PrinterSurface barePrinter(bare.printer);
    PrintPreview barePreview(bareSession, bare.Services(), otherState, barePrinter);
    EXPECT_THROW(barePreview.OpenPreview(0), platform::RuntimeError);
    EXPECT_THROW(barePreview.Window()->Load(), platform::RuntimeError);
    EXPECT_FALSE(barePreview.Window()->Toolbar.Button(1).Enabled);
    EXPECT_EQ(barePreview.Window()->Toolbar.Button(1).ToolTipText, "Afdrukken...");
    EXPECT_TRUE(barePreview.Window()->SSActiveToolBars.UserChoose("ID_Afdrukken"));
    EXPECT_TRUE(otherState.PrintAfterPreview);
}

// Navigation

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
        EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
    }
    EXPECT_FALSE(Window().Toolbar.UserClickButton(5)) << "there is no page 4";
    EXPECT_FALSE(Window().Toolbar.UserClickButton(2));
}

TEST_F(WindowTest, ACommandRunsUnderTheHourglass) {
    Start(2);
    Window().Toolbar.UserClickButton(5);
    std::vector<std::int64_t> pointers;
    for (const platform::Event& event : events) {
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

// Keys

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

// Scrolling

TEST_F(WindowTest, ScrollingMovesSheetAndShadow) {
    Start(1);
    ASSERT_EQ(Window().lScrollSpanY, 8558);
    EXPECT_TRUE(Window().VScroll.UserScroll(33));
    // 67% of 8558 is 5733.86, which rounds to 5734: a shift of 2824.
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020 - 2824);
    EXPECT_EQ(Window().pictShadow.Top(), 1050 - 2824);
    EXPECT_TRUE(Window().VScroll.UserScroll(100));
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020 - 8558);
    EXPECT_TRUE(Window().VScroll.UserScroll(0));
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020);
    EXPECT_EQ(Window().pictShadow.Top(), 1050);
}

TEST_F(WindowTest, AHalfTwipGoesToTheEvenNumber) {
    Start(1);
    Window().lScrollSpanY = 6; // 75% is 4.5, which rounds to 4: a shift of 2
    Window().VScroll.SetValue(25);
    EXPECT_EQ(Window().pictPageContainer.Top(), 1018);
    Window().lScrollSpanY = 10; // 75% is 7.5, which rounds to 8: a shift of 2
    Window().VScroll.SetValue(0);
    Window().VScroll.SetValue(25);
    EXPECT_EQ(Window().pictPageContainer.Top(), 1018);
}

TEST_F(WindowTest, ACentredPageJumpsToTheLeftWithTheFirstHorizontalStep) {
    Start(1);
    const double centred = Window().pictPageContainer.Left();
    EXPECT_NE(centred, 1020);
    Key(key::Left);
    EXPECT_EQ(Window().pictPageContainer.Left(), centred) << "0 stays 0: nothing has changed";
    Key(key::Right);
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020 - 706) << "90% of 7056 is 6350.4: a shift of 706";
    EXPECT_EQ(Window().pictShadow.Left(), 1050 - 706);
    Key(key::Left);
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020);
}

TEST_F(WindowTest, AThumbThatIsLetGoWhereItWasMovesNothing) {
    Start(1);
    Window().pictPageContainer.SetTop(5);
    EXPECT_TRUE(Window().VScroll.UserScroll(0));
    EXPECT_EQ(Window().pictPageContainer.Top(), 5);
}

TEST_F(WindowTest, TheBarsStepAsTheyWereMade) {
    Start(1);
    for (const forms::ScrollBar* bar : {&Window().VScroll, &Window().HScroll}) {
        EXPECT_EQ(bar->Min(), 0);
        EXPECT_EQ(bar->Max(), 100);
        EXPECT_EQ(bar->SmallChange(), 15);
        EXPECT_EQ(bar->LargeChange(), 50);
    }
}

TEST_F(WindowTest, SevenNotchesOfTheWheelGoFromTopToBottom) {
    Start(2);
    for (const int expected : {15, 30, 45, 60, 75, 90, 100, 100}) {
        Wheel(-120);
        EXPECT_EQ(V(), expected);
    }
    for (const int expected : {85, 70, 55, 40, 25, 10, 0, 0}) {
        Wheel(120);
        EXPECT_EQ(V(), expected);
    }
    EXPECT_EQ(Window().iCurrentPage, 1) << "the wheel turns no page";
}

TEST_F(WindowTest, OnlyTheSignOfTheWheelCounts) {
    Start(1);
    GoTo(50, 0);
    Wheel(-1);
    EXPECT_EQ(V(), 65);
    Wheel(-32768);
    EXPECT_EQ(V(), 80);
    Wheel(1);
    EXPECT_EQ(V(), 65);
    Wheel(0);
    EXPECT_EQ(V(), 50) << "0 counts as away from the user";
}

TEST_F(WindowTest, TheLowWordOfTheWheelDoesNotCount) {
    Start(1);
    GoTo(50, 0);
    memory.desktop.Windows().Send(Window().hWnd(), 522, 0xFFFF, 0);
    EXPECT_EQ(V(), 35);
    memory.desktop.Windows().Send(Window().hWnd(), 523, 0, 0);
    EXPECT_EQ(V(), 35) << "another message";
}

TEST_F(WindowTest, TheWheelGoesOnToTheWindow) {
    Start(1);
    std::int32_t uMsg = 522;
    std::intptr_t wParam = 0;
    std::intptr_t lParam = 0;
    std::intptr_t retVal = 0;
    Window().Msg_Before(uMsg, wParam, lParam, retVal);
    EXPECT_EQ(uMsg, 522);
}

// The size of the window

TEST_F(WindowTest, ResizingPlacesTheBars) {
    Start(1);
    Window().UserResize(15000, 12000);
    EXPECT_EQ(Window().Line1.X2(), 15000);
    EXPECT_EQ(Window().Line2.X2(), 15000);
    EXPECT_EQ(Window().ToolbarContainer.Width(), 15000);
    const double bar = Window().StatusBar.Height();
    EXPECT_EQ(Window().pictVScroll.Width(), 270);
    EXPECT_EQ(Window().pictVScroll.Left(), 15000 - 270 - 115);
    EXPECT_EQ(Window().pictVScroll.Top(), 675);
    EXPECT_EQ(Window().pictVScroll.Height(), 12000 - 675 - 675 - bar - 90);
    EXPECT_EQ(Window().pictHScroll.Left(), 0);
    EXPECT_EQ(Window().pictHScroll.Width(), 15000 - 270 - 135);
    EXPECT_EQ(Window().pictHScroll.Top(), 12000 - 675 - bar - 255 - 90);
    EXPECT_EQ(Window().HScroll.Width(), Window().pictHScroll.Width());
    EXPECT_EQ(Window().VScroll.Top(), 0);
    EXPECT_EQ(Window().VScroll.Height(), Window().pictVScroll.Height() - 240 - 240 - 45);
    EXPECT_EQ(Window().cmdUp.Top(), Window().VScroll.Height() + 15);
    EXPECT_EQ(Window().cmdDown.Top(), Window().cmdUp.Top() + 240 + 30);
    EXPECT_EQ(Window().Line5.Y1(), Window().cmdDown.Top() + 240 + 675 + 15);
    EXPECT_EQ(Window().Line5.Y2(), Window().Line5.Y1());
    EXPECT_EQ(Window().Line5.X2(), 15000);
}

TEST_F(WindowTest, ResizingLeavesTravelAndPageAsTheyWere) {
    Start(1);
    Window().VScroll.SetValue(50);
    const double top = Window().pictPageContainer.Top();
    Window().UserResize(9000, 5000);
    EXPECT_EQ(Window().lScrollSpanY, 8558);
    EXPECT_EQ(Window().lScrollSpanX, 7056);
    EXPECT_EQ(Window().pictPageContainer.Top(), top);
    EXPECT_FALSE(Window().blnHScroll);
}

TEST_F(WindowTest, ThePanelsHaveTheWidthsOfTheLastStep) {
    Start(1);
    EXPECT_EQ(Window().StatusBar.Panel(1).Width, 3000);
    EXPECT_EQ(Window().StatusBar.Panel(2).Width, 19200);
}

TEST_F(WindowTest, ATinyWindowKeepsTheSizesThatItCannotTake) {
    Start(1);
    const double height = Window().pictVScroll.Height();
    const double barHeight = Window().VScroll.Height();
    Window().UserResize(100, 100);
    EXPECT_EQ(Window().ToolbarContainer.Width(), 100);
    EXPECT_EQ(Window().pictVScroll.Height(), height);
    EXPECT_EQ(Window().VScroll.Height(), barHeight);
    EXPECT_EQ(Window().pictHScroll.Width(), 19200 - 270 - 135) << "refused: it would be below 0";
    EXPECT_EQ(Window().pictVScroll.Left(), 100 - 270 - 115) << "a place may be anywhere";
}

// Leaving

TEST_F(WindowTest, TheCloseBoxLeavesTheWishAsItWas) {
    InstallPrinter();
    Show(1, [this] { Window().UserClose(); });
    EXPECT_FALSE(state.PrintAfterPreview);
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
}

struct WayOut {
    const char* name;
    std::function<void(frmPrintPreview&)> leave;
    bool print;
};

class LeaveTest : public PreviewTest, public testing::WithParamInterface<WayOut> {};

TEST_P(LeaveTest, EndsTheModalShowing) {
    InstallPrinter();
    Show(2, [this] {
        state.PrintAfterPreview = !GetParam().print;
        GetParam().leave(Window());
        EXPECT_FALSE(Window().Visible());
        EXPECT_EQ(Ghost().ThisPage.size(), 1U) << "the pages are let go";
    });
    EXPECT_EQ(state.PrintAfterPreview, GetParam().print);
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
    EXPECT_THAT(session.OpenForms(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    WaysOut, LeaveTest,
    testing::Values(
        WayOut{"ToolbarPrint", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(1); }, true},
        WayOut{"ToolbarClose", [](frmPrintPreview& f) { f.Toolbar.UserClickButton(8); }, false},
        WayOut{"MenuPrint", [](frmPrintPreview& f) { f.SSActiveToolBars.UserChoose("ID_Afdrukken"); }, true},
        WayOut{"MenuClose", [](frmPrintPreview& f) { f.SSActiveToolBars.UserChoose("ID_Sluiten"); }, false},
        WayOut{"Escape", [](frmPrintPreview& f) { f.UserKey(key::Escape); }, false}),
    [](const auto& row) { return row.param.name; });

TEST_F(WindowTest, TheMenuHasTwoToolsAndASeparator) {
    Start(1);
    const std::vector<forms::Menu>& menus = Window().SSActiveToolBars.Menus();
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(menus[0].Id, "ID_Overzicht");
    EXPECT_EQ(menus[0].Caption, "&Overzicht");
    ASSERT_EQ(menus[0].Tools.size(), 3U);
    EXPECT_EQ(menus[0].Tools[0].Caption, "Afdrukken");
    EXPECT_TRUE(menus[0].Tools[1].Separator);
    EXPECT_EQ(menus[0].Tools[2].Caption, "&Afdrukvoorbeeld sluiten");
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
