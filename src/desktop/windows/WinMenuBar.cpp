#include "desktop/windows/ControlIds.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinControl.h"
#include "desktop/windows/WinControls.h"
#include "desktop/windows/WinForm.h"
#include "forms/MenuBar.h"

namespace desktop::windows {

namespace {

/// The menu in the frame of the form's window.
class WinMenuBar final : public WinControl {
  public:
    WinMenuBar(forms::MenuBar& control, WinForm& form, const WindowPlace& place);

    /// The user has chosen the line with this command; see ControlIds.h.
    void Commanded(int id, UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;

  private:
    forms::MenuBar& model_;
};

WinMenuBar::WinMenuBar(forms::MenuBar& control, WinForm& form, const WindowPlace& place)
    : WinControl(control, form, place, nullptr), model_(control) {}

void WinMenuBar::MirrorContent(forms::Aspect aspect) {
    if (aspect != forms::Aspect::Items || model_.Menus().empty()) {
        return;
    }
    HMENU bar = ::CreateMenu();
    UINT command = FirstMenuLine;
    for (const forms::Menu& menu : model_.Menus()) {
        HMENU lines = ::CreatePopupMenu();
        for (const forms::MenuTool& tool : menu.Tools) {
            ::AppendMenuW(lines, tool.Separator ? MF_SEPARATOR : MF_STRING, command,
                          ToWide(tool.Caption).c_str());
            ++command;
        }
        ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(lines), ToWide(menu.Caption).c_str());
    }
    HMENU before = ::GetMenu(Form().Window());
    ::SetMenu(Form().Window(), bar); // from now on the window owns it
    ::DestroyMenu(before);
}

void WinMenuBar::Commanded(int id, UINT /*code*/) {
    int line = FirstMenuLine;
    for (const forms::Menu& menu : model_.Menus()) {
        for (const forms::MenuTool& tool : menu.Tools) {
            if (line == id) {
                model_.UserChoose(tool.Id);
                return;
            }
            ++line;
        }
    }
}

} // namespace

std::unique_ptr<WinControl> MakeMenuBar(forms::MenuBar& control, WinForm& form, const WindowPlace& place) {
    return std::make_unique<WinMenuBar>(control, form, place);
}

} // namespace desktop::windows
