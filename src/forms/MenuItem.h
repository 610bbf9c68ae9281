#pragma once

#include <string>
#include <utility>

#include "forms/Control.h"

namespace forms {

/// A menu of the design, or a line of one, which other code can ask for by its name. "&" in the caption marks
/// the access key; "-" is the rule between two groups of lines. The user never sees it: what a form shows is
/// its MenuBar.
class MenuItem : public Control {
  public:
    MenuItem(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::MenuItem, std::move(name), index, container) {}

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption) { caption_ = caption; }

  private:
    std::string caption_;
};

} // namespace forms
