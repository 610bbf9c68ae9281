#pragma once

#include <QString>
#include <string>
#include <string_view>

/// The program's texts are UTF-8 and their positions count characters; the toolkit's are UTF-16 and its
/// positions count units, of which a character outside the basic plane takes two.
namespace desktop::qt {

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQString(const QString& text) {
    return text.toStdString();
}

/// For a text from outside that becomes a tool tip: the toolkit shows that as it is written, and does not
/// take its marks for a layout with pictures of files.
QString PlainToolTip(const QString& text);

/// Number of characters in the first `units` units.
int CharactersIn(const QString& text, int units);

/// Number of units that the first `characters` characters take.
int UnitsOf(const QString& text, int characters);

} // namespace desktop::qt
