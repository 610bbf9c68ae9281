#pragma once

#include <string>
#include <string_view>

#include <QString>

/// The program's texts are UTF-8, the toolkit's UTF-16.
namespace desktop::qt {

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The units of a text, for what counts them (forms/TextUnits.h). As long as the text lives.
inline std::u16string_view UnitsIn(const QString& text) {
    return {QStringView(text).utf16(), static_cast<std::size_t>(text.size())};
}

inline std::string FromQString(const QString& text) {
    return text.toStdString();
}

/// For a text from outside that becomes a tool tip: the toolkit shows that as it is written, and does not
/// take its marks for a layout with pictures of files.
QString PlainToolTip(const QString& text);

} // namespace desktop::qt
