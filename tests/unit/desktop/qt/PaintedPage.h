#pragma once

#include <cmath>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "desktop/qt/QtBitmaps.h"
#include "desktop/qt/Scale.h"

/// A page as it is on a screen of so many dots to the logical one, painted anew.
inline QImage Painted(const machine::PageBitmap& page, double density = qGuiApp->devicePixelRatio()) {
    const double dots = desktop::qt::DotsPerTwip() * density;
    QImage picture(static_cast<int>(std::ceil(page.Width() * dots)),
                   static_cast<int>(std::ceil(page.Height() * dots)), QImage::Format_RGB32);
    picture.setDevicePixelRatio(density);
    QPainter painter(&picture);
    static_cast<const desktop::qt::QtPageBitmap&>(page).Paint(painter,
                                                              QRectF(QPointF(0, 0), QSizeF(picture.size())));
    return picture;
}
