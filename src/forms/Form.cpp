#include "forms/Form.h"

#include <algorithm>
#include <utility>

#include "forms/CommandButton.h"
#include "forms/Desktop.h"

namespace forms {

namespace {

/// Virtual key code of the numeric pad's 0; 1 to 9 follow.
constexpr int NumericPad0 = 96;

/// A form's turn to take all input, over when the block is left on whatever way.
class ModalTurn {
  public:
    ModalTurn(std::vector<Form*>& turns, Form& form) : turns_(turns), form_(form) {
        turns_.push_back(&form_);
    }
    ~ModalTurn() { std::erase(turns_, &form_); }
    ModalTurn(const ModalTurn&) = delete;
    ModalTurn& operator=(const ModalTurn&) = delete;

  private:
    std::vector<Form*>& turns_;
    Form& form_;
};

/// A flag that is up for a block, whatever way the block is left.
class FlagUp {
  public:
    explicit FlagUp(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagUp() { flag_ = false; }
    FlagUp(const FlagUp&) = delete;
    FlagUp& operator=(const FlagUp&) = delete;

  private:
    bool& flag_;
};

} // namespace

Form::Form(Session& session, std::string name) : session_(session), name_(std::move(name)) {}

Form::~Form() {
    std::erase(session_.forms_, this);
    std::erase(session_.modal_, this);
}

void Form::TellPeer() {
    if (peer_) {
        peer_->FormChanged();
    }
}

void Form::SetCaption(const std::string& caption) {
    caption_ = caption;
    TellPeer();
}

void Form::Move(double left, double top) {
    left_ = left;
    top_ = top;
    placed_ = true;
    TellPeer();
}

void Form::Resize(double width, double height) {
    const WindowSize present{width_, height_};
    const WindowSize wanted{width, height};
    if (wanted == present) {
        return;
    }
    const WindowSize size = peer_ ? peer_->Bounded(wanted) : wanted;
    if (size == present) {
        return;
    }
    width_ = size.Width;
    height_ = size.Height;
    TellPeer();
    if (loaded_) {
        Dispatch([this] { OnResize(); });
    }
}

void Form::UserResize(double width, double height) {
    if (leaving_ || (width == width_ && height == height_)) {
        return;
    }
    width_ = width;
    height_ = height;
    Dispatch([this] { OnResize(); });
}

void Form::Load() {
    if (loaded_) {
        return;
    }
    peer_.reset(); // of the time before, if the form has been shown before: the desktop knows one at a time
    peer_ = session_.Desktop().CreatePeer(*this); // a form that gets no window stays unloaded
    loaded_ = true;
    session_.forms_.push_back(this);
    OnLoad();
    Dispatch([this] { OnResize(); });
}

void Form::Show() {
    Load();
    if (visible_ || !loaded_) {
        return;
    }
    visible_ = true;
    peer_->Show(session_.ModalForm() == this);
    Dispatch([this] { OnActivate(); });
    if (active_ == nullptr) {
        if (Control* first = NextInTabOrder(false)) {
            MoveFocus(*first);
        }
    }
}

void Form::ShowModal() {
    Load();
    if (visible_ || !loaded_) {
        return;
    }
    const ModalTurn turn(session_.modal_, *this);
    Show();
    if (visible_) {
        session_.Desktop().RunModal(*this);
    }
}

bool Form::Unload() {
    if (!loaded_ || unloading_) {
        return true;
    }
    const FlagUp unloading(unloading_);
    bool agreed = true;
    Dispatch([&] { agreed = OnQueryUnload(); });
    if (agreed) {
        const FlagUp leaving(leaving_);
        Dispatch([this] { OnUnload(); });
        visible_ = false;
        loaded_ = false;
        active_ = nullptr;
        std::erase(session_.forms_, this);
        std::erase(session_.modal_, this);
        peer_->Hide();
    }
    return agreed;
}

void Form::SessionEnds() {
    if (!Unload()) {
        Dispatch([this] { OnSessionEnd(); });
    }
}

bool Form::MoveFocus(Control& control) {
    if (active_ == &control) {
        return true;
    }
    if (!visible_ || !control.CanFocus()) {
        return false;
    }
    Control* previous = active_;
    active_ = &control;
    peer_->FocusMoved(active_);
    if (previous != nullptr) {
        previous->LostFocus();
    }
    if (active_ == &control) {
        control.GotFocus();
    }
    return active_ == &control;
}

Control* Form::NextInTabOrder(bool backward) const {
    std::vector<Control*> order;
    std::copy_if(controls_.begin(), controls_.end(), std::back_inserter(order),
                 [this](const Control* control) { return control == active_ || control->CanFocus(); });
    std::stable_sort(order.begin(), order.end(),
                     [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
    if (backward) {
        std::reverse(order.begin(), order.end());
    }
    if (order.empty()) {
        return nullptr;
    }
    const auto present = std::find(order.begin(), order.end(), active_);
    const auto next = present == order.end() ? order.begin() : std::next(present);
    Control* candidate = next == order.end() ? order.front() : *next;
    return candidate->CanFocus() ? candidate : nullptr;
}

void Form::PressButton(bool (*wanted)(const CommandButton&)) const {
    for (CommandButton* button : ControlsOf<CommandButton>()) {
        if (wanted(*button) && button->IsShown()) {
            button->Press();
            return;
        }
    }
}

void Form::UserKey(int virtualKey, bool shift) {
    if (leaving_) {
        return;
    }
    Dispatch([&] { OnKeyDown(virtualKey); });
    if (!visible_ || leaving_) {
        return;
    }
    switch (virtualKey) {
    case 0:
        break;
    case key::Escape:
        PressButton([](const CommandButton& button) { return button.Cancel(); });
        break;
    case key::Enter:
        PressButton([](const CommandButton& button) { return button.IsPressedByEnter(); });
        break;
    case key::Tab:
        if (Control* next = NextInTabOrder(shift)) {
            MoveFocus(*next);
        }
        break;
    case key::Backspace:
    case ' ':
        UserCharacter(static_cast<char32_t>(virtualKey));
        break;
    default:
        if (virtualKey >= NumericPad0 && virtualKey <= NumericPad0 + 9) {
            UserCharacter(static_cast<char32_t>(virtualKey - NumericPad0 + '0'));
        } else if (virtualKey >= '0' && virtualKey <= '9') {
            UserCharacter(static_cast<char32_t>(virtualKey));
        } else if (virtualKey >= 'A' && virtualKey <= 'Z') {
            UserCharacter(static_cast<char32_t>(virtualKey + (shift ? 0 : 'a' - 'A')));
        }
        break;
    }
}

void Form::UserHelp() {
    if (!leaving_) {
        Dispatch([this] { Desktop().ShowHandbook(HandbookSection()); });
    }
}

void Form::UserCharacter(char32_t character) {
    if (active_ != nullptr && !leaving_) {
        active_->TypeKey(character);
    }
}

void Form::ControlChanged(Control& control, Aspect aspect) {
    if (peer_ && control.IsMirrored()) {
        peer_->ControlChanged(control, aspect);
    }
    if (aspect == Aspect::Visible || aspect == Aspect::Enabled) {
        RescueFocus();
    }
}

// A control that can no longer have the focus passes it on, as the window system does.
void Form::RescueFocus() {
    if (!visible_ || leaving_ || active_ == nullptr || active_->CanFocus()) {
        return;
    }
    if (Control* next = NextInTabOrder(false)) {
        MoveFocus(*next);
        return;
    }
    Control* previous = active_;
    active_ = nullptr;
    peer_->FocusMoved(nullptr);
    previous->LostFocus();
}

} // namespace forms
