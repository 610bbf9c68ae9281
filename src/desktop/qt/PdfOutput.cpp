#include "desktop/qt/PdfOutput.h"

#include <QByteArrayView>

namespace desktop::qt {

namespace {

// A table from a font's glyphs to characters, which the toolkit writes in one piece and does not compress.
constexpr QByteArrayView TableStart = "/CIDInit ";
constexpr QByteArrayView RangesStart = "beginbfrange";

// Of the same length, so that everything in the file stays where it is.
constexpr QByteArrayView Tab = "<0009>";
constexpr QByteArrayView Blank = "<0020>";

/// A line gives the characters of a range of glyphs, as one list in brackets or, where they follow on each
/// other, the first of them behind the range.
void MendLine(QByteArray& table, qsizetype start, qsizetype end) {
    const qsizetype list = table.indexOf('[', start);
    const bool isList = list >= 0 && list < end;
    qsizetype at = isList ? list : table.lastIndexOf('<', end);
    while ((at = table.indexOf(Tab, at)) >= start && at < end) {
        table.replace(at, Tab.size(), Blank);
    }
}

QByteArray WithBlanks(QByteArray table) {
    qsizetype start = table.indexOf(RangesStart);
    while (start >= 0 && (start = table.indexOf('\n', start + 1)) >= 0) {
        const qsizetype end = table.indexOf('\n', start + 1);
        MendLine(table, start, end < 0 ? table.size() : end);
    }
    return table;
}

} // namespace

PdfOutput::PdfOutput(QIODevice& output) : output_(output) {
    open(WriteOnly | Unbuffered);
}

qint64 PdfOutput::readData(char* /*data*/, qint64 /*length*/) {
    return -1;
}

qint64 PdfOutput::writeData(const char* data, qint64 length) {
    const bool isTable = QByteArrayView(data, length).startsWith(TableStart);
    const qint64 taken =
        isTable ? output_.write(WithBlanks(QByteArray(data, length))) : output_.write(data, length);
    hasFailed_ = hasFailed_ || taken != length;
    return taken;
}

} // namespace desktop::qt
