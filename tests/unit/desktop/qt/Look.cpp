#include "unit/desktop/qt/Look.h"

#include <algorithm>
#include <map>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

#include "desktop/qt/QtColours.h"
#include "forms/Contrast.h"
#include "unit/desktop/qt/Window.h"

namespace window {

namespace {

constexpr double ContrastOfDisabled = 1.5;
// From here on two dots are seen to be different ones.
constexpr double ContrastOfChange = 1.25;

/// Where a widget has its text, without frames and marks; empty for one without a text.
QRect TextPlace(const QWidget* widget) {
    constexpr int frame = 4;
    const QRect inside = widget->rect().adjusted(frame, frame, -frame, -frame);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        return label->text().isEmpty() ? QRect() : label->contentsRect();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        if (button->text().isEmpty()) {
            return {};
        }
        QStyleOptionButton option;
        option.initFrom(button);
        if (qobject_cast<const QRadioButton*>(button) != nullptr) {
            return button->style()->subElementRect(QStyle::SE_RadioButtonContents, &option, button);
        }
        if (qobject_cast<const QCheckBox*>(button) != nullptr) {
            return button->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, button);
        }
        return inside;
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
        return edit->text().isEmpty() ? QRect() : inside;
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.subControls = QStyle::SC_All;
        return combo->currentText().isEmpty()
                   ? QRect()
                   : combo->style()
                         ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                         .intersected(inside);
    }
    if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
        return list->count() < 2 ? QRect() : list->visualItemRect(list->item(1)).intersected(inside);
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
        return bar->actions().isEmpty() ? QRect() : bar->actionGeometry(bar->actions()[0]);
    }
    return {};
}

QRect InPicture(const QWidget* widget, const QRect& place, const QImage& picture) {
    const double density = picture.devicePixelRatio();
    const QRect visible = place.intersected(widget->visibleRegion().boundingRect());
    const QPoint start = widget->mapTo(widget->window(), visible.topLeft());
    return QRect((QPointF(start) * density).toPoint(), visible.size() * density).intersected(picture.rect());
}

PaintedText Painted(const QWidget* widget, const QImage& picture, const QRect& area) {
    std::map<QRgb, int> colours;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            ++colours[picture.pixel(x, y)];
        }
    }
    PaintedText text;
    text.Widget = widget;
    text.Background =
        QColor::fromRgb(std::max_element(colours.begin(), colours.end(), [](const auto& a, const auto& b) {
                            return a.second < b.second;
                        })->first);
    for (const auto& [colour, count] : colours) {
        const double contrast = ContrastOf(QColor::fromRgb(colour), text.Background);
        if (contrast >= text.Contrast) {
            text.Contrast = contrast;
            text.Ink = QColor::fromRgb(colour);
        }
    }
    return text;
}

} // namespace

double ContrastOf(const QColor& one, const QColor& other) {
    return forms::Contrast(desktop::qt::FromQColor(one), desktop::qt::FromQColor(other));
}

QImage PictureOf(const QString& form) {
    return Of(form)->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

std::vector<PaintedText> PaintedTexts(const QString& form) {
    std::vector<PaintedText> found;
    const QImage picture = PictureOf(form);
    for (const QWidget* widget : Of(form)->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->objectName().isEmpty() || TextPlace(widget).isEmpty()) {
            continue;
        }
        const QRect area = InPicture(widget, TextPlace(widget), picture);
        if (!area.isEmpty()) {
            found.push_back(Painted(widget, picture, area));
        }
    }
    return found;
}

std::vector<std::string> Unreadable(const QString& form) {
    std::vector<std::string> found;
    for (const PaintedText& text : PaintedTexts(form)) {
        const double least = text.Widget->isEnabled() ? forms::ContrastOfText : ContrastOfDisabled;
        if (text.Contrast < least) {
            found.push_back(text.Widget->objectName().toStdString() + " " + text.Ink.name().toStdString() +
                            " on " + text.Background.name().toStdString() + ": " +
                            std::to_string(text.Contrast));
        }
    }
    return found;
}

int Differing(const QWidget* widget, const QImage& before, const QImage& after) {
    int count = 0;
    constexpr int around = 3;
    const QRect area = InPicture(widget, widget->rect(), before).adjusted(-around, -around, around, around);
    const QRect within = area.intersected(before.rect());
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            const QColor one = before.pixelColor(x, y);
            const QColor other = after.pixelColor(x, y);
            count += ContrastOf(one, other) >= ContrastOfChange ? 1 : 0;
        }
    }
    return count;
}

} // namespace window
