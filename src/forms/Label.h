#pragma once

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A text that the user reads. Long texts wrap within the label's width. "&" marks the access key of the
/// control that follows in the tab order, unless UseMnemonic is off.
class Label : public CaptionedControl {
  public:
    using CaptionedControl::CaptionedControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    bool UseMnemonic() const { return useMnemonic_; }
    void SetUseMnemonic(bool use) { useMnemonic_ = use; }

    /// The caption as it is drawn: a mark that leads to no control is left out.
    std::string ShownCaption() const;

    /// Twips of a line of the design's font.
    static constexpr double LineHeight = 240;
    /// True for a label that has room for no second line.
    bool HasOneLine() const { return Height() < 2 * LineHeight; }
    double FirstLineHeight() const { return HasOneLine() ? Height() : LineHeight; }

    std::string SpokenText() const override;
    /// Brings the focus to the control that follows.
    bool UserAccessKey() override;

  private:
    bool useMnemonic_ = true;
};

} // namespace forms
