#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QTimer>
#include <QWidget>

/// How a test sees and drives real windows.
namespace window {

/// The shown window of a form; nullptr if there is none.
QWidget* Of(const QString& form);

/// A widget by the name of its control, "UserText(70)"; fails the test if the window has none.
QWidget* Find(const QString& form, const QString& control);

template <class WidgetType>
WidgetType* Find(const QString& form, const QString& control) {
    return qobject_cast<WidgetType*>(Find(form, control));
}

/// Handles waiting events until `condition` holds. False if it does not come to hold in time.
bool WaitFor(const std::function<bool()>& condition);

/// Runs `act` once the form's window is on show, from whatever message loop runs then.
void WhenShown(const QString& form, const std::function<void()>& act);

/// Handles what waits now, queued calls included.
void Settle();

/// A press and release of the left button in the middle of a widget, as the window system reports it.
void Click(QWidget* widget);
void Click(QWidget* widget, const QPoint& at);

/// The pointer comes to rest in the middle of a widget.
void PointAt(QWidget* widget);

/// A turn of the mouse wheel over the middle of what of a widget can be seen, in eighths of a degree.
void Wheel(QWidget* widget, const QPoint& turn);

/// A key to whatever has the focus in the active window.
void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const QString& text);

/// While it lives, each message box is noted and answered with Enter.
class MessageBoxes {
  public:
    MessageBoxes();

    struct Seen {
        QString Title;
        QString Text;
        QString Button;
        int Icon;
    };
    const std::vector<Seen>& All() const { return seen_; }

    /// Runs while a box is on show, before it is answered.
    std::function<void()> OnShow;

  private:
    void Answer();

    QTimer timer_;
    std::vector<Seen> seen_;
};

} // namespace window
