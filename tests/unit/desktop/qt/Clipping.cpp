#include "unit/desktop/qt/Clipping.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "unit/desktop/qt/Window.h"

namespace window {

namespace {

// What a frame takes of a button or a box at least, both sides together.
constexpr int FrameDots = 6;

QSize Needed(const QWidget* widget) {
    const QFontMetrics metrics = widget->fontMetrics();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const QRect room(0, 0, label->contentsRect().width(), QWIDGETSIZE_MAX);
        const QSize text = metrics.boundingRect(room, Qt::TextWordWrap, label->text()).size();
        return {text.width(), text.height() + label->contentsMargins().top()};
    }
    if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
        return metrics.size(Qt::TextShowMnemonic, button->text()) + QSize(FrameDots, FrameDots);
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget);
        button && !button->text().isEmpty()) {
        return button->sizeHint();
    }
    if (qobject_cast<const QLineEdit*>(widget) != nullptr) {
        return {0, metrics.height() + FrameDots};
    }
    return {0, 0};
}

std::string Text(const QSize& size) {
    return std::to_string(size.width()) + "x" + std::to_string(size.height());
}

} // namespace

std::vector<std::string> Clipped(const QString& form) {
    std::vector<std::string> found;
    for (const QWidget* widget : Of(form)->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->objectName().isEmpty()) {
            continue;
        }
        const QSize needed = Needed(widget);
        const bool small = needed.width() > widget->width() || needed.height() > widget->height();
        const bool outside = needed.isValid() && needed.height() > 0 &&
                             !widget->parentWidget()->rect().contains(widget->geometry());
        if (small || outside) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            found.push_back(widget->objectName().toStdString() + " needs " + Text(needed) + " has " +
                            Text(widget->size()) + (label ? ": " + label->text().toStdString() : ""));
        }
    }
    return found;
}

} // namespace window
