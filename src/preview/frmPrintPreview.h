#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Boolean.h"
#include "forms/ControlArray.h"
#include "forms/Form.h"
#include "forms/LineControl.h"
#include "forms/MenuBar.h"
#include "forms/MenuItem.h"
#include "forms/MsgHook.h"
#include "forms/PictureBox.h"
#include "forms/ScrollBar.h"
#include "forms/StatusBar.h"
#include "forms/Toolbar.h"
#include "forms/cmdButtonXP.h"
#include "machine/Platform.h"
#include "state/AppState.h"
#include "state/HandbookSections.h"

namespace preview {

class frmPrintPreviewGhost;

/// The window of a preview: the pages that frmPrintPreviewGhost holds, one at a time and at their true size,
/// on a white sheet with a shadow. It turns pages and scrolls; its one result is AppState.PrintAfterPreview,
/// set if the user wants the document on paper. One object serves one preview.
class frmPrintPreview : public forms::Form {
  public:
    frmPrintPreview(forms::Session& session, machine::Platform& platform, state::AppState& state,
                    frmPrintPreviewGhost& ghost);

    // In the order of depth: the sheet slides beneath the bars.
    forms::PictureBox pictShadow;
    forms::PictureBox pictPageContainer;
    forms::PictureBox pictCurrentPage;

    forms::PictureBox pictHScroll;
    forms::ScrollBar HScroll;
    /// Keeps the sheet out of the strip beside the vertical bar.
    forms::PictureBox pictEdge;
    forms::PictureBox pictVScroll;
    forms::ScrollBar VScroll;
    forms::cmdButtonXP cmdUp;
    forms::cmdButtonXP cmdDown;
    forms::LineControl Line5;

    forms::PictureBox ToolbarContainer;
    forms::LineControl Line1;
    forms::LineControl Line2;
    forms::PictureBox pictMoveToolbar;
    /// 0 to 13: the toolbar's grip.
    forms::ControlArray<forms::LineControl> ToolbarLine;
    forms::Toolbar Toolbar;

    /// Panel 1 the page on display, panel 2 the number of pages.
    forms::StatusBar StatusBar;
    forms::MenuBar SSActiveToolBars;
    /// Hidden, and without effect: the menu of the first design, which SSActiveToolBars has replaced.
    forms::MenuItem mnu1;
    /// 0 to 2.
    forms::ControlArray<forms::MenuItem> mnuItems;

    /// The page on display, from 1, and the pages on offer.
    std::int16_t iCurrentPage = 0;
    std::int16_t iTotalPages = 0;
    /// Travel of the page over a scroll range of 0 to 100, in twips.
    std::int32_t lScrollSpanY = 0;
    std::int32_t lScrollSpanX = 0;
    /// The sheet did not fit in the width when the window was loaded.
    base::Boolean blnHScroll;
    std::unique_ptr<forms::MsgHook> Msg;

    void SetiTotalPages(std::int16_t Aantal);
    /// Turns the navigation on and off for page `WhichPage`.
    void SetButtons(std::int16_t WhichPage);
    void SetTooltip();
    /// The mouse wheel.
    void Msg_Before(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam, std::intptr_t& retVal);

  protected:
    void OnLoad() override;
    void OnActivate() override;
    void OnResize() override;
    void OnKeyDown(int& virtualKey) override;
    void OnUnload() override;
    std::string HandbookSection() const override { return state::HandbookAnchor(Name()); }

  private:
    // The look: frmPrintPreviewLayout.cpp.
    void LayOut();
    void FillToolbar();
    void FillMenu();
    void PlaceSheet();

    // The keyboard: frmPrintPreviewKeys.cpp.
    void PageUp();
    void PageDown();
    struct KeyAction;
    static const KeyAction KeyActions[];

    // What it does: frmPrintPreview.cpp.
    void ToolbarClick(int number);
    void MenuClick(const std::string& id);
    void cmdUpClick();
    void cmdDownClick();
    void VScrollChange();
    void HScrollChange();

    void FirstPage();
    void PreviousPage();
    void NextPage();
    void LastPage();
    void ScrollToStart();
    void ShowCurrentPage();
    void ShowButtonsOfCurrentPage();
    void Leave(bool print);
    void SetToolbarButtons(std::initializer_list<int> numbers, bool enabled);

    machine::Platform& platform_;
    state::AppState& state_;
    frmPrintPreviewGhost& ghost_;
};

} // namespace preview
