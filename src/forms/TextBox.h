#pragma once

#include <cstdint>
#include <functional>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// A box of one line that the user types in. Lengths and positions count characters.
class TextBox : public Control {
  public:
    using Control::Control;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;
    /// The text is another one, whoever has changed it.
    std::function<void()> OnChange;
    /// A typed character by its code in the machine's code page; a handler that makes it 0 swallows it, any
    /// other change is what the box receives.
    std::function<void(std::int16_t& KeyAscii)> OnKeyPress;

    const std::string& Text() const { return text_; }
    /// The caret goes to the start, as when a program fills a box. What is beyond MaxLength is cut off.
    void SetText(const std::string& text);

    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void SetSelStart(int start) { Select(start, 0); }
    void SetSelLength(int length) { Select(selStart_, length); }
    void Select(int start, int length);
    void SelectAll();

    /// Of what is typed, pasted or set from now on; 0: no limit.
    int MaxLength() const { return maxLength_; }
    void SetMaxLength(int length) { maxLength_ = length; }
    /// Free for the form's own use: here the name of the key filter.
    const std::string& Tag() const { return tag_; }
    void SetTag(const std::string& tag) { tag_ = tag; }
    bool Locked() const { return locked_; }
    /// A locked box can be read and copied from, not changed by the user.
    void SetLocked(bool locked);

    bool IsNamedByLabel() const override { return true; }
    bool TakesFocus() const override { return true; }
    void GotFocus() override;
    void LostFocus() override;

    /// Puts a typed character (8 is Backspace) at the caret in place of the selection, through OnKeyPress.
    bool TypeKey(char32_t character) override;
    /// The arrows up and down step the number of a box that has an UpDown; the form does not see these.
    bool UserKey(int virtualKey, bool shift) override;
    bool UserClick() override;

    /// The toolkit's own editing (paste, cut, delete, input method) has left this text and selection. No more
    /// than MaxLength characters are taken. True if the text was taken as it is.
    bool UserEdit(const std::string& text, int selStart, int selLength);
    /// The user has moved the caret or the selection.
    void UserSelect(int start, int length);

  private:
    /// As much of a text as the box takes.
    std::string Fitting(const std::string& text) const;
    void ReplaceSelection(const std::string& with);
    void TellChange();

    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
    int maxLength_ = 0;
    bool locked_ = false;
    std::string tag_;
};

} // namespace forms
