#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include <QEventLoop>
#include <QWidget>

#include "desktop/qt/QtControl.h"
#include "forms/FormPeer.h"
#include "forms/KeyRouting.h"
#include "forms/WheelTurn.h"
#include "forms/WindowProcedureTable.h"

namespace desktop::qt {

class QtDesktop;
class FocusRing;

/// The real window of a form.
class QtForm final : public forms::FormPeer, private forms::KeyWindow {
  public:
    QtForm(forms::Form& form, QtDesktop& desktop);
    ~QtForm() override;

    void ControlChanged(forms::Control& control, forms::Aspect aspect) override;
    void FormChanged() override;
    forms::WindowSize Bounded(const forms::WindowSize& wanted) override;
    void Show(bool modal) override;
    void Hide() override;
    void FocusMoved(forms::Control* control) override;
    bool PointerIsOver(const forms::Control& control) override;
    std::uintptr_t Handle() override;
    std::uintptr_t HandleOf(const forms::Control& control) override;

    QWidget* Window() const { return window_.get(); }
    /// The widget of one of the form's controls; nullptr if it has none.
    QWidget* WidgetOf(const forms::Control& control) const;

    /// Runs the message loop until Hide().
    void RunModal();

    /// A key that reaches a control, or the window itself (nullptr). True: it has been dealt with.
    bool KeyPressed(const QKeyEvent& event, QtControl* control);

    /// The toolkit has moved its focus by itself (a screen reader asked it to, a window came back to the
    /// front). Once all waiting events are done, the form's focus and the window's are made one again.
    void SettleFocusLater();

    // What the window tells.
    /// False if the form refuses to close.
    bool CloseRequested();
    void Resized();
    /// The mouse wheel, in eighths of a degree as the toolkit reports it: 120 to the notch.
    void WheelTurned(int delta);
    void ThemeChanged();

  private:
    QtControl& Find(forms::Control& control);
    QtControl& Add(forms::Control& control);
    void NameControls();
    void NameControl(const QtControl& control);
    void TieLabel(const forms::Control& control, QWidget* widget);

    // QtFormInput.cpp: the keyboard and the focus.
    void ShowFocus() override;
    void SettleFocus() override;

    // QtFormPlace.cpp: where the window stands, how large it is, and its colours.
    /// Twips of the form's width that its window's frame takes.
    double FrameWidth() const;
    QSize WantedSize() const;
    void ShowSize();
    void ShowPlace();
    void MoveToMiddle();
    void ShowBounds();
    void PlaceBars();
    void Colour();

    forms::Form& form_;
    QtDesktop& desktop_;
    std::unique_ptr<QWidget> window_;
    FocusRing* ring_ = nullptr; // the window's
    QWidget* area_;             // where the controls are: the window, or what a menu bar leaves of it
    QtControl* menuBar_ = nullptr;
    forms::WindowProcedureTable::Window procedure_;
    std::vector<std::unique_ptr<QtControl>> controls_;
    std::unordered_map<const forms::Control*, QtControl*> byModel_;
    QEventLoop* loop_ = nullptr;
    forms::WheelTurn wheel_;
    bool settling_ = false;
    bool showingSize_ = false;
    double shownLeft_ = 0; // where the program last put the form; the user may have moved it since
    double shownTop_ = 0;
};

} // namespace desktop::qt
