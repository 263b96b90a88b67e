#pragma once

#include "sqlite2/Format.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

namespace Sqlite2 {

/// The bytes of a page, to reckon with positions in Qt's byte arrays.
inline constexpr auto PageBytes = static_cast<qsizetype>(Format::PageSize);

/// Looks over a whole version 2 file for what a reader of tables need not notice. It reads the
/// bytes by itself and shares nothing with the library but the format's measures.
///
/// Every page must belong to exactly one tree, overflow chain or the free list; in a page, cells
/// and free blocks must cover all bytes without overlap; keys must ascend, leaves lie equally deep,
/// and every index must have an entry for each row of its table.
class StructureChecker final
{
public:
    explicit StructureChecker(QByteArray fileBytes);

    /// What is wrong; empty for a sound file.
    QStringList Run();

    /// The keys and the data of a sound file's tree in its own order.
    QList<QByteArray> Keys(quint32 rootPage) const;
    QList<QByteArray> Records(quint32 rootPage) const;

    /// The values of each entry of `sqlite_master`, NULL as empty.
    QList<QList<QByteArray>> Schema() const;
    /// Root page by name, tables and indexes alike; 0 for views and triggers.
    QMap<QByteArray, quint32> RootPages() const;

private:
    struct Entry
    {
        quint32 leftChild;
        QByteArray payload;
        qsizetype keySize;
        QList<quint32> overflowPages;
        int offset;
        int sizeInPage;
        int next;
    };

    quint32 Number(qsizetype at, int size) const;
    qsizetype PageStart(quint32 page) const;
    Entry EntryAt(quint32 page, int offset) const;
    QList<Entry> Entries(quint32 page) const;
    QList<Entry> AllEntries(quint32 page) const;

    void CheckHeader();
    void CheckTree(quint32 rootPage, const QString &name);
    void CheckPage(quint32 page, int depth, QList<QByteArray> &keys);
    void CheckCoverage(quint32 page, const QList<Entry> &entries);
    void CheckFreeList();
    void Use(quint32 page, const QString &purpose);
    void Report(const QString &problem);

    QByteArray bytes;
    bool isBigEndian = false;
    QStringList problems;
    QMap<quint32, QString> uses;
    QString currentTree;
    int leafDepth = -1;
};

} // namespace Sqlite2
