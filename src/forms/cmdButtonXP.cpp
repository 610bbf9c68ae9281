#include "forms/cmdButtonXP.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "forms/Form.h"
#include "forms/ImageList.h"

namespace forms {

namespace {

constexpr double StartSize = 240; // twips
constexpr int TimerInterval = 5;  // milliseconds

/// Where the pictures of a style stand: consecutive images from `First` on fill the looks from `FirstLook`
/// on.
struct StylePictures {
    const ImageList& List;
    int First;
    std::int16_t Style;
    std::int16_t FirstLook;
};

constexpr StylePictures StyleTable[] = {
    {imgResourceSmall, 1, 1, cmdButtonXP::LookDisabled}, {imgResourceSmall, 5, 2, cmdButtonXP::LookDisabled},
    {imgResourceSmall, 9, 3, cmdButtonXP::LookNormal},   {imgResourceSmall, 12, 4, cmdButtonXP::LookNormal},
    {imgResourceSmall, 15, 5, cmdButtonXP::LookNormal},  {imgResourceLarge, 1, 10, cmdButtonXP::LookNormal},
    {imgResourceLarge, 4, 11, cmdButtonXP::LookNormal},  {imgResourceLarge, 7, 12, cmdButtonXP::LookNormal},
    {imgResourceLarge, 10, 13, cmdButtonXP::LookNormal}, {imgResourceLarge, 13, 14, cmdButtonXP::LookNormal},
    {imgResourceLarge, 16, 15, cmdButtonXP::LookNormal}, {imgResourceLarge, 19, 16, cmdButtonXP::LookNormal},
};

} // namespace

cmdButtonXP::cmdButtonXP(Form& form, std::string name, Control* container)
    : Control(form, name, NoIndex, container), Timer(form, std::move(name) + ".Timer", TimerInterval),
      pictureSize_(StartSize) {
    Timer.OnTimer = [this] { TimerTick(); };
    SetWidth(StartSize);
    SetHeight(StartSize);
    ShowLook();
}

void cmdButtonXP::ReleaseButton() {
    blnStuck_ = true;
    DeliverClick(nullptr);
}

void cmdButtonXP::StickButton() {
    blnStuck_ = true;
    UpdateLook();
}

void cmdButtonXP::SetButtonStyle(std::int16_t Style) {
    iButtonStyle_ = Style;
    LoadStylePictures();
    ShowLook();
}

void cmdButtonXP::SetEnabled(bool blnEnabled) {
    iState_ = blnEnabled ? LookNormal : LookDisabled;
    ShowLook();
    Control::SetEnabled(blnEnabled);
}

void cmdButtonXP::DisableTimer() {
    Timer.SetEnabled(false);
    blnBusy_ = false;
    EnableWindow(true);
}

void cmdButtonXP::ShowLook() {
    if (iState_ < LookDisabled || iState_ > LookDown) { // a sticky style may be any number
        throw base::SubscriptOutOfRange();
    }
    const std::string& picture = pictButtonXP_[static_cast<std::size_t>(iState_)];
    if (picture != pictNormal_) {
        pictNormal_ = picture;
        Changed(Aspect::Picture);
    }
}

std::int16_t cmdButtonXP::WantedLook() const {
    if (blnOver_) {
        return blnMouseDown_ || IsStuck() ? LookDown : LookHot;
    }
    if (IsStuck()) {
        return iStickyStyle_;
    }
    return blnMouseDown_ ? LookHot : LookNormal;
}

void cmdButtonXP::UpdateLook() {
    if (blnBusy_ || !Enabled()) {
        return;
    }
    const std::int16_t look = WantedLook();
    if (look != iState_) {
        iState_ = look;
        ShowLook();
    }
}

void cmdButtonXP::LoadStylePictures() {
    const auto found =
        std::find_if(std::begin(StyleTable), std::end(StyleTable),
                     [this](const StylePictures& pictures) { return pictures.Style == iButtonStyle_; });
    if (found != std::end(StyleTable)) {
        for (std::int16_t look = found->FirstLook; look <= LookDown; ++look) {
            pictButtonXP_[static_cast<std::size_t>(look)] =
                found->List.Picture(found->First + look - found->FirstLook);
        }
        pictureSize_ = found->List.ImageSize;
    }
    Move(Left(), Top(), pictureSize_, pictureSize_);
}

void cmdButtonXP::ApplyClick() {
    EnableWindow(false);
    blnOver_ = false;
    blnMouseDown_ = false;
    if (blnSticky_ && !blnStuck_) {
        blnStuck_ = true;
        iState_ = iStickyStyle_;
    } else {
        blnStuck_ = false;
        iState_ = LookNormal;
    }
    ShowLook();
}

void cmdButtonXP::EnableWindow(bool enabled) {
    if (enabled != windowEnabled_) {
        windowEnabled_ = enabled;
        Changed(Aspect::Enabled);
    }
}

void cmdButtonXP::DeliverClick(const std::function<void()>& event) {
    blnBusy_ = true;
    try {
        ApplyClick();
        if (event) {
            Owner().Dispatch(event);
        }
    } catch (...) { // whatever it was, the button must not be dead for good
        DisableTimer();
        throw;
    }
    DisableTimer();
}

void cmdButtonXP::TimerTick() {
    if (blnBusy_ || !Enabled()) {
        return;
    }
    blnOver_ = Owner().PointerIsOver(*this);
    UpdateLook();
    if (!blnOver_ && !blnMouseDown_) {
        Timer.SetEnabled(false);
    }
}

void cmdButtonXP::UserMouseMove() {
    if (!blnBusy_ && Enabled() && !Owner().Leaving()) {
        blnOver_ = true;
        Timer.SetEnabled(true);
    }
}

void cmdButtonXP::UserMouseDown() {
    if (windowEnabled_ && !Owner().Leaving()) {
        blnMouseDown_ = true;
    }
}

void cmdButtonXP::UserMouseUp() {
    blnMouseDown_ = false;
}

bool cmdButtonXP::UserClick() {
    if (!CanTakeMouse()) {
        return false;
    }
    DeliverClick(Click);
    return true;
}

bool cmdButtonXP::UserDblClick() {
    if (!CanTakeMouse()) {
        return false;
    }
    DeliverClick(DblClick);
    return true;
}

} // namespace forms
