#include "desktop/qt/TrueTypeFile.h"

#include <QtEndian>

namespace desktop::qt {

namespace {

constexpr quint32 Version = 0x00010000;
constexpr int HeaderSize = 12;
constexpr int RecordSize = 16;

// In the table "head": what makes the sum over the whole file the one that is expected.
constexpr qsizetype AdjustmentAt = 8;
constexpr quint32 ExpectedSum = 0xB1B0AFBA;

qsizetype Padded(qsizetype size) {
    return (size + 3) / 4 * 4;
}

quint32 Sum(const QByteArray& padded) {
    quint32 sum = 0;
    for (qsizetype at = 0; at < padded.size(); at += 4) {
        sum += qFromBigEndian<quint32>(padded.constData() + at);
    }
    return sum;
}

void WriteU32(QByteArray& table, qsizetype at, quint32 value) {
    qToBigEndian(value, table.data() + at);
}

} // namespace

quint16 ReadU16(const QByteArray& table, qsizetype at) {
    return at + 2 <= table.size() ? qFromBigEndian<quint16>(table.constData() + at) : quint16{0};
}

void WriteU16(QByteArray& table, qsizetype at, int value) {
    if (at + 2 <= table.size()) {
        qToBigEndian(static_cast<quint16>(value), table.data() + at);
    }
}

void AppendU16(QByteArray& table, int value) {
    table.resize(table.size() + 2);
    WriteU16(table, table.size() - 2, value);
}

void AppendU32(QByteArray& table, qsizetype value) {
    table.resize(table.size() + 4);
    WriteU32(table, table.size() - 4, static_cast<quint32>(value));
}

void TrueTypeFile::Set(const QByteArray& tag, const QByteArray& table) {
    if (table.isEmpty()) {
        tables_.remove(tag);
    } else {
        tables_[tag] = table;
    }
}

QByteArray TrueTypeFile::Bytes() const {
    const auto count = static_cast<int>(tables_.size());
    int log = 0;
    while (2 << log <= count) {
        ++log;
    }
    QByteArray header;
    AppendU32(header, Version);
    AppendU16(header, count);
    AppendU16(header, RecordSize << log);
    AppendU16(header, log);
    AppendU16(header, RecordSize * count - (RecordSize << log));

    QByteArray body;
    qsizetype headAt = -1;
    const int start = HeaderSize + RecordSize * count;
    for (auto table = tables_.begin(); table != tables_.end(); ++table) {
        QByteArray bytes = table.value();
        bytes.resize(Padded(bytes.size()), '\0');
        if (table.key() == "head" && bytes.size() >= AdjustmentAt + 4) {
            headAt = start + body.size();
            WriteU32(bytes, AdjustmentAt, 0);
        }
        header += table.key();
        AppendU32(header, Sum(bytes));
        AppendU32(header, start + body.size());
        AppendU32(header, table.value().size());
        body += bytes;
    }
    QByteArray file = header + body;
    if (headAt >= 0) {
        WriteU32(file, headAt + AdjustmentAt, ExpectedSum - Sum(file));
    }
    return file;
}

} // namespace desktop::qt
