#include "desktop/qt/QtText.h"

#include <QTextDocument>

namespace desktop::qt {

namespace {

/// Characters; what is longer is written as a paragraph, which the toolkit breaks into lines.
constexpr qsizetype LongestLine = 80;

} // namespace

QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text) && text.size() <= LongestLine) {
        return text;
    }
    return QStringLiteral("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped();
}

} // namespace desktop::qt
