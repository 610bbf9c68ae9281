#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"

namespace forms {

/// What a list and a combo have in common: entries counted from 0, each with a number of its own, and at most
/// one of them selected. A selection made by the program acts as a click, as one made by the user does.
class ChoiceControl : public Control {
  public:
    using Control::Control;

    std::function<void()> OnClick;

    /// Adds an entry at the end, with its item data.
    void AddItem(const std::string& text, std::int32_t itemData = 0);
    void Clear();

    int ListCount() const { return static_cast<int>(items_.size()); }
    /// Text and item data of an entry; ErrorInvalidPropertyValue outside the list.
    const std::string& List(int index) const;
    std::int32_t ItemData(int index) const;

    /// -1: none. Selecting an entry acts as a click; selecting none does not. ErrorInvalidPropertyValue
    /// outside the list.
    int ListIndex() const { return listIndex_; }
    void SetListIndex(int index);

    /// Text of the selected entry, or the empty text.
    const std::string& Text() const;

    bool IsNamedByLabel() const override { return true; }
    bool TakesFocus() const override { return true; }
    bool UserClick() override;
    /// The user picks an entry: the focus comes here first, and the pick is lost if it does not stay. False
    /// if a user could not (hidden, disabled, no such entry).
    bool UserPick(int index);

  private:
    struct Entry {
        std::string Text;
        std::int32_t ItemData;
    };

    const Entry& At(int index) const;

    std::vector<Entry> items_;
    int listIndex_ = -1;
};

/// A list of entries, all on show.
class ListBox : public ChoiceControl {
  public:
    using ChoiceControl::ChoiceControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

/// A list that drops down; the user picks, and cannot type.
class ComboBox : public ChoiceControl {
  public:
    using ChoiceControl::ChoiceControl;

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

} // namespace forms
