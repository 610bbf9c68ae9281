#include "forms/CaptionedControl.h"

#include "forms/AccessKeys.h"

namespace forms {

void CaptionedControl::SetCaption(const std::string& caption) {
    if (caption != caption_) {
        caption_ = caption;
        Changed(Aspect::Caption);
    }
}

std::string CaptionedControl::SpokenText() const {
    return WithoutAccessKey(caption_);
}

std::string CaptionedControl::AccessKey() const {
    return MarkedKey(caption_);
}

} // namespace forms
