#pragma once

#include <string>

namespace forms {

class Control;
class Label;

/// What assistive technology reads for a control: the name that the form gives, the control's own text, the
/// label that stands at its left or above it, or the tool tip. Empty for what only decorates.
std::string AccessibleNameOf(const Control& control);

/// True for a control that a user knows by the label beside it, as it shows no text of its own that tells
/// what it is for.
bool IsNamedByLabel(const Control& control);

/// The label at the left of a control or above it, by which a user knows it; nullptr if there is none.
const Label* NearestLabel(const Control& control);

/// The control that a label's access key goes to: the next one in the tab order, or in the order of making
/// for a label without a place in the tab order. nullptr if the label marks no key or none follows.
Control* AccessKeyTarget(const Label& label);

/// A caption without the marks of access keys ("&Sluiten" is "Sluiten"; "&&" is "&").
std::string WithoutAccessKey(const std::string& caption);

} // namespace forms
