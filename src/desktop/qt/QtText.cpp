#include "desktop/qt/QtText.h"

#include <QTextDocument>

namespace desktop::qt {

QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) {
        return text;
    }
    return QStringLiteral("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped();
}

} // namespace desktop::qt
