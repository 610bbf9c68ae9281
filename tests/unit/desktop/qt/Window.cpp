#include "unit/desktop/qt/Window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEnterEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <gtest/gtest.h>

namespace window {

namespace {

constexpr int PatienceMs = 60000;

} // namespace

QWidget* Of(const QString& form) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == form && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QWidget* Find(const QString& form, const QString& control) {
    QWidget* top = Of(form);
    QWidget* found = top == nullptr ? nullptr : top->findChild<QWidget*>(control);
    EXPECT_NE(found, nullptr) << form.toStdString() << "." << control.toStdString();
    return found;
}

bool WaitFor(const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > PatienceMs) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

void WhenShown(const QString& form, const std::function<void()>& act) {
    QTimer::singleShot(1, qApp, [form, act] {
        if (Of(form) == nullptr) {
            WhenShown(form, act);
            return;
        }
        Settle();
        act();
    });
}

void Settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
    }
}

void Click(QWidget* widget) {
    Click(widget, widget->rect().center());
}

void Click(QWidget* widget, const QPoint& at) {
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                      widget->mapTo(widget->window(), at));
    Settle();
}

void PointAt(QWidget* widget) {
    QCursor::setPos(widget->window()->mapToGlobal(QPoint(1, 1))); // it may be there since the last window
    Settle();
    const QPoint middle = widget->rect().center();
    QCursor::setPos(widget->mapToGlobal(middle));
    Settle();
    // At double density the platform of the tests looks for the window in the wrong place, and finds none.
    if (!widget->underMouse()) {
        QEnterEvent enter(middle, widget->mapTo(widget->window(), middle), widget->mapToGlobal(middle));
        QCoreApplication::sendEvent(widget, &enter);
    }
}

void Wheel(QWidget* widget, const QPoint& turn) {
    const QPoint middle = widget->visibleRegion().boundingRect().center();
    const QPointF at = widget->mapTo(widget->window(), QPointF(middle));
    QWheelEvent wheel(at, widget->mapToGlobal(QPointF(middle)), {}, turn, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    // Only an event from outside goes on to the widgets behind.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(widget->window()->windowHandle(), &wheel);
    Settle();
}

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const bool ready = WaitFor([] {
        const QWidget* modal = QApplication::activeModalWidget();
        return QApplication::activeWindow() != nullptr &&
               (modal == nullptr || modal == QApplication::activeWindow());
    });
    if (!ready) {
        ADD_FAILURE() << "no window takes keys";
        return;
    }
    QWidget* active = QApplication::activeWindow();
    QTest::keyClick(active->windowHandle(), key, modifiers);
    Settle();
}

void Type(const QString& text) {
    for (const QChar character : text) {
        QWidget* target = QApplication::focusWidget();
        if (target == nullptr) {
            ADD_FAILURE() << "nothing has the focus";
            return;
        }
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(target, &press);
        QApplication::sendEvent(target, &release);
    }
    Settle();
}

MessageBoxes::MessageBoxes() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(1);
}

void MessageBoxes::Answer() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible() || box->property("seen").toBool()) {
        return;
    }
    box->setProperty("seen", true);
    seen_.push_back({box->windowTitle(), box->text(), box->button(QMessageBox::Ok)->text(), box->icon()});
    if (OnShow) {
        OnShow();
    }
    QTest::keyClick(box, Qt::Key_Return);
}

} // namespace window
