#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QStringList>

#include <optional>

namespace Sqlite2 {

/// What each byte of a sound version 2 file is for, read from the bytes alone. The file has no free
/// pages, views or triggers, and its records are short of 64 KB.
class ByteMap final
{
public:
    enum class Use {
        Mark,      ///< the header's text and byte-order mark
        Structure, ///< links, sizes and counts of the page layer
        Unused,    ///< what nothing reads
        Index,     ///< an entry of an index
        Schema,    ///< an entry of `sqlite_master`
        RowKey,    ///< the row id of `row`
        Offsets,   ///< where the values of `row` stand
        Value      ///< the value of `row` in `column`, or the NUL behind it
    };

    struct Byte
    {
        Use use = Use::Unused;
        QByteArray table;
        int row = -1;    ///< from 0, in the order of the row ids
        int column = -1; ///< from 0; for Use::RowKey that of the integer primary key, or −1
    };

    explicit ByteMap(QByteArray fileBytes);

    const Byte &At(qsizetype offset) const { return uses[offset]; }

private:
    struct Tree
    {
        Use use; ///< of its entries; Use::Value for a table
        QByteArray table;
        int keyColumn = -1;
        int rowCount = 0;
    };

    quint32 Number(qsizetype offset, int size) const;
    void AddPage(quint32 page, Tree &tree);
    void AddEntry(qsizetype cell, Tree &tree);
    QList<qsizetype> PayloadPositions(qsizetype cell, qsizetype size);
    void AddRow(const QList<qsizetype> &positions, const Tree &tree);
    void Set(qsizetype offset, qsizetype size, Use use);

    QByteArray bytes;
    bool isBigEndian;
    QList<Byte> uses;
};

/// All tables of a file: their rows in the order of the row ids, NULL as "NULL".
using TableTexts = QMap<QByteArray, QList<QStringList>>;

/// Why this cannot be what is read after damage to a byte of this use, nothing standing for a file
/// that is refused; empty when it can. Damage to a text, which no check of the format notices, may
/// change that text and nothing else. Damage that concerns no row must not cost one.
QString WrongAfterDamage(const ByteMap::Byte &byte, const TableTexts &sound,
                         const std::optional<TableTexts> &read);

} // namespace Sqlite2
