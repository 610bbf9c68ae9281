#include "desktop/windows/WinMenuBar.h"

#include "desktop/windows/ControlIds.h"
#include "desktop/windows/WideText.h"
#include "desktop/windows/WinForm.h"

namespace desktop::windows {

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

void WinMenuBar::Choose(int command) {
    int line = FirstMenuLine;
    for (const forms::Menu& menu : model_.Menus()) {
        for (const forms::MenuTool& tool : menu.Tools) {
            if (line == command) {
                model_.UserChoose(tool.Id);
                return;
            }
            ++line;
        }
    }
}

} // namespace desktop::windows
