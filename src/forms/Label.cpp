#include "forms/Label.h"

#include "forms/AccessKeys.h"

namespace forms {

std::string Label::ShownCaption() const {
    const bool leadsNowhere = useMnemonic_ && AccessKeyTarget(*this) == nullptr;
    return leadsNowhere ? WithoutAccessKey(Caption()) : Caption();
}

void Label::SetBelow(const OptionButton& option) {
    below_ = &option;
    Changed(Aspect::Geometry);
}

void Label::SetBehind(Label& label) {
    behind_ = &label;
    label.continued_ = true;
    Changed(Aspect::Geometry);
    label.Changed(Aspect::Geometry);
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
