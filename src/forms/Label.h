#pragma once

#include "forms/Control.h"

namespace forms {

/// A text that the user reads. Long texts wrap within the label's width. "&" marks the access key of the
/// control that follows in the tab order, unless UseMnemonic is off.
class Label : public Control {
  public:
    Label(Form& form, std::string name, int index = NoIndex, Control* container = nullptr)
        : Control(form, ControlKind::Label, std::move(name), index, container) {}

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption) {
        if (caption != caption_) {
            caption_ = caption;
            Changed(Aspect::Caption);
        }
    }

    bool UseMnemonic() const { return useMnemonic_; }
    void SetUseMnemonic(bool use) { useMnemonic_ = use; }

  private:
    std::string caption_;
    bool useMnemonic_ = true;
};

} // namespace forms
