#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QImage>
#include <QString>
#include <QStringList>

/// Reads a PDF with poppler's tools, so what a test sees is what another program makes of the file.
namespace pdf {

/// A word with its box; millimetres from the top left of the sheet.
struct Word {
    int Page = 0; ///< from 1 on
    std::string Text;
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

std::vector<Word> Words(const QString& file);

struct Font {
    std::string Name;
    bool Embedded = false;
};
std::vector<Font> Fonts(const QString& file);

/// The text of the whole file, as one copies it out of a viewer.
std::string Text(const QString& file);

/// The same by MuPDF, which shows every character that the file tells. Nothing if it is not installed.
std::optional<std::string> TextByMuPdf(const QString& file);

/// A font's table from glyphs to characters, as the file has it, for each font.
std::vector<std::string> CharacterTables(const QString& file);

/// A line of pdfinfo, such as "Title" or "Page size"; empty if it is missing.
std::string Info(const QString& file, const std::string& name);

/// A box; millimetres from the top left of the sheet.
struct Box {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
};

/// A square of a page's top left corner as a picture; `side` is in millimetres.
QImage Corner(const QString& file, int page, int dotsPerInch, double side);

/// The box around all that is not white.
Box Ink(const QImage& picture, int dotsPerInch);

} // namespace pdf
