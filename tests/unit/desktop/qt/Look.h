#pragma once

#include <string>
#include <vector>

#include <QColor>
#include <QImage>
#include <QWidget>

/// How what a window shows looks, by the dots of its picture.
namespace window {

/// A text of a shown window: the colour that it stands on, and the dot of it that stands out most.
struct PaintedText {
    const QWidget* Widget = nullptr;
    QColor Background;
    QColor Ink;
    double Contrast = 1;
};

/// Every text of a shown window, of labels, buttons, boxes, lists and bars.
std::vector<PaintedText> PaintedTexts(const QString& form);

/// The texts whose contrast is below what can be read: 4.5 if the control is enabled, 1.5 if not.
std::vector<std::string> Unreadable(const QString& form);

/// How many dots of a control's place differ clearly between two pictures of its window.
int Differing(const QWidget* widget, const QImage& before, const QImage& after);

/// The picture of a shown window.
QImage PictureOf(const QString& form);

/// Contrast of two colours on the screen, 1 to 21.
double ContrastOf(const QColor& one, const QColor& other);

} // namespace window
