#include "StructureChecker.h"

#include <algorithm>
#include <stdexcept>

namespace Sqlite2 {

namespace {

constexpr int LocalPayload = static_cast<int>(Format::MaxLocalPayload);

/// The values of a record of `sqlite_master`; all its texts are short of 64 KB.
QList<QByteArray> MasterValues(const QByteArray &record)
{
    const int width = record.size() < 256 ? 1 : 2;
    const auto offset = [&](int i) {
        int value = 0;
        for (int k = width - 1; k >= 0; --k)
            value = value << 8 | static_cast<uchar>(record.at(i * width + k));
        return value;
    };
    QList<QByteArray> values;
    for (int i = 0; i < 5; ++i)
        values.append(record.mid(offset(i), std::max(0, offset(i + 1) - offset(i) - 1)));
    return values;
}

} // namespace

StructureChecker::StructureChecker(QByteArray fileBytes)
    : bytes(std::move(fileBytes))
    , isBigEndian(bytes.mid(48, 4) == QByteArray("\xda\xe3\x75\x28", 4))
{}

quint32 StructureChecker::Number(qsizetype at, int size) const
{
    if (at < 0 || at + size > bytes.size())
        throw std::runtime_error("a number outside the file");
    quint32 number = 0;
    for (int i = 0; i < size; ++i)
        number =
            number << 8 | static_cast<uchar>(bytes.at(isBigEndian ? at + i : at + size - 1 - i));
    return number;
}

qsizetype StructureChecker::PageStart(quint32 page) const
{
    if (page == 0 || page * PageBytes > bytes.size())
        throw std::runtime_error("a page outside the file");
    return (page - 1) * PageBytes;
}

StructureChecker::Entry StructureChecker::EntryAt(quint32 page, int offset) const
{
    if (offset < 8 || offset + 12 > PageBytes)
        throw std::runtime_error("a cell outside its page");
    const qsizetype at = PageStart(page) + offset;
    Entry entry;
    entry.leftChild = Number(at, 4);
    entry.next = static_cast<int>(Number(at + 6, 2));
    entry.keySize = Number(at + 4, 2) + (Number(at + 8, 1) << 16);
    const qsizetype size = entry.keySize + Number(at + 10, 2) + (Number(at + 9, 1) << 16);
    const int local = static_cast<int>(std::min<qsizetype>(size, LocalPayload));
    entry.offset = offset;
    entry.sizeInPage = (12 + local + (size > local ? 4 : 0) + 3) / 4 * 4;
    if (offset + entry.sizeInPage > PageBytes)
        throw std::runtime_error("a cell reaches out of its page");
    entry.payload = bytes.mid(at + 12, local);
    quint32 overflow = size > local ? Number(at + 12 + local, 4) : 0;
    while (overflow != 0) {
        if (entry.payload.size() >= size)
            throw std::runtime_error("an overflow chain that is too long");
        entry.overflowPages.append(overflow);
        const qsizetype start = PageStart(overflow);
        entry.payload +=
            bytes.mid(start + 4, std::min<qsizetype>(1020, size - entry.payload.size()));
        overflow = Number(start, 4);
    }
    if (entry.payload.size() != size)
        throw std::runtime_error("an overflow chain that is too short");
    return entry;
}

QList<StructureChecker::Entry> StructureChecker::Entries(quint32 page) const
{
    QList<Entry> entries;
    int offset = static_cast<int>(Number(PageStart(page) + 4, 2));
    while (offset != 0) {
        if (entries.size() > 84)
            throw std::runtime_error("cells linked in a loop");
        entries.append(EntryAt(page, offset));
        offset = entries.last().next;
    }
    return entries;
}

QList<StructureChecker::Entry> StructureChecker::AllEntries(quint32 page) const
{
    QList<Entry> all;
    for (const Entry &entry : Entries(page)) {
        if (entry.leftChild != 0)
            all += AllEntries(entry.leftChild);
        all.append(entry);
    }
    if (const quint32 right = Number(PageStart(page), 4); right != 0)
        all += AllEntries(right);
    return all;
}

QList<QByteArray> StructureChecker::Keys(quint32 rootPage) const
{
    QList<QByteArray> keys;
    for (const Entry &entry : AllEntries(rootPage))
        keys.append(entry.payload.left(entry.keySize));
    return keys;
}

QList<QByteArray> StructureChecker::Records(quint32 rootPage) const
{
    QList<QByteArray> records;
    for (const Entry &entry : AllEntries(rootPage))
        records.append(entry.payload.mid(entry.keySize));
    return records;
}

QList<QList<QByteArray>> StructureChecker::Schema() const
{
    QList<QList<QByteArray>> entries;
    for (const QByteArray &record : Records(Format::MasterRootPage))
        entries.append(MasterValues(record));
    return entries;
}

QMap<QByteArray, quint32> StructureChecker::RootPages() const
{
    QMap<QByteArray, quint32> roots;
    for (const QList<QByteArray> &values : Schema())
        roots.insert(values[1], values[3].toUInt());
    return roots;
}

QStringList StructureChecker::Run()
{
    try {
        CheckHeader();
        CheckTree(Format::MasterRootPage, QStringLiteral("sqlite_master"));
        QMap<QByteArray, qsizetype> rowCounts;
        QList<std::pair<QByteArray, quint32>> indexes;
        for (const QList<QByteArray> &values : Schema()) {
            const quint32 root = values[3].toUInt();
            if (root == 0)
                continue;
            CheckTree(root, QString::fromLatin1(values[1]));
            if (values[0] == "table")
                rowCounts[values[2]] = Keys(root).size();
            else
                indexes.append({values[2], root});
        }
        for (const auto &[table, root] : indexes) {
            if (Keys(root).size() != rowCounts.value(table, -1))
                Report(QStringLiteral("index at page %1 does not match its table").arg(root));
        }
        CheckFreeList();
        for (quint32 page = 1; page <= bytes.size() / PageBytes; ++page) {
            if (!uses.contains(page))
                Report(QStringLiteral("page %1 belongs to nothing").arg(page));
        }
    } catch (const std::runtime_error &error) {
        Report(QString::fromLatin1(error.what()));
    }
    return problems;
}

void StructureChecker::CheckHeader()
{
    if (bytes.left(48) != QByteArray("** This file contains an SQLite 2.1 database **\0", 48))
        Report(QStringLiteral("wrong header text"));
    if (Number(48, 4) != 0xdae37528)
        Report(QStringLiteral("wrong byte-order mark"));
    if (bytes.size() % PageBytes != 0)
        Report(QStringLiteral("no whole number of pages"));
    if (Number(64, 4) != 4)
        Report(QStringLiteral("file format is not 4"));
    if (bytes.mid(96, PageBytes - 96).count('\0') != PageBytes - 96)
        Report(QStringLiteral("page 1 holds more than its header"));
    Use(1, QStringLiteral("header"));
}

void StructureChecker::CheckTree(quint32 rootPage, const QString &name)
{
    currentTree = name;
    leafDepth = -1;
    QList<QByteArray> keys;
    CheckPage(rootPage, 0, keys);
    for (qsizetype i = 1; i < keys.size(); ++i) {
        if (keys[i] <= keys[i - 1])
            Report(QStringLiteral("keys out of order at entry %1").arg(i));
    }
}

void StructureChecker::CheckPage(quint32 page, int depth, QList<QByteArray> &keys)
{
    Use(page, QStringLiteral("tree"));
    const QList<Entry> entries = Entries(page);
    CheckCoverage(page, entries);
    const quint32 right = Number(PageStart(page), 4);
    if (right == 0) {
        if (leafDepth >= 0 && leafDepth != depth)
            Report(QStringLiteral("leaf %1 lies at another depth").arg(page));
        leafDepth = depth;
    }
    if (entries.isEmpty() && depth > 0)
        Report(QStringLiteral("page %1 is empty").arg(page));
    for (const Entry &entry : entries) {
        if ((entry.leftChild == 0) != (right == 0))
            Report(QStringLiteral("page %1 is a leaf and is none").arg(page));
        if (entry.leftChild != 0)
            CheckPage(entry.leftChild, depth + 1, keys);
        keys.append(entry.payload.left(entry.keySize));
        for (const quint32 overflow : entry.overflowPages)
            Use(overflow, QStringLiteral("overflow"));
    }
    if (right != 0)
        CheckPage(right, depth + 1, keys);
}

void StructureChecker::CheckCoverage(quint32 page, const QList<Entry> &entries)
{
    QList<std::pair<int, int>> stretches;
    for (const Entry &entry : entries)
        stretches.append({entry.offset, entry.sizeInPage});
    int block = static_cast<int>(Number(PageStart(page) + 6, 2));
    while (block != 0) {
        const int size = static_cast<int>(Number(PageStart(page) + block, 2));
        const int next = static_cast<int>(Number(PageStart(page) + block + 2, 2));
        if (size < 4 || size % 4 != 0 || (next != 0 && next < block + size))
            throw std::runtime_error("a free block that cannot be one");
        stretches.append({block, size});
        block = next;
    }
    std::ranges::sort(stretches);
    int covered = 8;
    for (const auto &[begin, size] : stretches) {
        if (begin != covered)
            Report(QStringLiteral("page %1: a gap or an overlap at %2").arg(page).arg(begin));
        covered = begin + size;
    }
    if (covered != PageBytes)
        Report(QStringLiteral("page %1 is covered up to %2").arg(page).arg(covered));
}

void StructureChecker::CheckFreeList()
{
    currentTree = QStringLiteral("free list");
    quint32 count = 0;
    for (quint32 trunk = Number(52, 4); trunk != 0; trunk = Number(PageStart(trunk), 4)) {
        Use(trunk, QStringLiteral("free"));
        const quint32 leaves = Number(PageStart(trunk) + 4, 4);
        count += 1 + leaves;
        if (leaves > 254 || count > bytes.size() / PageBytes)
            throw std::runtime_error("a free list that cannot be one");
        for (quint32 i = 0; i < leaves; ++i)
            Use(Number(PageStart(trunk) + 8 + qsizetype{4} * i, 4), QStringLiteral("free"));
    }
    if (count != Number(56, 4))
        Report(QStringLiteral("the number of free pages is wrong"));
}

void StructureChecker::Use(quint32 page, const QString &purpose)
{
    PageStart(page);
    if (uses.contains(page))
        throw std::runtime_error("page " + std::to_string(page) + " is used twice");
    uses.insert(page, purpose);
}

void StructureChecker::Report(const QString &problem)
{
    problems.append(currentTree + QStringLiteral(": ") + problem);
}

} // namespace Sqlite2
