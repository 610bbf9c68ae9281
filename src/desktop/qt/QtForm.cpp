#include "desktop/qt/QtForm.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <array>

#include "desktop/qt/FocusRing.h"
#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtColours.h"
#include "desktop/qt/QtDesktop.h"
#include "desktop/qt/QtLabel.h"
#include "desktop/qt/QtMenuBar.h"
#include "desktop/qt/QtText.h"
#include "desktop/qt/QtWindow.h"
#include "desktop/qt/Scale.h"
#include "forms/AccessibleNames.h"
#include "forms/Desktop.h"
#include "forms/Form.h"

namespace desktop::qt {

namespace {

constexpr double TwipsPerDesignDot = 15;

struct KeyCode {
    int Key;
    int VirtualKey;
};

constexpr std::array<KeyCode, 15> KeyCodes{{
    {Qt::Key_Backspace, forms::key::Backspace},
    {Qt::Key_Tab, forms::key::Tab},
    {Qt::Key_Backtab, forms::key::Tab},
    {Qt::Key_Return, forms::key::Enter},
    {Qt::Key_Enter, forms::key::Enter},
    {Qt::Key_Escape, forms::key::Escape},
    {Qt::Key_PageUp, forms::key::PageUp},
    {Qt::Key_PageDown, forms::key::PageDown},
    {Qt::Key_End, forms::key::End},
    {Qt::Key_Home, forms::key::Home},
    {Qt::Key_Left, forms::key::Left},
    {Qt::Key_Up, forms::key::Up},
    {Qt::Key_Right, forms::key::Right},
    {Qt::Key_Down, forms::key::Down},
    {Qt::Key_Delete, 46},
}};

int VirtualKeyOf(const QKeyEvent& event) {
    for (const KeyCode& code : KeyCodes) {
        if (code.Key == event.key()) {
            return code.VirtualKey;
        }
    }
    return 0;
}

Qt::WindowFlags FlagsFor(const forms::Form& form, bool first) {
    const Qt::WindowFlags common =
        Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    const Qt::WindowFlags kind =
        first ? Qt::Window | Qt::WindowMinimizeButtonHint : Qt::WindowFlags(Qt::Dialog);
    return common | kind | (form.Resizable() ? Qt::WindowMaximizeButtonHint : Qt::WindowFlags());
}

// Bounds are exchanged in dots of the design, and count the title bar.
std::int32_t DesignDots(int dots) {
    return static_cast<std::int32_t>(ToTwips(dots) / TwipsPerDesignDot);
}

QSize InnerSize(const machine::MINMAXINFO::POINT& outer) {
    const QSize size(ToDots(outer.x * TwipsPerDesignDot - forms::ResizeFrameWidth),
                     ToDots(outer.y * TwipsPerDesignDot - forms::TitleBarHeight));
    return size.expandedTo(QSize(0, 0)).boundedTo(QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

} // namespace

QtForm::QtForm(forms::Form& form, QtDesktop& desktop)
    : form_(form), desktop_(desktop),
      window_(std::make_unique<QtWindow>(*this, FlagsFor(form, desktop.TopWindow() == nullptr))),
      area_(window_.get()), procedure_(desktop.Windows(), Handle()) {
    window_->setObjectName(ToQString(form.Name()));
    for (forms::Control* control : form.Controls()) {
        if (control->Kind() == forms::ControlKind::MenuBar) {
            menuBar_ = static_cast<QtMenuBar*>(&Find(*control));
            area_ = new QWidget(window_.get());
        }
    }
    for (forms::Control* control : form.Controls()) {
        if (control->HasWindow()) {
            Find(*control);
        }
    }
    Colour();
    // A label finds the control that its access key goes to only when all are there.
    for (const auto& control : controls_) {
        control->Mirror(forms::Aspect::Caption);
    }
    FormChanged();
    desktop_.Opened(form_, *this);
}

QtForm::~QtForm() {
    desktop_.Gone(form_);
    controls_.clear();
}

QtControl& QtForm::Find(forms::Control& control) {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? Add(control) : *found->second;
}

QtControl& QtForm::Add(forms::Control& control) {
    QWidget* parent = control.Container() == nullptr ? area_ : Find(*control.Container()).Widget();
    QtControl& added = *controls_.emplace_back(MakeQtControl(control, *this, parent));
    byModel_[&control] = &added;
    added.MirrorAll();
    return added;
}

QWidget* QtForm::WidgetOf(const forms::Control& control) const {
    const auto found = byModel_.find(&control);
    return found == byModel_.end() ? nullptr : found->second->Widget();
}

void QtForm::ControlChanged(forms::Control& control, forms::Aspect aspect) {
    Find(control).Mirror(aspect);
}

void QtForm::FormChanged() {
    window_->setWindowTitle(ToQString(form_.Caption()));
    ShowSize();
    ShowPlace();
}

forms::WindowSize QtForm::Bounded(const forms::WindowSize& wanted) {
    return desktop_.Windows().BoundedSize(procedure_.Handle(), wanted);
}

double QtForm::FrameWidth() const {
    return form_.Resizable() ? forms::ResizeFrameWidth : 0;
}

QSize QtForm::WantedSize() const {
    return {ToDots(form_.Width() - FrameWidth()), ToDots(form_.Height() - forms::TitleBarHeight)};
}

void QtForm::ShowSize() {
    const QScopedValueRollback rollback(showingSize_, true);
    const QSize size = WantedSize();
    if (size.isEmpty()) {
        return;
    }
    if (form_.Resizable()) {
        window_->resize(size);
    } else {
        window_->setFixedSize(size);
    }
}

void QtForm::ShowPlace() {
    if (!form_.Placed() || (form_.Left() == shownLeft_ && form_.Top() == shownTop_)) {
        return;
    }
    shownLeft_ = form_.Left();
    shownTop_ = form_.Top();
    window_->move(ToDots(shownLeft_), ToDots(shownTop_));
}

void QtForm::MoveToMiddle() {
    const QWidget* below = desktop_.TopWindow();
    const QScreen* screen = below == nullptr ? QApplication::primaryScreen() : below->screen();
    const QPoint middle =
        below == nullptr ? screen->availableGeometry().center() : below->frameGeometry().center();
    QRect frame = window_->frameGeometry();
    frame.moveCenter(middle);
    const QRect room = screen->availableGeometry();
    frame.moveLeft(std::max(room.left(), std::min(frame.left(), room.right() - frame.width())));
    frame.moveTop(std::max(room.top(), std::min(frame.top(), room.bottom() - frame.height())));
    window_->move(frame.topLeft());
}

// A form that the user may resize is asked how small and how large it may become.
void QtForm::ShowBounds() {
    if (!form_.Resizable()) {
        return;
    }
    const QSize screen = window_->screen()->size();
    machine::MINMAXINFO bounds{};
    bounds.ptMaxTrackSize = {DesignDots(screen.width()), DesignDots(screen.height())};
    bounds.ptMaxSize = bounds.ptMaxTrackSize;
    bounds = desktop_.Windows().AskBounds(procedure_.Handle(), bounds);
    window_->setMinimumSize(InnerSize(bounds.ptMinTrackSize));
    window_->setMaximumSize(InnerSize(bounds.ptMaxTrackSize).expandedTo(window_->minimumSize()));
}

void QtForm::NameControls() {
    for (const auto& control : controls_) {
        if (QWidget* widget = control->Widget()) {
            widget->setAccessibleName(ToQString(AccessibleNameOf(control->Model())));
            TieLabel(control->Model(), widget);
        }
    }
}

// The arrows beside a box share its label, which belongs to the box.
void QtForm::TieLabel(const forms::Control& control, QWidget* widget) {
    if (IsNamedByLabel(control) && control.Kind() != forms::ControlKind::UpDown) {
        if (const forms::Label* label = NearestLabel(control)) {
            static_cast<QtLabel&>(*byModel_.at(label)).NameWidget(widget);
        }
    }
}

void QtForm::Show(bool modal) {
    NameControls();
    ShowBounds();
    PlaceBars();
    if (!form_.Placed()) {
        MoveToMiddle();
    }
    QWidget* below = desktop_.TopWindow();
    if (modal) {
        window_->setWindowModality(Qt::ApplicationModal);
    }
    if (below != nullptr) {
        Handle();
        window_->windowHandle()->setTransientParent(below->windowHandle());
    }
    desktop_.Shown(form_);
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void QtForm::Hide() {
    window_->hide();
    desktop_.Hidden(form_);
    if (loop_ != nullptr) {
        loop_->quit();
    }
}

void QtForm::RunModal() {
    QEventLoop loop;
    const QScopedValueRollback rollback(loop_, &loop);
    loop.exec();
}

std::uintptr_t QtForm::Handle() {
    return static_cast<std::uintptr_t>(window_->winId());
}

// A control shares the native window of its form, so its widget's address stands for it.
std::uintptr_t QtForm::HandleOf(const forms::Control& control) {
    QWidget* widget = WidgetOf(control);
    return widget == nullptr ? Handle() : reinterpret_cast<std::uintptr_t>(widget);
}

bool QtForm::KeyPressed(const QKeyEvent& event, QtControl* control) {
    const int virtualKey = VirtualKeyOf(event);
    const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
    const auto others = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (others != 0) {
        // A form that scrolls has no focus, and its keys are the same with Ctrl.
        if (others == Qt::ControlModifier && virtualKey > forms::key::Escape && control == nullptr &&
            form_.ActiveControl() == nullptr) {
            form_.UserKey(virtualKey, shift);
        }
        return false;
    }
    SettleFocus();
    switch (virtualKey) {
    case forms::key::Tab:
        window_->setAttribute(Qt::WA_KeyboardFocusChange);
        form_.UserKey(virtualKey, shift);
        ShowFocus();
        return true;
    case forms::key::Enter:
    case forms::key::Escape:
        // A key held down must not run through the window that comes next.
        if (!event.isAutoRepeat()) {
            form_.UserKey(virtualKey, shift);
        }
        return true;
    default:
        break;
    }
    if (control != nullptr) {
        return control->KeyPressed(event, virtualKey);
    }
    if (virtualKey != 0 && form_.ActiveControl() == nullptr) {
        form_.UserKey(virtualKey, shift);
    }
    return false;
}

// Made when the user first takes to the Tab key.
void QtForm::ShowFocus() {
    if (ring_ == nullptr) {
        ring_ = new FocusRing(window_.get());
    }
    const forms::Control* active = form_.ActiveControl();
    ring_->Surround(active == nullptr ? nullptr : WidgetOf(*active));
}

void QtForm::FocusMoved(forms::Control* control) {
    if (control != nullptr) {
        Find(*control).TakeFocus();
    } else if (QWidget* holder = window_->focusWidget()) {
        holder->clearFocus();
    }
    if (ring_ != nullptr) {
        ring_->Surround(control == nullptr ? nullptr : WidgetOf(*control));
    }
}

void QtForm::SettleFocusLater() {
    if (!settling_) {
        settling_ = true;
        QTimer::singleShot(0, window_.get(), [this] { Guarded([this] { SettleFocus(); }); });
    }
}

void QtForm::SettleFocus() {
    settling_ = false;
    if (!form_.Visible()) {
        return;
    }
    const QWidget* holder = window_->focusWidget();
    for (const auto& control : controls_) {
        if (control->Widget() == holder && holder != nullptr && &control->Model() != form_.ActiveControl()) {
            form_.MoveFocus(control->Model());
            break;
        }
    }
    if (forms::Control* active = form_.ActiveControl();
        active != nullptr && WidgetOf(*active) != window_->focusWidget()) {
        Find(*active).TakeFocus();
    }
}

void QtForm::PlaceBars() {
    if (menuBar_ != nullptr) {
        menuBar_->Mirror(forms::Aspect::Geometry);
        const int top = menuBar_->StripHeight();
        area_->setGeometry(0, top, window_->width(), window_->height() - top);
    }
    for (const auto& control : controls_) {
        if (control->Model().Kind() == forms::ControlKind::StatusBar) {
            control->Mirror(forms::Aspect::Geometry);
        }
    }
}

bool QtForm::CloseRequested() {
    return form_.UserClose();
}

void QtForm::Resized() {
    PlaceBars();
    if (form_.Visible() && !showingSize_ && window_->size() != WantedSize()) {
        form_.UserResize(ToTwips(window_->width()) + FrameWidth(),
                         ToTwips(window_->height()) + forms::TitleBarHeight);
    }
}

void QtForm::WheelTurned(int delta) {
    if (const std::int16_t turn = wheel_.Add(delta); turn != 0) {
        desktop_.Windows().SendWheel(procedure_.Handle(), turn);
    }
}

// Some desktops tell no position outside the program's windows, but that the pointer has left; while a button
// of the mouse is held it is the other way round.
bool QtForm::PointerIsOver(const forms::Control& control) {
    const QWidget* widget = WidgetOf(control);
    return widget != nullptr && widget->isVisible() && widget->underMouse() &&
           widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}

// The window's own colour needs no filling.
void QtForm::Colour() {
    if (form_.BackColor() != forms::colour::ButtonFace) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Window, ToQColor(form_.BackColor(), palette));
        area_->setPalette(palette);
        area_->setAutoFillBackground(true);
    }
}

void QtForm::ThemeChanged() {
    Colour();
    for (const auto& control : controls_) {
        control->Mirror(forms::Aspect::Colours);
    }
}

} // namespace desktop::qt
