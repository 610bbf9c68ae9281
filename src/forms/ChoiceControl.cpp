#include "forms/ChoiceControl.h"

#include "base/RuntimeError.h"
#include "forms/Form.h"

namespace forms {

const ChoiceControl::Entry& ChoiceControl::At(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw base::RuntimeError(base::ErrorInvalidPropertyValue, "Invalid property array index");
    }
    return items_[static_cast<std::size_t>(index)];
}

void ChoiceControl::AddItem(const std::string& text, std::int32_t itemData) {
    items_.push_back({text, itemData});
    Changed(Aspect::Items);
}

void ChoiceControl::Clear() {
    items_.clear();
    listIndex_ = -1;
    Changed(Aspect::Items);
}

const std::string& ChoiceControl::List(int index) const {
    return At(index).Text;
}

std::int32_t ChoiceControl::ItemData(int index) const {
    return At(index).ItemData;
}

void ChoiceControl::SetListIndex(int index) {
    if (index != -1) {
        At(index);
    }
    if (index != listIndex_) {
        listIndex_ = index;
        Changed(Aspect::Value);
    }
    if (index != -1 && OnClick) {
        OnClick();
    }
}

const std::string& ChoiceControl::Text() const {
    static const std::string none;
    return listIndex_ == -1 ? none : At(listIndex_).Text;
}

bool ChoiceControl::UserClick() {
    if (!CanFocus()) {
        return false;
    }
    Owner().MoveFocus(*this);
    return true;
}

bool ChoiceControl::UserPick(int index) {
    if (!CanFocus() || index < 0 || index >= ListCount()) {
        return false;
    }
    if (Owner().MoveFocus(*this)) {
        Owner().Dispatch([&] { SetListIndex(index); });
    }
    return true;
}

} // namespace forms
