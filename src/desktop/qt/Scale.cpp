#include "desktop/qt/Scale.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QFontMetricsF>

#include "forms/DesignScreen.h"

namespace desktop::qt {

namespace {

using forms::DesignCharacterWidth;
using forms::DesignLineHeight;

double MeasuredFactor() {
    const QFontMetricsF metrics(QApplication::font());
    const QString sample = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const double width = metrics.horizontalAdvance(sample) / static_cast<double>(sample.size());
    return std::max({1.0, width / DesignCharacterWidth, metrics.height() / DesignLineHeight});
}

} // namespace

double ScaleFactor() {
    static const double factor = MeasuredFactor();
    return factor;
}

double DotsPerTwip() {
    return ScaleFactor() / forms::TwipsPerDesignDot;
}

int ToDots(double twips) {
    return static_cast<int>(std::lround(twips * DotsPerTwip()));
}

double ToTwips(double dots) {
    return dots / DotsPerTwip();
}

QRect ToDots(double left, double top, double width, double height) {
    const QPoint start(ToDots(left), ToDots(top));
    return {start, QSize(ToDots(left + width) - start.x(), ToDots(top + height) - start.y())};
}

} // namespace desktop::qt
