#include "ByteMap.h"

#include "StructureChecker.h"

#include "sqlite2/Format.h"

#include <algorithm>
#include <stdexcept>

namespace Sqlite2 {

namespace {

constexpr auto LocalBytes = static_cast<qsizetype>(Format::MaxLocalPayload);

/// The position of the column that is declared as the integer primary key; −1 without one.
int KeyColumn(const QByteArray &createTable)
{
    const QByteArrayList declarations = createTable.split(',');
    const auto key = std::ranges::find_if(declarations, [](const QByteArray &declaration) {
        return declaration.contains("INTEGER PRIMARY KEY");
    });
    return key == declarations.end() ? -1 : static_cast<int>(key - declarations.begin());
}

/// The places at which two tables of the same shape differ.
struct Difference
{
    qsizetype row;
    qsizetype column;
};

QList<Difference> DifferencesOf(const QList<QStringList> &sound, const QList<QStringList> &damaged)
{
    QList<Difference> differences;
    for (qsizetype row = 0; row < sound.size(); ++row) {
        for (qsizetype column = 0; column < sound[row].size(); ++column) {
            if (sound[row][column] != damaged[row][column])
                differences.append({row, column});
        }
    }
    return differences;
}

bool HaveSameShape(const QList<QStringList> &sound, const QList<QStringList> &damaged)
{
    return std::ranges::equal(sound, damaged, {}, &QStringList::size, &QStringList::size);
}

bool IsOneCharacterChanged(const QString &sound, const QString &damaged)
{
    if (sound.size() != damaged.size())
        return false;
    const auto [from, to] = std::ranges::mismatch(sound, damaged);
    return std::equal(from + 1, sound.end(), to + 1);
}

/// Whether damage to the byte may have made this difference to its table.
bool IsPossible(const ByteMap::Byte &byte, const Difference &difference,
                const QList<QStringList> &sound, const QList<QStringList> &damaged)
{
    const qsizetype row = difference.row;
    const qsizetype column = difference.column;
    switch (byte.use) {
    case ByteMap::Use::RowKey:
        return row == byte.row && column == byte.column;
    case ByteMap::Use::Offsets:
        return row == byte.row;
    case ByteMap::Use::Value:
        return row == byte.row && column == byte.column &&
               IsOneCharacterChanged(sound[row][column], damaged[row][column]);
    case ByteMap::Use::Schema:
        // A column that is no longer declared as the row id shows what its records hold: nothing.
        return std::ranges::all_of(
            damaged, [&](const QStringList &texts) { return texts[column] == u"NULL"; });
    default:
        return false;
    }
}

} // namespace

ByteMap::ByteMap(QByteArray fileBytes)
    : bytes(std::move(fileBytes))
    , isBigEndian(bytes.mid(Format::ByteOrderMarkOffset, 4) == QByteArray("\xda\xe3\x75\x28", 4))
    , uses(bytes.size())
{
    Set(0, Format::ByteOrderMarkOffset + 4, Use::Mark);
    for (const std::size_t field :
         {Format::FirstFreePageOffset, Format::FreePageCountOffset, Format::FileFormatOffset})
        Set(static_cast<qsizetype>(field), 4, Use::Structure);
    Tree schema{Use::Schema, "sqlite_master"};
    AddPage(Format::MasterRootPage, schema);
    for (const QList<QByteArray> &entry : StructureChecker(bytes).Schema()) {
        const bool isTable = entry[0] == "table";
        Tree tree{isTable ? Use::Value : Use::Index, entry[2], isTable ? KeyColumn(entry[4]) : -1};
        AddPage(entry[3].toUInt(), tree);
    }
}

quint32 ByteMap::Number(qsizetype offset, int size) const
{
    quint32 number = 0;
    for (int i = 0; i < size; ++i)
        number =
            number << 8 | static_cast<uchar>(bytes.at(offset + (isBigEndian ? i : size - 1 - i)));
    return number;
}

void ByteMap::Set(qsizetype offset, qsizetype size, Use use)
{
    for (qsizetype i = offset; i < offset + size; ++i)
        uses[i].use = use;
}

void ByteMap::AddPage(quint32 page, Tree &tree)
{
    const qsizetype start = (page - 1) * PageBytes;
    Set(start, Format::PageHeaderSize, Use::Structure);
    for (quint32 cell = Number(start + 4, 2); cell != 0; cell = Number(start + cell + 6, 2)) {
        if (const quint32 child = Number(start + cell, 4); child != 0)
            AddPage(child, tree);
        AddEntry(start + cell, tree);
    }
    if (const quint32 right = Number(start, 4); right != 0)
        AddPage(right, tree);
    for (quint32 block = Number(start + 6, 2); block != 0; block = Number(start + block + 2, 2))
        Set(start + block, 4, Use::Structure);
}

void ByteMap::AddEntry(qsizetype cell, Tree &tree)
{
    Set(cell, Format::CellHeaderSize, Use::Structure);
    const qsizetype size = Number(cell + 4, 2) + Number(cell + 10, 2);
    const QList<qsizetype> positions = PayloadPositions(cell, size);
    if (tree.use == Use::Value) {
        AddRow(positions, tree);
        ++tree.rowCount;
        return;
    }
    for (const qsizetype position : positions)
        uses[position] = {tree.use, tree.table};
}

QList<qsizetype> ByteMap::PayloadPositions(qsizetype cell, qsizetype size)
{
    QList<qsizetype> positions;
    const auto take = [&](qsizetype begin, qsizetype count) {
        for (qsizetype at = begin; at < begin + count; ++at)
            positions.append(at);
    };
    qsizetype link = cell + qsizetype{Format::CellHeaderSize} + LocalBytes;
    take(link - LocalBytes, std::min(size, LocalBytes));
    while (positions.size() < size) {
        Set(link, Format::PageNumberSize, Use::Structure);
        link = (Number(link, 4) - 1) * PageBytes;
        Set(link, Format::PageNumberSize, Use::Structure);
        take(link + qsizetype{Format::PageNumberSize},
             std::min(size - positions.size(), qsizetype{Format::OverflowPayload}));
    }
    return positions;
}

void ByteMap::AddRow(const QList<qsizetype> &positions, const Tree &tree)
{
    constexpr qsizetype keySize = Format::RowKeySize;
    for (qsizetype i = 0; i < keySize; ++i)
        uses[positions[i]] = {Use::RowKey, tree.table, tree.rowCount, tree.keyColumn};

    const QList<qsizetype> record = positions.mid(keySize);
    const int width = record.size() < 0x100 ? 1 : 2;
    const auto offset = [&](qsizetype index) {
        qsizetype value = 0;
        for (int i = width - 1; i >= 0; --i)
            value = value << 8 | static_cast<uchar>(bytes.at(record[index * width + i]));
        return value;
    };
    const qsizetype columnCount = offset(0) / width - 1;
    for (qsizetype i = 0; i < offset(0); ++i)
        uses[record[i]] = {Use::Offsets, tree.table, tree.rowCount};
    for (int column = 0; column < columnCount; ++column) {
        for (qsizetype i = offset(column); i < offset(column + 1); ++i)
            uses[record[i]] = {Use::Value, tree.table, tree.rowCount, column};
    }
}

QString WrongAfterDamage(const ByteMap::Byte &byte, const TableTexts &sound,
                         const std::optional<TableTexts> &read)
{
    const bool isUnused = byte.use == ByteMap::Use::Unused || byte.use == ByteMap::Use::Index;
    if (!read)
        return isUnused ? QStringLiteral("it is refused without need") : QString();
    if (byte.use == ByteMap::Use::Mark)
        return QStringLiteral("the mark's damage is not noticed");
    if (sound.keys() != read->keys())
        return QStringLiteral("tables are missing or new");
    const QByteArrayList names = sound.keys();
    for (const QByteArray &name : names) {
        const QList<QStringList> &before = sound[name];
        const QList<QStringList> &after = (*read)[name];
        if (!HaveSameShape(before, after))
            return QStringLiteral("%1 has lost or won rows").arg(QLatin1String(name));
        const bool mayDiffer = byte.use == ByteMap::Use::Schema || byte.table == name;
        for (const Difference &difference : DifferencesOf(before, after)) {
            if (!mayDiffer || !IsPossible(byte, difference, before, after))
                return QStringLiteral("%1 has another text in row %2, column %3")
                    .arg(QLatin1String(name))
                    .arg(difference.row)
                    .arg(difference.column);
        }
    }
    return {};
}

} // namespace Sqlite2
