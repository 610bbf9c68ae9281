// The keyboard and the focus of a form's window.
#include <algorithm>
#include <array>

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QTimer>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtColours.h"
#include "desktop/qt/QtForm.h"
#include "forms/Contrast.h"
#include "forms/Desktop.h"
#include "forms/Form.h"
#include "forms/KeyRouting.h"

namespace desktop::qt {

namespace {

struct KeyCode {
    int Key;
    int VirtualKey;
};

constexpr std::array<KeyCode, 16> KeyCodes{{
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
    {Qt::Key_Delete, forms::key::Delete},
    {Qt::Key_F1, forms::key::F1},
}};

int VirtualKeyOf(const QKeyEvent& event) {
    for (const KeyCode& code : KeyCodes) {
        if (code.Key == event.key()) {
            return code.VirtualKey;
        }
    }
    return 0;
}

forms::KeyPress::With HeldWith(const QKeyEvent& event) {
    using With = forms::KeyPress::With;
    const auto held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return held == 0 ? With::Nothing : held == Qt::ControlModifier ? With::Ctrl : With::Other;
}

// Of the ring.
constexpr int Thickness = 2;
constexpr double Rounding = 3;

/// What of a control is seen: an option is often wider than its text.
QRect SeenOf(const QWidget* control) {
    QSize size = control->size();
    if (qobject_cast<const QRadioButton*>(control) != nullptr ||
        qobject_cast<const QCheckBox*>(control) != nullptr) {
        size.setWidth(std::min(size.width(), control->sizeHint().width() + Thickness));
    }
    return {QPoint(0, 0), size};
}

} // namespace

/// A ring around the control that has the focus, for a user of the keyboard. The toolkit's own style draws a
/// button that Enter presses just like one with the focus, and under a dark theme a mark that hardly differs.
/// No ring with another style, which has marks of its own.
class FocusRing final : public QWidget {
  public:
    explicit FocusRing(QWidget* window);

    /// The control is a descendant of the ring's window; nullptr for none.
    void Surround(QWidget* control);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Follow();
    void Paint();

    QPointer<QWidget> control_;
};

FocusRing::FocusRing(QWidget* window) : QWidget(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void FocusRing::Surround(QWidget* control) {
    if (control_ != nullptr) {
        control_->removeEventFilter(this);
    }
    control_ = QApplication::style()->name() == QLatin1String("fusion") ? control : nullptr;
    if (control_ != nullptr) {
        control_->installEventFilter(this);
    }
    Follow();
}

void FocusRing::Follow() {
    if (control_ == nullptr || !control_->isVisible()) {
        hide();
        return;
    }
    const QRect seen = SeenOf(control_);
    const QPoint start = control_->mapTo(parentWidget(), seen.topLeft());
    setGeometry(QRect(start, seen.size()).adjusted(-Thickness, -Thickness, Thickness, Thickness));
    raise();
    show();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
        GuardedQuietly([this] { Follow(); });
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    GuardedQuietly([this] { Paint(); });
}

void FocusRing::Paint() {
    const QPalette theme = QApplication::palette();
    const forms::Colour colour =
        forms::Readable(FromQColor(theme.color(QPalette::Highlight)),
                        FromQColor(theme.color(QPalette::Window)), forms::ContrastOfPictures);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colour, theme), Thickness));
    constexpr double inset = Thickness / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Rounding, Rounding);
}

bool QtForm::KeyPressed(const QKeyEvent& event, QtControl* control) {
    const forms::KeyPress press{VirtualKeyOf(event), (event.modifiers() & Qt::ShiftModifier) != 0,
                                HeldWith(event), event.isAutoRepeat()};
    const auto toControl = [&] { return control->KeyPressed(event, press.VirtualKey); };
    return forms::RouteKey(form_, press, *this,
                           control == nullptr ? nullptr : std::function<bool()>(toControl));
}

// The ring is made when the user first takes to the Tab key.
void QtForm::ShowFocus() {
    window_->setAttribute(Qt::WA_KeyboardFocusChange);
    if (ring_ == nullptr) {
        ring_ = new FocusRing(window_.get());
        const forms::Control* active = form_.ActiveControl();
        ring_->Surround(active == nullptr ? nullptr : WidgetOf(*active));
    }
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

} // namespace desktop::qt
