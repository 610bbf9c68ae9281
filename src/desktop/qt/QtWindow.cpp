#include "desktop/qt/QtWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWheelEvent>

#include "desktop/qt/Guarded.h"
#include "desktop/qt/QtForm.h"

namespace desktop::qt {

QtWindow::QtWindow(QtForm& form, Qt::WindowFlags flags) : QWidget(nullptr, flags), form_(form) {}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(Guarded(false, [this] { return form_.CloseRequested(); }));
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
    Guarded([&] { form_.KeyPressed(*event, nullptr); });
}

void QtWindow::wheelEvent(QWheelEvent* event) {
    Guarded([&] { form_.WheelTurned(event->angleDelta().y()); }); // of a turn to the side this is 0
}

void QtWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Guarded([this] { form_.Resized(); });
}

bool QtWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        Guarded([this] { form_.ThemeChanged(); });
    }
    return QWidget::event(event);
}

} // namespace desktop::qt
