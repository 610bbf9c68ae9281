#include "preview/frmPrintPreview.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"
#include "base/Resume.h"
#include "base/Text.h"
#include "forms/Desktop.h"
#include "machine/Printer.h"
#include "preview/frmPrintPreviewGhost.h"

namespace preview {

namespace {

enum ToolbarButton : int {
    ButtonPrint = 1,
    ButtonFirst = 3,
    ButtonPrevious = 4,
    ButtonNext = 5,
    ButtonLast = 6,
    ButtonClose = 8,
};

constexpr int ScrollStart = 0;
constexpr int ScrollEnd = 100;

/// Where the page stands at the start of the scroll range, and its shadow; twips.
constexpr double PageAtStart = 1020;
constexpr double ShadowAtStart = 1050;

constexpr forms::Colour GripColour = forms::colour::Rgb(160, 152, 135);

/// How far the page has moved at a scroll position, twips. Rounded from the far end, ties to even.
double ShiftAt(int value, std::int32_t span) {
    return span - base::ToInt32((1 - value / 100.0) * span);
}

std::int16_t HighWord(std::intptr_t value) {
    return static_cast<std::int16_t>(value >> 16);
}

} // namespace

frmPrintPreview::frmPrintPreview(forms::Session& session, machine::Platform& platform, state::AppState& state,
                                 frmPrintPreviewGhost& ghost)
    : Form(session, "frmPrintPreview"), pictShadow(*this, "pictShadow"),
      pictPageContainer(*this, "pictPageContainer"),
      pictCurrentPage(*this, "pictCurrentPage", forms::Control::NoIndex, &pictPageContainer),
      pictHScroll(*this, "pictHScroll"), HScroll(*this, "HScroll", forms::ScrollBar::Direction::Horizontal,
                                                 ScrollStart, ScrollEnd, &pictHScroll),
      pictEdge(*this, "pictEdge"), pictVScroll(*this, "pictVScroll"),
      VScroll(*this, "VScroll", forms::ScrollBar::Direction::Vertical, ScrollStart, ScrollEnd, &pictVScroll),
      cmdUp(*this, "cmdUp", &pictVScroll), cmdDown(*this, "cmdDown", &pictVScroll), Line5(*this, "Line5"),
      ToolbarContainer(*this, "ToolbarContainer"),
      Line1(*this, "Line1", forms::Control::NoIndex, &ToolbarContainer),
      Line2(*this, "Line2", forms::Control::NoIndex, &ToolbarContainer),
      pictMoveToolbar(*this, "pictMoveToolbar", forms::Control::NoIndex, &ToolbarContainer),
      ToolbarLine(*this, "ToolbarLine", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}, &pictMoveToolbar),
      Toolbar(*this, "Toolbar", &ToolbarContainer), StatusBar(*this, "StatusBar", 2),
      SSActiveToolBars(*this, "SSActiveToolBars"), mnu1(*this, "mnu1"),
      mnuItems(*this, "mnuItems", {0, 1, 2}, &mnu1), platform_(platform), state_(state), ghost_(ghost) {
    LayOut();
    Toolbar.OnButtonClick = [this](int number) { ToolbarClick(number); };
    SSActiveToolBars.OnToolClick = [this](const std::string& id) { MenuClick(id); };
    cmdUp.Click = [this] { cmdUpClick(); };
    cmdDown.Click = [this] { cmdDownClick(); };
    VScroll.OnChange = [this] { VScrollChange(); };
    HScroll.OnChange = [this] { HScrollChange(); };
}

void frmPrintPreview::OnLoad() {
    Desktop().HourglassOn();
    Msg = std::make_unique<forms::MsgHook>(platform_.WindowProcedures);
    Msg->Before = [this](auto& uMsg, auto& wParam, auto& lParam, auto& retVal) {
        Msg_Before(uMsg, wParam, lParam, retVal);
    };
    Msg->Hook(hWnd(), {machine::WM_MOUSEWHEEL});

    const forms::ScreenArea workArea = Desktop().WorkArea();
    Move(workArea.Left, workArea.Top);
    Resize(workArea.Width, workArea.Height);
    SetTooltip();
    cmdUp.SetButtonStyle(1);
    cmdUp.SetToolTip(" Vorige pagina... ");
    cmdDown.SetButtonStyle(2);
    cmdDown.SetToolTip(" Volgende pagina... ");
    blnHScroll = false;
    if (platform_.Printers.Count() == 0) {
        Toolbar.SetButtonEnabled(ButtonPrint, false);
    }

    PlaceSheet();
    StatusBar.SetPanelWidth(1, 2000);
    StatusBar.SetPanelWidth(2, Width());

    iCurrentPage = 1;
    iTotalPages = base::Int16OfText(ghost_.Tag);
    SetButtons(iCurrentPage);
    HScroll.SetValue(ScrollStart);
    if (blnHScroll) {
        HScrollChange();
    }
    VScroll.SetValue(ScrollStart);
    pictCurrentPage.BringToFront();
    state_.PrintAfterPreview = false;
    Desktop().HourglassOff();
}

void frmPrintPreview::OnActivate() {
    for (const auto& [number, line] : ToolbarLine) {
        line->SetForeColor(GripColour);
    }
    Desktop().HourglassOff();
}

void frmPrintPreview::OnUnload() {
    Desktop().HourglassOn();
    ghost_.ClearPages();
    Desktop().Yield();
    Desktop().HourglassOff();
}

void frmPrintPreview::SetiTotalPages(std::int16_t Aantal) {
    iTotalPages = Aantal;
    StatusBar.SetPanelText(1, "Pagina: " + std::to_string(iCurrentPage));
    StatusBar.SetPanelText(2, "Totaal aantal pagina's : " + std::to_string(Aantal));
}

void frmPrintPreview::SetToolbarButtons(std::initializer_list<int> numbers, bool enabled) {
    for (const int number : numbers) {
        Toolbar.SetButtonEnabled(number, enabled);
    }
}

// Three tests, of which a later one overrides an earlier one.
void frmPrintPreview::SetButtons(std::int16_t WhichPage) {
    StatusBar.SetPanelText(1, "Pagina: " + std::to_string(iCurrentPage));

    const bool isFirst = WhichPage == 1;
    const bool isLast = WhichPage == iTotalPages;
    if (isLast) {
        cmdDown.SetEnabled(false);
        SetToolbarButtons({ButtonFirst, ButtonPrevious}, true);
    } else {
        cmdDown.SetEnabled(true);
        if (isFirst) {
            SetToolbarButtons({ButtonFirst, ButtonPrevious}, false);
        } else {
            SetToolbarButtons({ButtonFirst, ButtonPrevious, ButtonNext, ButtonLast}, true);
        }
    }

    if (isFirst) {
        cmdUp.SetEnabled(false);
        SetToolbarButtons({ButtonNext, ButtonLast}, true);
    } else {
        cmdUp.SetEnabled(true);
        if (isLast) {
            SetToolbarButtons({ButtonNext, ButtonLast}, false);
        }
    }

    if (iTotalPages == 0 || iTotalPages == 1) {
        cmdUp.SetEnabled(false);
        cmdDown.SetEnabled(false);
        SetToolbarButtons({ButtonFirst, ButtonPrevious, ButtonNext, ButtonLast}, false);
    }
}

void frmPrintPreview::SetTooltip() {
    if (platform_.Printers.Count() > 0) {
        const std::string name(base::text::Trim(platform_.Printer.DeviceName()));
        Toolbar.SetButtonToolTipText(ButtonPrint, "Afdrukken (" + name + ")");
    }
}

void frmPrintPreview::Msg_Before(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& /*lParam*/,
                                 std::intptr_t& /*retVal*/) {
    if (uMsg != machine::WM_MOUSEWHEEL) {
        return;
    }
    const int step = HighWord(wParam) >= 0 ? -VScroll.SmallChange() : VScroll.SmallChange();
    VScroll.SetValue(std::clamp(VScroll.Value() + step, VScroll.Min(), VScroll.Max()));
}

// Scrolling

void frmPrintPreview::VScrollChange() {
    const double shift = ShiftAt(VScroll.Value(), lScrollSpanY);
    pictPageContainer.SetTop(PageAtStart - shift);
    pictShadow.SetTop(ShadowAtStart - shift);
    base::Resume([this] { pictCurrentPage.Refresh(); });
}

void frmPrintPreview::HScrollChange() {
    const double shift = ShiftAt(HScroll.Value(), lScrollSpanX);
    pictPageContainer.SetLeft(PageAtStart - shift);
    pictShadow.SetLeft(ShadowAtStart - shift);
    base::Resume([this] { pictCurrentPage.Refresh(); });
}

void frmPrintPreview::ScrollToStart() {
    VScroll.SetValue(ScrollStart);
    HScroll.SetValue(ScrollStart);
}

// Turning pages and leaving

void frmPrintPreview::ToolbarClick(int number) {
    Desktop().HourglassOn();
    switch (number) {
    case ButtonPrint:
        Leave(true);
        break;
    case ButtonFirst:
        FirstPage();
        break;
    case ButtonPrevious:
        PreviousPage();
        break;
    case ButtonNext:
        NextPage();
        break;
    case ButtonLast:
        LastPage();
        break;
    case ButtonClose:
        Leave(false);
        break;
    default:
        break;
    }
    Desktop().HourglassOff();
}

void frmPrintPreview::MenuClick(const std::string& id) {
    Desktop().HourglassOn();
    if (id == "ID_Afdrukken") {
        Leave(true);
    } else if (id == "ID_Sluiten") {
        Leave(false);
    }
    Desktop().HourglassOff();
}

void frmPrintPreview::Leave(bool print) {
    state_.PrintAfterPreview = print;
    Unload();
}

void frmPrintPreview::ShowCurrentPage() {
    ghost_.DisplayOnScreen(iCurrentPage);
    ShowButtonsOfCurrentPage();
}

void frmPrintPreview::ShowButtonsOfCurrentPage() {
    SetButtons(iCurrentPage);
    pictCurrentPage.Refresh();
}

void frmPrintPreview::FirstPage() {
    ScrollToStart();
    ghost_.DisplayOnScreen(1);
    iCurrentPage = 1;
    ShowButtonsOfCurrentPage();
}

void frmPrintPreview::PreviousPage() {
    ScrollToStart();
    --iCurrentPage;
    ShowCurrentPage();
}

void frmPrintPreview::NextPage() {
    ScrollToStart();
    ++iCurrentPage;
    ShowCurrentPage();
}

void frmPrintPreview::LastPage() {
    ScrollToStart();
    ghost_.DisplayOnScreen(iTotalPages);
    iCurrentPage = iTotalPages;
    ShowButtonsOfCurrentPage();
}

// Page Down at the bottom goes on at the top of the next page; Page Up at the top stays at the top, and a
// click on the arrow keeps the position.
void frmPrintPreview::cmdDownClick() {
    VScroll.SetValue(ScrollStart);
    ++iCurrentPage;
    ShowCurrentPage();
}

void frmPrintPreview::cmdUpClick() {
    --iCurrentPage;
    ShowCurrentPage();
}

} // namespace preview
