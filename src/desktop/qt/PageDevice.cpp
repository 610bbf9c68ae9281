#include "desktop/qt/PageDevice.h"

#include <QGlyphRun>
#include <QPainter>

namespace desktop::qt {

void PageDevice::DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                            std::span<const QPointF> places) {
    DrawGlyphRun(*Painter(), face, glyphs, places);
}

void DrawGlyphRun(QPainter& painter, const QRawFont& face, std::span<const quint32> glyphs,
                  std::span<const QPointF> places) {
    QGlyphRun run;
    run.setRawFont(face);
    run.setRawData(glyphs.data(), places.data(), static_cast<int>(glyphs.size()));
    painter.drawGlyphRun(QPointF(), run);
}

} // namespace desktop::qt
