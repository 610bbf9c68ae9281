#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QString>

namespace desktop::qt {

/// A folder of what belongs to the program, named from the one that it stands in itself: the whole may stand
/// anywhere.
inline QDir FromProgram(const char* folder) {
    return QDir(QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(folder)));
}

} // namespace desktop::qt
