#pragma once

#include <string>

#include "platform/forms/Control.h"

namespace forms {

/// A picture, a plain area of colour, or the container of other controls.
class PictureBox : public Control {
  public:
    PictureBox(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::PictureBox, std::move(name), index, container) {}

    /// Name of the picture among the program's own ("printer", "sheet-portrait"); empty for none.
    const std::string& Picture() const { return picture_; }
    void SetPicture(const std::string& name) {
        if (name != picture_) {
            picture_ = name;
            Changed(Aspect::Picture);
        }
    }

  private:
    std::string picture_;
};

} // namespace forms
