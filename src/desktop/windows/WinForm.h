#pragma once

#include <exception>
#include <memory>
#include <unordered_map>
#include <vector>

#include "desktop/windows/Fonts.h"
#include "desktop/windows/Scale.h"
#include "desktop/windows/ToolTips.h"
#include "desktop/windows/WinControl.h"
#include "forms/FormPeer.h"
#include "forms/KeyRouting.h"

namespace desktop::windows {

class WinDesktop;

/// The real window of a form.
class WinForm final : public forms::FormPeer, private forms::KeyWindow {
  public:
    WinForm(forms::Form& form, WinDesktop& desktop);
    ~WinForm() override;
    WinForm(const WinForm&) = delete;
    WinForm& operator=(const WinForm&) = delete;

    void ControlChanged(forms::Control& control, forms::Aspect aspect) override;
    void FormChanged() override;
    forms::WindowSize Bounded(const forms::WindowSize& wanted) override;
    void Show(bool modal) override;
    void Hide() override;
    void FocusMoved(forms::Control* control) override;
    bool PointerIsOver(const forms::Control& control) override;
    std::uintptr_t Handle() override { return reinterpret_cast<std::uintptr_t>(window_); }
    std::uintptr_t HandleOf(const forms::Control& control) override;

    HWND Window() const { return window_; }
    /// The window of one of the form's controls; nullptr if it has none.
    HWND WindowOf(const forms::Control& control) const;

    // For the controls.
    const Scale& Scaling() const { return scale_; }
    HFONT FontFor(const forms::ControlFont& font) { return fonts_.Get(font, scale_); }
    ToolTips& Tips() { return tips_; }
    /// Size of the area that the controls stand in, in dots.
    SIZE AreaSize() const;
    /// True if the user's keys come to this window.
    bool IsActive() const { return ::GetActiveWindow() == window_; }
    /// Runs what a message asks for. No failure leaves it, as there is nobody in Windows to take it.
    template <class Step>
    void Guard(Step&& step) noexcept {
        try {
            step();
        } catch (const std::exception&) {
            TellFailure();
        }
    }

    /// A key that reaches a control, or the window itself (nullptr). True: it has been dealt with. `info` as
    /// the message has it.
    bool KeyPressed(WPARAM virtualKey, LPARAM info, WinControl* control);
    /// The user has pressed Alt and a character. False if it is no access key here.
    bool AccessKeyPressed(wchar_t character);
    /// The user works with the keyboard: from now on the marks of the access keys show.
    void ShowAccessKeys();

    /// Something else than the form has moved the focus (a screen reader, another program). Once all waiting
    /// messages are done, the form's focus and the window's are made one again.
    void SettleFocusLater();

    /// A message that a control sends to whatever holds it. False if it is none, or of no control here.
    bool Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    /// A message to the form's window.
    LRESULT Received(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    WinControl& Find(forms::Control& control);
    WinControl& Add(forms::Control& control);
    int NumberOf(const forms::Control& control) const;
    void MakeWindow();
    void MakeControls();
    void Appear(bool modal);
    void TellFailure() noexcept;
    void Close();
    void DestroyWindows();
    void PutInReadingOrder();
    void PutLabelsBeforeFields();
    void NameControls();
    static void NameControl(const WinControl& control);

    // WinFormInput.cpp: the keyboard and the focus.
    bool KeyReceived(UINT message, WPARAM wParam, LPARAM lParam);
    void ShowFocus() override;
    void SettleFocus() override;
    void RestoreFocus() const;

    void TimePassed(WPARAM timer) const;
    bool ShowPointer(LPARAM lParam) const;

    // WinFormPlace.cpp: where the window stands and how large it is.
    RECT Margins() const;
    SIZE OuterSize(const forms::WindowSize& size) const;
    SIZE OuterSize() const;
    void ShowSize();
    void ShowPlace();
    void MoveToMiddle();
    void PlaceBars();
    void Resized();
    void DensityChanged(UINT dpi, const RECT& place);
    void DrawAnew() const;
    void Erase(HDC device) const;
    void ColoursChanged(UINT message, WPARAM wParam, LPARAM lParam);

    forms::Form& form_;
    WinDesktop& desktop_;
    HWND window_ = nullptr;
    Scale scale_{ScreenScale()};
    Fonts fonts_;
    ToolTips tips_;
    WinControl* menuBar_ = nullptr;
    std::vector<std::unique_ptr<WinControl>> controls_;
    std::unordered_map<const forms::Control*, WinControl*> byModel_;
    std::vector<HWND> disabledOwners_; // by this window while it is modal
    bool settling_ = false;
    bool showingSize_ = false;
    double shownLeft_ = 0; // where the program last put the form; the user may have moved it since
    double shownTop_ = 0;
};

} // namespace desktop::windows
