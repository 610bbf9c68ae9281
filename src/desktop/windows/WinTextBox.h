#pragma once

#include "desktop/windows/WinControl.h"
#include "forms/TextBox.h"

namespace desktop::windows {

/// A typed character goes to the form's box, which filters and limits it; pasting, cutting and the like are
/// the window's own, and the form's box is told what came of it.
class WinTextBox final : public WinControl {
  public:
    WinTextBox(forms::TextBox& control, WinForm& form, const WindowPlace& place);

    void TakeFocus() override;
    bool KeyPressed(int virtualKey, bool shift) override;
    void Notified(UINT code) override;

  protected:
    void MirrorContent(forms::Aspect aspect) override;
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    struct Selection {
        int Start;
        int End;
    };

    std::wstring Text() const;
    Selection Selected() const;
    void ShowText();
    void ShowSelection();
    void TellEdit();
    void TellSelection();
    /// A unit of a typed character. False if the box has no use for it and the window may.
    bool Type(wchar_t unit);
    bool TypeRepeatedly(wchar_t unit, int times);
    void TypeCharacter(char32_t character);
    LRESULT TextSet(LPARAM text);

    // The window would write at the top of a box that is higher than its line.
    void CentreLine(RECT& inside) const;
    void PaintAroundLine();

    forms::TextBox& model_;
    wchar_t highHalf_ = 0; // of a character whose other half is still to come
    bool typing_ = false;
};

} // namespace desktop::windows
