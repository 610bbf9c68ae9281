#pragma once

#include <optional>

#include <QString>

namespace desktop::qt {

/// What the user is asked a file for.
struct FileKind {
    QString Title;  ///< of the window
    QString Filter; ///< the kinds of files on offer, as the toolkit writes them
    QString Ending; ///< with its point, for a name without one
};

/// Asks for the name of a file to write, in a window of the desktop's own kind, with `proposed` as the name
/// without a folder. It adds the ending, and has the user confirm to replace a file. Nothing if the user
/// wants none.
std::optional<QString> AskForFile(const QString& proposed, const FileKind& kind);

} // namespace desktop::qt
