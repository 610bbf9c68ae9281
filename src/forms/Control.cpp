#include "forms/Control.h"

#include <utility>

#include "forms/Form.h"

namespace forms {

Control::Control(Form& form, std::string name, int index, Control* container)
    : form_(form), name_(std::move(name)), index_(index), container_(container) {
    form_.Register(*this);
}

void Control::Changed(Aspect aspect) {
    form_.ControlChanged(*this, aspect);
}

void Control::Move(double left, double top, double width, double height) {
    if (left == left_ && top == top_ && width == width_ && height == height_) {
        return;
    }
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Changed(Aspect::Geometry);
}

void Control::SetVisible(bool visible) {
    if (visible != visible_) {
        visible_ = visible;
        withheld_ = withheld_ && !visible;
        Changed(Aspect::Visible);
    }
}

void Control::Withhold() {
    visible_ = false;
    withheld_ = true;
}

void Control::SetEnabled(bool enabled) {
    if (enabled != enabled_) {
        enabled_ = enabled;
        Changed(Aspect::Enabled);
    }
}

bool Control::IsShown() const {
    return visible_ && (container_ == nullptr || container_->IsShown());
}

bool Control::IsUsable() const {
    return enabled_ && (container_ == nullptr || container_->IsUsable());
}

bool Control::TakesMouse() const {
    return !form_.Leaving() && IsShown() && IsUsable();
}

void Control::SetToolTipText(const std::string& text) {
    if (text != toolTip_) {
        toolTip_ = text;
        Changed(Aspect::ToolTip);
    }
}

void Control::SetFont(const ControlFont& font) {
    if (!(font == font_)) {
        font_ = font;
        Changed(Aspect::Font);
    }
}

void Control::SetForeColor(Colour colour) {
    if (colour != foreColor_) {
        foreColor_ = colour;
        Changed(Aspect::Colours);
    }
}

void Control::SetBackColor(Colour colour) {
    if (colour != backColor_) {
        backColor_ = colour;
        Changed(Aspect::Colours);
    }
}

Colour Control::ShownBackColor() const {
    for (const Control* holder = this; holder != nullptr; holder = holder->Container()) {
        if (holder->BackColor() != colour::Transparent) {
            return holder->BackColor();
        }
    }
    return form_.BackColor();
}

void Control::SetFocus() {
    form_.MoveFocus(*this);
}

bool Control::UserKey(int virtualKey, bool shift) {
    if (virtualKey != 0) {
        form_.UserKey(virtualKey, shift);
    }
    return false;
}

std::uintptr_t Control::hWnd() const {
    return form_.HandleOf(*this);
}

void Control::BringToFront() {
    Changed(Aspect::ZOrder);
}

} // namespace forms
