#include "Windows.h"

#include <algorithm>

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QTest>
#include <QWindow>

#include "Target.h"

namespace scenario::windows {

namespace {

constexpr int PatienceMs = 2000;

/// The window that takes input has the keyboard, or there is none.
bool KeyboardIsSettled() {
    const QWidgetList all = QApplication::topLevelWidgets();
    const QWidget* active = QApplication::activeWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    return std::none_of(all.begin(), all.end(), [](const QWidget* widget) { return widget->isVisible(); }) ||
           (active != nullptr && (modal == nullptr || modal == active));
}

QPoint InWindow(const QWidget* widget, const QPoint& at) {
    return widget->mapTo(widget->window(), at);
}

} // namespace

QWidget* Of(const forms::Form& form) {
    return QWidget::find(static_cast<WId>(form.hWnd()));
}

QWidget* Of(const forms::Control& control) {
    const QWidget* window = Of(control.Owner());
    return window == nullptr ? nullptr
                             : window->findChild<QWidget*>(QString::fromStdString(FullName(control)));
}

QWidget* PartOf(const forms::Control& control, int number) {
    const QWidget* whole = Of(control);
    const QString name = QStringLiteral("%1(%2)").arg(QString::fromStdString(control.Name())).arg(number);
    return whole == nullptr ? nullptr : whole->findChild<QWidget*>(name);
}

bool Usable(const QWidget* widget) {
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

void Settle() {
    constexpr int rounds = 3; // a queued call may queue another
    for (int round = 0; round < rounds; ++round) {
        QCoreApplication::processEvents();
    }
    QElapsedTimer clock;
    clock.start();
    while (!KeyboardIsSettled() && clock.elapsed() < PatienceMs) {
        QCoreApplication::processEvents();
    }
}

void Press(QWidget* widget, const QPoint& at) {
    QTest::mousePress(widget->window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
    Settle();
}

void Release(QWidget* widget, const QPoint& at) {
    QTest::mouseRelease(widget->window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
    Settle();
}

void Click(QWidget* widget, const QPoint& at) {
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
    Settle();
}

// The platform without a screen tells the move to the first window at that place, which may lie behind.
void PointAt(const QWidget* widget, const QPoint& at) {
    QCursor::setPos(widget->mapToGlobal(at));
    QTest::mouseMove(widget->window()->windowHandle(), InWindow(widget, at));
    Settle();
}

void Key(QWidget* widget, Qt::Key key, const QString& text) {
    QWindow* window = widget->window()->windowHandle();
    if (text.isEmpty()) {
        QTest::keyClick(window, key);
    } else {
        QTest::sendKeyEvent(QTest::Click, window, key, text, Qt::NoModifier);
    }
    Settle();
}

bool Close(const forms::Form& form) {
    const bool closed = Of(form)->close();
    Settle();
    return closed;
}

} // namespace scenario::windows
