#include "forms/Label.h"

#include "forms/AccessKeys.h"

namespace forms {

std::string Label::ShownCaption() const {
    const bool leadsNowhere = useMnemonic_ && AccessKeyTarget(*this) == nullptr;
    return leadsNowhere ? WithoutAccessKey(Caption()) : Caption();
}

std::string Label::SpokenText() const {
    return useMnemonic_ ? CaptionedControl::SpokenText() : Caption();
}

bool Label::UserAccessKey() {
    Control* target = AccessKeyTarget(*this);
    if (target == nullptr || !target->CanFocus()) {
        return false;
    }
    target->SetFocus();
    return true;
}

} // namespace forms
