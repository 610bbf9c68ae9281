// The keyboard of the preview window. The bars are asked whether they are enabled, and they always are: the
// keys move the page also where the horizontal bar is hidden.
#include <algorithm>
#include <iterator>

#include "forms/Desktop.h"
#include "preview/frmPrintPreview.h"

namespace preview {

namespace {

constexpr int PageStep = 25;
constexpr int LineStep = 10;

/// Moves a bar by a part of its range, as far as its end.
void Step(forms::ScrollBar& bar, int step) {
    if (bar.Enabled()) {
        bar.SetValue(std::clamp(bar.Value() + step, bar.Min(), bar.Max()));
    }
}

void ToStart(forms::ScrollBar& bar) {
    Step(bar, bar.Min() - bar.Max());
}

void ToEnd(forms::ScrollBar& bar) {
    Step(bar, bar.Max() - bar.Min());
}

} // namespace

struct frmPrintPreview::KeyAction {
    int Key;
    void (*Run)(frmPrintPreview& form);
};

const frmPrintPreview::KeyAction frmPrintPreview::KeyActions[] = {
    {forms::key::PageUp, [](frmPrintPreview& form) { form.PageUp(); }},
    {forms::key::PageDown, [](frmPrintPreview& form) { form.PageDown(); }},
    {forms::key::End,
     [](frmPrintPreview& form) {
         ToEnd(form.VScroll);
         ToEnd(form.HScroll);
     }},
    {forms::key::Home,
     [](frmPrintPreview& form) {
         ToStart(form.VScroll);
         ToStart(form.HScroll);
     }},
    {forms::key::Left, [](frmPrintPreview& form) { Step(form.HScroll, -LineStep); }},
    {forms::key::Up, [](frmPrintPreview& form) { Step(form.VScroll, -LineStep); }},
    {forms::key::Right, [](frmPrintPreview& form) { Step(form.HScroll, LineStep); }},
    {forms::key::Down, [](frmPrintPreview& form) { Step(form.VScroll, LineStep); }},
    {forms::key::Escape, [](frmPrintPreview& form) { form.Leave(false); }},
};

void frmPrintPreview::OnKeyDown(int& virtualKey) {
    const auto found = std::find_if(std::begin(KeyActions), std::end(KeyActions),
                                    [&](const KeyAction& action) { return action.Key == virtualKey; });
    if (found != std::end(KeyActions)) {
        found->Run(*this);
    }
}

void frmPrintPreview::PageUp() {
    if (VScroll.Value() != VScroll.Min()) {
        Step(VScroll, -PageStep);
    } else if (VScroll.Enabled() && cmdUp.Enabled()) {
        cmdUpClick();
    }
}

void frmPrintPreview::PageDown() {
    if (VScroll.Value() != VScroll.Max()) {
        Step(VScroll, PageStep);
    } else if (VScroll.Enabled() && cmdDown.Enabled()) {
        cmdDownClick();
    }
}

} // namespace preview
