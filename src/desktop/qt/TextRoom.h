#pragma once

#include <QFontMetricsF>
#include <QSize>
#include <QString>

namespace desktop::qt {

/// Whether a text surely has room in a box, its lines broken at blanks. Told by the widths of its characters,
/// without laying it out, which takes many times as long; false where it is a near thing.
bool HasAmpleRoom(const QString& text, const QFontMetricsF& metrics, const QSize& box);

} // namespace desktop::qt
