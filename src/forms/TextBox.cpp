#include "forms/TextBox.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "forms/Desktop.h"
#include "forms/Form.h"
#include "forms/UpDown.h"

namespace forms {

namespace text = base::text;

namespace {

int CharCount(const std::string& s) {
    return static_cast<int>(text::Length(s));
}

std::size_t Count(int n) {
    return static_cast<std::size_t>(n);
}

} // namespace

std::string TextBox::Fitting(const std::string& text) const {
    return maxLength_ == 0 ? text : std::string(text::Left(text, Count(maxLength_)));
}

void TextBox::SetText(const std::string& newText) {
    const std::string fitting = Fitting(newText);
    if (fitting == text_) {
        return;
    }
    text_ = fitting;
    selStart_ = 0;
    selLength_ = 0;
    Changed(Aspect::Text);
    TellChange();
}

void TextBox::TellChange() {
    if (OnChange) {
        Owner().Dispatch(OnChange);
    }
}

void TextBox::Select(int start, int length) {
    const int count = CharCount(text_);
    const int newStart = std::clamp(start, 0, count);
    const int newLength = std::clamp(length, 0, count - newStart);
    if (newStart != selStart_ || newLength != selLength_) {
        selStart_ = newStart;
        selLength_ = newLength;
        Changed(Aspect::Selection);
    }
}

void TextBox::SelectAll() {
    Select(0, CharCount(text_));
}

void TextBox::GotFocus() {
    if (OnGotFocus) {
        Owner().Dispatch(OnGotFocus);
    }
}

void TextBox::LostFocus() {
    if (OnLostFocus) {
        Owner().Dispatch(OnLostFocus);
    }
}

void TextBox::ReplaceSelection(const std::string& with) {
    const std::string before(text::Left(text_, Count(selStart_)));
    const std::string after(text::Mid(text_, Count(selStart_ + selLength_) + 1));
    text_ = before + with + after;
    selStart_ += CharCount(with);
    selLength_ = 0;
    Changed(Aspect::Text);
    TellChange();
}

bool TextBox::TypeKey(char32_t character) {
    std::string typed = text::Encode(character);
    // A character outside the code page reaches the handler as a question mark, and the box as itself.
    const std::string coded = text::ToCodePage(typed);
    const auto original = static_cast<std::int16_t>(coded.empty() ? 0 : static_cast<unsigned char>(coded[0]));
    std::int16_t key = original;
    if (OnKeyPress) {
        Owner().Dispatch([&] { OnKeyPress(key); });
    }
    if (key == 0 || locked_) {
        return true;
    }
    if (key != original) {
        typed = text::FromCodePage(std::string(1, static_cast<char>(key)));
    }
    if (key == key::Backspace) {
        if (selLength_ == 0 && selStart_ > 0) {
            --selStart_;
            selLength_ = 1;
        }
        if (selLength_ > 0) {
            ReplaceSelection("");
        }
        return true;
    }
    if (key < 32) {
        return false;
    }
    if (maxLength_ == 0 || CharCount(text_) - selLength_ < maxLength_) {
        ReplaceSelection(typed);
    }
    return true;
}

void TextBox::SetLocked(bool locked) {
    if (locked != locked_) {
        locked_ = locked;
        Changed(Aspect::Enabled);
    }
}

bool TextBox::UserKey(int virtualKey, bool shift) {
    if (virtualKey == key::Up || virtualKey == key::Down) {
        if (UpDown* arrows = UpDown::Of(*this)) {
            arrows->UserStep(virtualKey == key::Up ? 1 : -1);
            return true;
        }
    }
    return Control::UserKey(virtualKey, shift);
}

bool TextBox::UserClick() {
    if (!CanFocus()) {
        return false;
    }
    Owner().MoveFocus(*this);
    return true;
}

bool TextBox::UserEdit(const std::string& newText, int selStart, int selLength) {
    const std::string before = std::exchange(text_, Fitting(newText));
    const bool fits = text_ == newText;
    const int count = CharCount(text_);
    selStart_ = std::clamp(selStart, 0, count);
    selLength_ = std::clamp(selLength, 0, count - selStart_);
    if (!fits) {
        Changed(Aspect::Text);
    }
    if (text_ != before) {
        TellChange();
    }
    return fits;
}

void TextBox::UserSelect(int start, int length) {
    const int count = CharCount(text_);
    selStart_ = std::clamp(start, 0, count);
    selLength_ = std::clamp(length, 0, count - selStart_);
}

} // namespace forms
