#pragma once

#include <QByteArray>
#include <QMap>

namespace desktop::qt {

/// A TrueType font as its tables, by their tags, and the file that they make.
class TrueTypeFile {
  public:
    /// A table without bytes is left out.
    void Set(const QByteArray& tag, const QByteArray& table);
    QByteArray Table(const QByteArray& tag) const { return tables_.value(tag); }

    QByteArray Bytes() const;

  private:
    QMap<QByteArray, QByteArray> tables_; // a file has them in the order of their tags
};

/// The number of 16 bits at a place in a table; 0 beyond its end.
quint16 ReadU16(const QByteArray& table, qsizetype at);
/// Does nothing beyond the end of the table.
void WriteU16(QByteArray& table, qsizetype at, int value);
void AppendU16(QByteArray& table, int value);
void AppendU32(QByteArray& table, qsizetype value);

} // namespace desktop::qt
