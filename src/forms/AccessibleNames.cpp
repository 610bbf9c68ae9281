#include "forms/AccessibleNames.h"

#include <algorithm>
#include <limits>

#include "forms/AccessKeys.h"
#include "forms/Form.h"
#include "forms/Label.h"

namespace forms {

namespace {

// A label above a control may stand a little higher than the line before it.
constexpr double NearAbove = 450;

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

const Label* NearestLabel(const Control& control) {
    const Label* nearest = nullptr;
    double best = std::numeric_limits<double>::infinity();
    for (const Label* candidate : control.Owner().ControlsOf<Label>()) {
        if (candidate->Container() != control.Container()) {
            continue;
        }
        const double distance = DistanceOf(*candidate, control);
        if (distance < best) {
            best = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

const Label* OwnLabel(const Control& control) {
    return control.OwnsLabel() ? NearestLabel(control) : nullptr;
}

std::string AccessibleNameOf(const Control& control) {
    if (!control.AccessibleName().empty()) {
        return control.AccessibleName();
    }
    if (std::string text = control.SpokenText(); !text.empty()) {
        return text;
    }
    if (control.IsNamedByLabel()) {
        if (const Label* label = NearestLabel(control)) {
            return WithoutColon(WithoutAccessKey(label->Caption()));
        }
    }
    return control.ToolTipText();
}

} // namespace forms
