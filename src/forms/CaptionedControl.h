#pragma once

#include <string>

#include "forms/Control.h"

namespace forms {

/// A control with a caption. "&" in it marks the access key; "&&" is a plain "&".
class CaptionedControl : public Control {
  public:
    using Control::Control;

    const std::string& Caption() const { return caption_; }
    void SetCaption(const std::string& caption);

    std::string SpokenText() const override;
    std::string AccessKey() const override;

  private:
    std::string caption_;
};

} // namespace forms
