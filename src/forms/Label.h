#pragma once

#include "forms/CaptionedControl.h"
#include "forms/ControlVisitor.h"

namespace forms {

class OptionButton;

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

    // How wide a mark or a text is, a desktop knows alone. What stands in line with one moves to the place
    // where that begins or ends there; Left is what the design takes it for.

    /// The text begins where the caption of an option of the same container begins, and ends where it would
    /// anyway.
    void SetBelow(const OptionButton& option);
    const OptionButton* Below() const { return below_; }
    /// Goes on with the line of another label, which lasts as long as this one, one blank behind its text.
    void SetBehind(Label& label);
    const Label* Behind() const { return behind_; }
    /// True if another label goes on with the line of this one.
    bool IsContinued() const { return continued_; }

    std::string SpokenText() const override;
    /// Brings the focus to the control that follows.
    bool UserAccessKey() override;

  private:
    bool useMnemonic_ = true;
    const OptionButton* below_ = nullptr;
    const Label* behind_ = nullptr;
    bool continued_ = false;
};

} // namespace forms
