#include "forms/MenuBar.h"

#include <algorithm>
#include <utility>

#include "forms/Form.h"

namespace forms {

void MenuBar::AddMenu(Menu menu) {
    menus_.push_back(std::move(menu));
    Changed(Aspect::Items);
}

bool MenuBar::UserChoose(const std::string& id) {
    const auto holds = [&id](const Menu& menu) {
        return std::any_of(menu.Tools.begin(), menu.Tools.end(),
                           [&id](const MenuTool& tool) { return !tool.Separator && tool.Id == id; });
    };
    if (!TakesMouse() || std::none_of(menus_.begin(), menus_.end(), holds)) {
        return false;
    }
    if (OnToolClick) {
        Owner().Dispatch([&] { OnToolClick(id); });
    }
    return true;
}

} // namespace forms
