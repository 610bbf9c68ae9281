#include "desktop/qt/QtText.h"

#include <QTextDocument>
#include <algorithm>

namespace desktop::qt {

namespace {

bool IsPair(const QString& text, int at) {
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

} // namespace

QString PlainToolTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) {
        return text;
    }
    return QStringLiteral("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped();
}

int CharactersIn(const QString& text, int units) {
    const int end = std::min(units, static_cast<int>(text.size()));
    int characters = 0;
    for (int at = 0; at < end; at += IsPair(text, at) ? 2 : 1) {
        ++characters;
    }
    return characters;
}

int UnitsOf(const QString& text, int characters) {
    int at = 0;
    for (int count = 0; count < characters && at < text.size(); ++count) {
        at += IsPair(text, at) ? 2 : 1;
    }
    return at;
}

} // namespace desktop::qt
