#include "platform/qt/QtWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWheelEvent>

#include "platform/qt/QtForm.h"

namespace platform::qt {

QtWindow::QtWindow(QtForm& form, Qt::WindowFlags flags) : QWidget(nullptr, flags), form_(form) {}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(form_.CloseRequested());
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
    form_.KeyPressed(*event, nullptr);
}

void QtWindow::wheelEvent(QWheelEvent* event) {
    form_.WheelTurned(event->angleDelta().y());
}

void QtWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    form_.Resized();
}

bool QtWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        form_.ThemeChanged();
    }
    return QWidget::event(event);
}

} // namespace platform::qt
