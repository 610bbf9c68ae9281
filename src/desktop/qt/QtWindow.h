#pragma once

#include <QWidget>

namespace desktop::qt {

class QtForm;

/// The top-level widget of a form.
class QtWindow final : public QWidget {
  public:
    QtWindow(QtForm& form, Qt::WindowFlags flags);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QtForm& form_;
};

} // namespace desktop::qt
