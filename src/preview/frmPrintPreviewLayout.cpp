// How the preview window looks. Lengths are twips; a place within a container counts from its corner.
#include <cmath>

#include "base/Numbers.h"
#include "machine/Printer.h"
#include "preview/frmPrintPreview.h"

namespace preview {

namespace {

constexpr double StatusBarHeight = 330;
constexpr int SmallChange = 15;
constexpr int LargeChange = 50;

/// The sheet around the page: white margins, the page's place in them, and the shadow beside and below.
constexpr double SheetMargins = 240;
constexpr double PageLeft = 120;
constexpr double PageTop = 60;
constexpr double PageReserve = 1.1; // the part beyond the sheet stays hidden behind its lower edge
constexpr double ShadowOffset = 30;
constexpr double ShadowExcess = 15;

/// What of the window never shows the page, and where the page begins.
constexpr double WindowReserve = 1500;
constexpr double ScrollSpanBase = 1020;

// A size below 0 is refused: the control keeps the one that it has, and what is placed after it builds on
// that.
void SetWidth(forms::Control& control, double width) {
    if (width >= 0) {
        control.SetWidth(width);
    }
}

void SetHeight(forms::Control& control, double height) {
    if (height >= 0) {
        control.SetHeight(height);
    }
}

std::int32_t ScrollSpan(double window, double sheet) {
    return base::ToInt32(std::abs(window - sheet - WindowReserve) + ScrollSpanBase);
}

} // namespace

void frmPrintPreview::LayOut() {
    SetCaption("Afdrukvoorbeeld");
    SetResizable(true);
    SetBackColor(forms::colour::AppWorkspace);

    pictShadow.Move(3060, 1500, 915, 1515);
    pictShadow.SetBackColor(forms::colour::DarkShadow);
    pictPageContainer.Move(2160, 1020, 1755, 1935);
    pictPageContainer.SetVisible(false);
    pictCurrentPage.Move(60, 60, 1635, 1815);
    pictCurrentPage.SetAccessibleName("Pagina");

    for (forms::ScrollBar* bar : {&HScroll, &VScroll}) {
        bar->SetSmallChange(SmallChange);
        bar->SetLargeChange(LargeChange);
    }
    pictHScroll.Move(60, 4260, 6615, 255);
    pictHScroll.SetVisible(false);
    pictHScroll.SetBackColor(forms::colour::ButtonFace);
    HScroll.Move(0, 0, 6555, 255);
    HScroll.SetAccessibleName("Horizontaal schuiven");
    pictEdge.SetBackColor(forms::colour::ButtonFace);
    pictVScroll.Move(7020, 720, 315, 3615);
    pictVScroll.SetBackColor(forms::colour::ButtonFace);
    VScroll.Move(0, 180, 255, 2535);
    VScroll.SetAccessibleName("Verticaal schuiven");
    cmdUp.SetAccessibleName("Vorige pagina");
    cmdDown.SetAccessibleName("Volgende pagina");
    Line5.SetEnds(0, 4335, 7335, 4335);
    Line5.SetForeColor(forms::colour::ButtonShadow);

    ToolbarContainer.Move(0, 0, 9930, 675);
    ToolbarContainer.SetBackColor(forms::colour::ButtonFace);
    Line2.SetEnds(0, 645, 9930, 645);
    Line2.SetForeColor(forms::colour::ButtonShadow);
    Line1.SetEnds(0, 660, 9930, 660);
    Line1.SetForeColor(forms::colour::WindowBackground);
    pictMoveToolbar.Move(60, 120, 75, 465);
    constexpr double gripLineGap = 30;
    for (const auto& [number, line] : ToolbarLine) {
        line->SetEnds(0, number * gripLineGap + gripLineGap, 60, number * gripLineGap + gripLineGap);
    }
    Toolbar.Move(180, 60, 4635, 570);
    Toolbar.SetAccessibleName("Werkbalk");
    FillToolbar();

    StatusBar.Move(0, 0, 0, StatusBarHeight);
    StatusBar.SetAccessibleName("Statusbalk");
    StatusBar.SetBackColor(forms::colour::ButtonFace);
    FillMenu();
}

void frmPrintPreview::FillToolbar() {
    // Images 1 to 5 are the navigation and the way out, image 6 prints.
    struct Row {
        int Image; // 0: a separator
        const char* ToolTip;
        const char* AccessibleName;
    };
    constexpr Row rows[] = {
        {6, "Afdrukken...", ""},
        {0, "", ""},
        {1, " Eerste pagina ", ""},
        {2, " Vorige pagina ", ""},
        {3, " Volgende pagina ", ""},
        {4, " Laatste pagina ", ""},
        {0, "", ""},
        {5, "", "Afdrukvoorbeeld sluiten"},
    };
    for (const Row& row : rows) {
        forms::ToolbarButton button;
        button.Separator = row.Image == 0;
        if (!button.Separator) {
            button.Image = "imgToolbarNormal-" + std::to_string(row.Image);
            button.HotImage = "imgToolbarHot-" + std::to_string(row.Image);
        }
        button.ToolTipText = row.ToolTip;
        button.AccessibleName = row.AccessibleName;
        Toolbar.AddButton(button);
    }
}

void frmPrintPreview::FillMenu() {
    SSActiveToolBars.SetAccessibleName("Menubalk");
    SSActiveToolBars.AddMenu({"ID_Overzicht",
                              "&Overzicht",
                              {{"ID_Afdrukken", "Afdrukken", false},
                               {"", "", true},
                               {"ID_Sluiten", "&Afdrukvoorbeeld sluiten", false}}});
    mnu1.SetCaption("&Overzicht");
    mnu1.SetVisible(false);
    mnuItems(0).SetCaption("Af&drukken...");
    mnuItems(1).SetCaption("-");
    mnuItems(2).SetCaption("Afdrukvoorbeeld &Afsluiten");
}

// The sheet at the size of the printer's, in the middle of the window.
void frmPrintPreview::PlaceSheet() {
    machine::Printer& printer = platform_.Printer;
    const double printableWidth = printer.ScaleWidth();
    const double sheetHeight = printer.Height();

    pictPageContainer.SetBackColor(forms::colour::Rgb(255, 255, 255));
    pictPageContainer.SetWidth(printableWidth + SheetMargins);
    pictPageContainer.SetLeft(Width() / 2 - pictPageContainer.Width() / 2 - pictVScroll.Width());
    pictPageContainer.SetHeight(sheetHeight);
    pictPageContainer.SetVisible(true);

    pictCurrentPage.SetBackColor(forms::colour::Rgb(255, 255, 255));
    pictCurrentPage.Move(PageLeft, PageTop, printableWidth, sheetHeight * PageReserve);
    pictCurrentPage.SetVisible(true);

    lScrollSpanY = ScrollSpan(Height(), pictPageContainer.Height());
    lScrollSpanX = ScrollSpan(Width(), pictPageContainer.Width());

    pictShadow.Move(pictPageContainer.Left() + ShadowOffset, pictPageContainer.Top() + ShadowOffset,
                    pictPageContainer.Width() + ShadowExcess, pictPageContainer.Height() + ShadowExcess);
    if (pictShadow.Left() < 0) {
        HScroll.SetEnabled(true);
        pictHScroll.SetVisible(true);
        blnHScroll = true;
    }
}

void frmPrintPreview::OnResize() {
    Line1.SetX2(Width());
    Line2.SetX2(Width());
    SetWidth(ToolbarContainer, Width());

    SetWidth(pictVScroll, VScroll.Width() + 15);
    pictVScroll.SetLeft(Width() - pictVScroll.Width() - 115);
    pictVScroll.SetTop(ToolbarContainer.Height() + ToolbarContainer.Top());
    SetHeight(pictVScroll,
              Height() - pictVScroll.Top() - ToolbarContainer.Height() - StatusBar.Height() - 90);

    pictEdge.Move(pictVScroll.Left(), pictVScroll.Top(), Width(), Height());

    pictHScroll.SetLeft(0);
    SetWidth(pictHScroll, Width() - pictVScroll.Width() - 135);
    pictHScroll.SetTop(Height() - ToolbarContainer.Height() - StatusBar.Height() - pictHScroll.Height() - 90);
    SetWidth(HScroll, pictHScroll.Width());

    StatusBar.SetPanelWidth(1, 3000);
    StatusBar.SetPanelWidth(2, Width());

    VScroll.SetLeft(0);
    VScroll.SetTop(0);
    SetHeight(VScroll, pictVScroll.Height() - cmdUp.Height() - cmdDown.Height() - 45);
    cmdUp.SetTop(VScroll.Height() + VScroll.Top() + 15);
    cmdDown.SetTop(cmdUp.Top() + cmdUp.Height() + 30);

    const double below =
        cmdDown.Top() + cmdDown.Height() + ToolbarContainer.Height() + ToolbarContainer.Top() + 15;
    Line5.SetEnds(Line5.X1(), below, Width(), below);
    StatusBar.SetFormEnd(below);
    Line5.BringToFront();
}

} // namespace preview
