#include "forms/AccessKeys.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "forms/Form.h"
#include "forms/Label.h"

namespace forms {

namespace text = base::text;

std::string MarkedKey(const std::string& caption) {
    for (std::size_t at = caption.find('&'); at != std::string::npos; at = caption.find('&', at + 2)) {
        const std::string_view rest = std::string_view(caption).substr(at + 1);
        if (rest.empty()) {
            break;
        }
        if (rest.front() != '&') {
            return text::Upper(text::Left(rest, 1));
        }
    }
    return {};
}

std::string WithoutAccessKey(const std::string& caption) {
    if (caption.find('&') == std::string::npos) {
        return caption;
    }
    std::string plain;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == '&' && at + 1 < caption.size()) {
            ++at;
        }
        plain += caption[at];
    }
    return plain;
}

Control* AccessKeyTarget(const Label& label) {
    if (!label.UseMnemonic() || MarkedKey(label.Caption()).empty()) {
        return nullptr;
    }
    std::vector<Control*> order = label.Owner().Controls();
    if (label.TabIndex() != Control::NoTabIndex) {
        std::stable_sort(order.begin(), order.end(),
                         [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    }
    const auto self = std::find(order.begin(), order.end(), static_cast<const Control*>(&label));
    const auto target = std::find_if(self, order.end(), [](const Control* c) { return c->TakesFocus(); });
    return target == order.end() ? nullptr : *target;
}

bool PressAccessKey(Form& form, char32_t character) {
    const std::string key = text::Upper(text::Encode(character));
    const auto& controls = form.Controls();
    return std::any_of(controls.begin(), controls.end(), [&key](Control* control) {
        return control->IsShown() && control->AccessKey() == key && control->UserAccessKey();
    });
}

} // namespace forms
