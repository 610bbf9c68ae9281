#pragma once

#include <QPointer>
#include <QWidget>

namespace desktop::qt {

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

} // namespace desktop::qt
