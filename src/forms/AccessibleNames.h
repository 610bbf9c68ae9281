#pragma once

#include <string>

namespace forms {

class Control;
class Label;

/// What assistive technology reads for a control: the name that the form gives, the control's own text, the
/// label that stands at its left or above it, or the tool tip. Empty for what only decorates.
std::string AccessibleNameOf(const Control& control);

/// The label at the left of a control or above it, by which a user knows it; nullptr if there is none.
const Label* NearestLabel(const Control& control);

/// The same where the label belongs to the control; nullptr for one that shares it or needs none.
const Label* OwnLabel(const Control& control);

} // namespace forms
