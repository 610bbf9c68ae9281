#pragma once

#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QString>

namespace desktop::qt {

/// One of the program's own pictures as vectors, with its signs in colours that stand out from this
/// background; empty if there is no such picture.
QByteArray ThemedPicture(const QString& name, const QColor& background);

/// A picture, and the one that takes its place under the mouse, as the icon of a button: sharp at each size
/// and density.
QIcon ThemedIcon(const QString& name, const QString& lit, const QColor& background);

/// A picture in its own colours as the icon of a window. It is not read before it is drawn, and unlike the
/// toolkit's own icons of such files it needs no plugin.
QIcon PictureIcon(const QString& name);

} // namespace desktop::qt
