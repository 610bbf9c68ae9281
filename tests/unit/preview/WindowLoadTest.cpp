#include "unit/preview/WindowFixture.h"

namespace preview {
namespace {

using testing::ElementsAre;

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
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
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
    state::AppState otherState;
    memory::MemoryPlatform bare;
    forms::Session bareSession(bare.desktop);
    composition::PrinterSurface barePrinter(bare.printer);
    PrintPreview barePreview(bareSession, bare.Services(), otherState, barePrinter);
    EXPECT_THROW(barePreview.OpenPreview(0), base::RuntimeError);
    EXPECT_THROW(barePreview.Window()->Load(), base::RuntimeError);
    EXPECT_FALSE(barePreview.Window()->Toolbar.Button(1).Enabled);
    EXPECT_EQ(barePreview.Window()->Toolbar.Button(1).ToolTipText, "Afdrukken...");
    EXPECT_TRUE(barePreview.Window()->SSActiveToolBars.UserChoose("ID_Afdrukken"));
    EXPECT_TRUE(otherState.PrintAfterPreview);
}

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

TEST_F(WindowTest, TheFirstDesignsMenuIsThereByNameAndHidden) {
    Start(1);
    EXPECT_FALSE(Window().mnu1.Visible());
    EXPECT_EQ(Window().mnu1.Caption(), "&Overzicht");
    EXPECT_EQ(Window().mnuItems(0).Caption(), "Af&drukken...");
    EXPECT_EQ(Window().mnuItems(1).Caption(), "-");
    EXPECT_EQ(Window().mnuItems(2).Caption(), "Afdrukvoorbeeld &Afsluiten");
    EXPECT_THROW(Window().mnuItems(3), base::RuntimeError);
}

} // namespace
} // namespace preview
