#pragma once

#include <QByteArray>

class QRawFont;

namespace desktop::qt {

/// A bold face for a family whose own one has the outlines of the plain face, only further apart: a TrueType
/// file with the bold face's names, advances and line metrics, and with outlines that are bold: those of
/// the scripts of Europe and of signs. Empty where the bold face is bold already, and where the two are no
/// TrueType fonts.
QByteArray MakeBold(const QRawFont& plain, const QRawFont& bold);

} // namespace desktop::qt
