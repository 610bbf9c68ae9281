#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A line of a menu, or the rule between two groups of lines. "&" in the caption marks the access key.
struct MenuTool {
    std::string Id;
    std::string Caption;
    bool Separator = false;
};

/// A menu of the bar, with its lines.
struct Menu {
    std::string Id;
    std::string Caption;
    std::vector<MenuTool> Tools;
};

/// The menus at the top of a form, above its own area. Tools are told apart by their id.
class MenuBar : public Control {
  public:
    MenuBar(Form& form, std::string name) : Control(form, std::move(name), NoIndex, nullptr) {}

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    /// The user has chosen the tool with this id.
    std::function<void(const std::string&)> OnToolClick;

    void AddMenu(Menu menu);
    const std::vector<Menu>& Menus() const { return menus_; }

    /// False if a user could not: no such tool, or a bar that is hidden or disabled.
    bool UserChoose(const std::string& id);

  private:
    std::vector<Menu> menus_;
};

} // namespace forms
