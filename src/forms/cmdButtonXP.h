#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "base/Boolean.h"
#include "forms/Control.h"
#include "forms/ControlVisitor.h"
#include "forms/Timer.h"

namespace forms {

/// A flat picture button that lights up under the mouse and can stay pressed. It shows one of four pictures
/// and draws nothing itself. Nobody tells it that the mouse has left, so a fast timer looks for the pointer
/// while it is over the button. It takes no focus.
class cmdButtonXP : public Control {
  public:
    cmdButtonXP(Form& form, std::string name, Control* container = nullptr);

    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    // The looks, which are also the indices of their pictures.
    static constexpr std::int16_t LookDisabled = 0;
    static constexpr std::int16_t LookNormal = 1;
    static constexpr std::int16_t LookHot = 2;
    static constexpr std::int16_t LookDown = 3;

    std::function<void()> Click;
    std::function<void()> DblClick;

    /// Unsticks a stuck sticky button, without an event.
    void ReleaseButton();
    void StickButton();
    /// True while it is stuck.
    bool ButtonDown() const { return blnStuck_; }
    /// The look of a stuck button while the mouse is elsewhere.
    void SetStickyStyle(std::int16_t iStyle) { iStickyStyle_ = iStyle; }
    void SetToolTip(const std::string& strToolTipText) { SetToolTipText(strToolTipText); }
    /// A sticky button stays down after a click.
    void SetStickyButton(bool blnSticky) { blnSticky_ = blnSticky; }
    /// Number of its set of pictures; the button takes their size. A number without a set keeps the old
    /// pictures.
    void SetButtonStyle(std::int16_t Style);
    std::int16_t ButtonStyle() const { return iButtonStyle_; }
    /// Look and flag: one that is off does nothing, and its window stays as it is, so its tooltip shows.
    void SetEnabled(bool blnEnabled) override;
    void DisableTimer();

    /// What `pictNormal` shows: the name of a picture, empty for none.
    const std::string& pictNormal() const { return pictNormal_; }
    std::int16_t iState() const { return iState_; }
    bool blnOver() const { return blnOver_; }
    bool blnMouseDown() const { return blnMouseDown_; }
    /// False while a click is being handled: the window system then keeps the mouse from the button.
    bool WindowEnabled() const { return windowEnabled_; }

    // What the mouse does on the button, whichever of its own buttons it is: a press and a release show with
    // the next tick.
    void UserMouseMove();
    void UserMouseDown();
    void UserMouseUp();
    /// The button of the mouse has gone down and up here. False if a user could not.
    bool UserClick() override;
    bool UserDblClick();

    /// Ticks every 5 ms while the mouse is over the button or holds it down.
    forms::Timer Timer;

  private:
    void UpdateLook();
    void ShowLook();
    void LoadStylePictures();
    void ApplyClick();

    bool IsStuck() const { return blnSticky_ && blnStuck_; }
    bool CanTakeMouse() const { return windowEnabled_ && TakesMouse(); }
    std::int16_t WantedLook() const;
    void EnableWindow(bool enabled);
    void DeliverClick(const std::function<void()>& event);
    void TimerTick();

    std::array<std::string, 4> pictButtonXP_;
    std::string pictNormal_;
    double pictureSize_;
    std::int16_t iState_ = LookNormal;
    std::int16_t iStickyStyle_ = 0;
    std::int16_t iButtonStyle_ = 0;
    base::Boolean blnOver_;
    base::Boolean blnMouseDown_;
    base::Boolean blnSticky_;
    base::Boolean blnStuck_;
    base::Boolean blnBusy_;
    bool windowEnabled_ = true;
};

} // namespace forms
