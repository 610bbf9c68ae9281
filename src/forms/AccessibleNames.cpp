#include "forms/AccessibleNames.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

#include "forms/AccessKeys.h"
#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Form.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"

namespace forms {

namespace {

// A label above a control may stand a little higher than the line before it.
constexpr double NearAbove = 450;

const std::string* OwnText(const Control& control) {
    switch (control.Kind()) {
    case ControlKind::CheckBox:
        return &static_cast<const CheckBox&>(control).Caption();
    case ControlKind::CommandButton:
        return &static_cast<const CommandButton&>(control).Caption();
    case ControlKind::Label:
        return &static_cast<const Label&>(control).Caption();
    case ControlKind::OptionButton:
        return &static_cast<const OptionButton&>(control).Caption();
    default:
        return nullptr;
    }
}

// How far a label is from being the one that names a control: by its distance at the left in the same line,
// or above; infinite if it is neither.
double DistanceOf(const Control& label, const Control& control) {
    constexpr double none = std::numeric_limits<double>::infinity();
    const double labelMiddle = label.Top() + std::min(label.Height(), control.Height()) / 2;
    if (labelMiddle > control.Top() && labelMiddle < control.Top() + control.Height()) {
        return label.Left() < control.Left() ? control.Left() - label.Left() : none;
    }
    const double gap = control.Top() - (label.Top() + label.Height());
    const bool above = gap > -label.Height() / 2 && gap < NearAbove &&
                       label.Left() < control.Left() + control.Width() &&
                       control.Left() < label.Left() + label.Width();
    return above ? 100000 + gap : none;
}

std::string WithoutColon(std::string text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == ':')) {
        text.pop_back();
    }
    return text;
}

} // namespace

bool IsNamedByLabel(const Control& control) {
    constexpr std::array kinds{ControlKind::ComboBox, ControlKind::ListBox, ControlKind::ProgressBar,
                               ControlKind::TextBox, ControlKind::UpDown};
    return std::find(kinds.begin(), kinds.end(), control.Kind()) != kinds.end();
}

const Label* NearestLabel(const Control& control) {
    const Label* nearest = nullptr;
    double best = std::numeric_limits<double>::infinity();
    for (const Control* candidate : control.Owner().Controls()) {
        if (candidate->Kind() != ControlKind::Label || candidate->Container() != control.Container()) {
            continue;
        }
        const double distance = DistanceOf(*candidate, control);
        if (distance < best) {
            best = distance;
            nearest = static_cast<const Label*>(candidate);
        }
    }
    return nearest;
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

std::string AccessibleNameOf(const Control& control) {
    if (!control.AccessibleName().empty()) {
        return control.AccessibleName();
    }
    if (const std::string* text = OwnText(control); text != nullptr && !text->empty()) {
        const bool marked =
            control.Kind() != ControlKind::Label || static_cast<const Label&>(control).UseMnemonic();
        return marked ? WithoutAccessKey(*text) : *text;
    }
    if (IsNamedByLabel(control)) {
        if (const Label* label = NearestLabel(control)) {
            return WithoutColon(WithoutAccessKey(label->Caption()));
        }
    }
    return control.ToolTipText();
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

} // namespace forms
