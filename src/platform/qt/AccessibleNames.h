#pragma once

#include <string>

namespace forms {
class Control;
class Label;
} // namespace forms

namespace platform::qt {

/// What assistive technology reads for a control: the name that the form gives, the control's own text, the
/// label that stands at its left or above it, or the tool tip.
std::string AccessibleNameOf(const forms::Control& control);

/// The control that a label's access key goes to: the next one in the tab order, or in the order of making
/// for a label without a place in the tab order. nullptr if the label marks no key or none follows.
forms::Control* AccessKeyTarget(const forms::Label& label);

/// A caption without the marks of access keys ("&Sluiten" is "Sluiten"; "&&" is "&").
std::string WithoutAccessKey(const std::string& caption);

} // namespace platform::qt
