#include "MemoryStage.h"

#include <utility>

#include "base/Text.h"
#include "forms/Toolbar.h"
#include "forms/cmdButtonXP.h"

namespace scenario {

namespace {

/// The picture button that follows the mouse; nullptr for any other control.
forms::cmdButtonXP* FlatButton(forms::Control& control) {
    return dynamic_cast<forms::cmdButtonXP*>(&control);
}

} // namespace

void MemoryStage::WhileModal(std::function<bool()> next) {
    memory_.desktop.OnModal = [next = std::move(next)](forms::Form&) { return next(); };
}

bool MemoryStage::Reaches(const forms::Form& form) const {
    return form.GetSession().TakesInput(form);
}

bool MemoryStage::ClickTool(forms::Control& toolbar, int number) {
    return static_cast<forms::Toolbar&>(toolbar).UserClickButton(number);
}

bool MemoryStage::Focus(forms::Control& control) {
    if (!control.CanFocus()) {
        return false;
    }
    control.Owner().MoveFocus(control);
    return true;
}

void MemoryStage::Wheel(forms::Form& form, int delta) {
    memory_.desktop.Windows().SendWheel(form.hWnd(), static_cast<std::int16_t>(delta));
}

void MemoryStage::Over(const Target& target) {
    memory_.desktop.PointAt(target.Control);
    if (forms::cmdButtonXP* button = FlatButton(*target.Control)) {
        button->UserMouseMove();
    }
}

void MemoryStage::Away(const Target& /*target*/) {
    memory_.desktop.PointAt(nullptr);
}

void MemoryStage::Down(const Target& target) {
    memory_.desktop.PointAt(target.Control);
    if (forms::cmdButtonXP* button = FlatButton(*target.Control)) {
        button->UserMouseDown();
    }
}

void MemoryStage::Up(const Target& target) {
    if (forms::cmdButtonXP* button = FlatButton(*target.Control)) {
        button->UserMouseUp();
    }
}

bool MemoryStage::Type(forms::TextBox& box, const std::u32string& keys) {
    if (!box.UserClick()) {
        return false;
    }
    if (box.Owner().ActiveControl() == &box) {
        box.UserSelect(static_cast<int>(base::text::Length(box.Text())), 0);
        for (const char32_t key : keys) {
            box.TypeKey(key);
        }
    }
    return true;
}

void MemoryStage::Key(forms::Form& form, int code) {
    memory_.desktop.PressKey(code);
    form.UserKey(code);
    memory_.desktop.ReleaseKey(code);
}

} // namespace scenario
