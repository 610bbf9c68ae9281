#include "desktop/qt/TextRoom.h"

#include <algorithm>
#include <cmath>

namespace desktop::qt {

namespace {

/// By how much a text that is laid out may be wider than its characters one by one.
constexpr double Slack = 1.05;

/// Whether a character stands for itself: no end of line, no sign that others change.
bool IsPlain(QChar c) {
    return c >= u' ' && c < u'\u0100' && !(c >= u'\u007F' && c <= u'\u00A0') && c != u'\u00AD';
}

} // namespace

bool HasAmpleRoom(const QString& text, const QFontMetricsF& metrics, const QSize& box) {
    double width = 0;
    double word = 0;
    double longest = 0;
    for (const QChar c : text) {
        if (!IsPlain(c)) {
            return false;
        }
        const double advance = metrics.horizontalAdvance(c);
        width += advance;
        word = c == u' ' ? 0.0 : word + advance;
        longest = std::max(longest, word);
    }
    const double lines = std::floor(box.height() / (std::ceil(metrics.lineSpacing()) + 1));
    // The word that begins a line did not fit on the line before, so of that less than a word is empty.
    return lines > 0 &&
           (width * Slack < box.width() || width * Slack < lines * (box.width() - longest * Slack));
}

} // namespace desktop::qt
