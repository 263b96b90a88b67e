#include "ByteMap.h"
#include "DamageCases.h"
#include "Scratch.h"

#include "sqlite2/Database.h"
#include "sqlite2/Error.h"

#include <QTest>
#include <QtEndian>

#include <optional>

using namespace Sqlite2;

namespace {

constexpr qsizetype PageSize = 1024;

/// Small, but with all that pages can be: an inner page and its leaves, overflow chains of one and
/// of two pages, record offsets of one and two bytes, an index, a row id column, an empty table.
QByteArray SmallDatabase(ByteOrder order)
{
    return MakeDatabase(order, [](Writer &writer) {
        writer.CreateTable(
            "CREATE TABLE \"the rows\"(id INTEGER PRIMARY KEY, 'a b' VARCHAR(10), n)");
        writer.CreateIndex("CREATE INDEX i ON [the rows](n)");
        writer.CreateTable("CREATE TABLE none(a)");
        for (int i = 1; i <= 5; ++i)
            writer.InsertRow("the rows", {{}, std::string(180, static_cast<char>('a' + i)), "7"});
        writer.InsertRow("the rows", {{}, std::string(600, 'x'), {}});
        writer.InsertRow("the rows", {{}, std::string(1400, 'y'), ""});
    });
}

QStringList TextsOf(const Row &row)
{
    QStringList texts;
    for (const Value &value : row)
        texts.append(value ? QString::fromLatin1(QByteArray::fromStdString(*value))
                           : QStringLiteral("NULL"));
    return texts;
}

/// All tables of the file; nothing when it is refused.
std::optional<TableTexts> ReadAll(const QByteArray &bytes, const QByteArray &journal = {})
{
    try {
        const std::string journalText = journal.toStdString();
        const Database database(bytes.toStdString(), journalText);
        TableTexts tables;
        for (const Table &table : database.Tables()) {
            QList<QStringList> &rows = tables[QByteArray::fromStdString(table.name)];
            for (TableRows read = database.Rows(table); read.Next();)
                rows.append(TextsOf(read.Values()));
        }
        return tables;
    } catch (const Error &) {
        return {};
    }
}

constexpr int AllBits = 8;

/// The states of a file before and after a write, and the journal that leads back.
struct Journalled
{
    QByteArray before;
    QByteArray after;
    QByteArray journal;
};

constexpr qsizetype JournalHeader = 20;
constexpr qsizetype JournalRecord = 4 + PageSize + 4;

Journalled UnfinishedWrite()
{
    Journalled write;
    write.before = MakeDatabase(ByteOrder::Little, [](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        writer.InsertRow("t", {"before"});
    });
    write.after = SmallDatabase(ByteOrder::Little);
    write.journal =
        QByteArray("\xd9\xd5\x05\xf9\x20\xa1\x63\xd6\0\0\0\x03\0\0\0\x05\0\0\0\x03", JournalHeader);
    for (int page = 1; page <= 3; ++page) {
        write.journal += QByteArray("\0\0\0", 3) + static_cast<char>(page) +
                         write.before.mid((page - 1) * PageSize, PageSize) +
                         QByteArray("\0\0\0", 3) + static_cast<char>(page + 5);
    }
    return write;
}

} // namespace

/// Whatever single byte of a file is damaged, and wherever it is cut off: either the file is
/// refused, or every row comes back and nothing but the text that holds the byte may be another.
class EveryByteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testEveryByteDamaged_data();
    void testEveryByteDamaged();
    void testEveryTruncation_data();
    void testEveryTruncation();
    void testEveryJournalByteDamaged();
    void testEveryJournalTruncation();

private:
    static QByteArray JournalThatReadsLike(const Journalled &write, qsizetype damagedByte,
                                           char damage);
};

void EveryByteTest::testEveryByteDamaged_data()
{
    QTest::addColumn<bool>("isBigEndian");
    QTest::newRow("little-endian") << false;
    QTest::newRow("big-endian") << true;
}

void EveryByteTest::testEveryByteDamaged()
{
    QFETCH(bool, isBigEndian);
    const QByteArray file = SmallDatabase(isBigEndian ? ByteOrder::Big : ByteOrder::Little);
    const ByteMap map(file);
    const TableTexts sound = ReadAll(file).value();
    QCOMPARE(sound.value("the rows").size(), 7);

    DamageCounts counts;
    QByteArray damaged = file;
    for (qsizetype i = 0; i < file.size(); i += DamageStep) {
        const QByteArray damages = DamagesOf(file, i, AllBits);
        for (const char damage : damages) {
            damaged[i] = damage;
            const std::optional<TableTexts> read = ReadAll(damaged);
            const QString wrong = WrongAfterDamage(map.At(i), sound, read);
            const QString place = QStringLiteral("byte %1 as %2: ").arg(i).arg(uchar(damage));
            QVERIFY2(wrong.isEmpty(), qPrintable(place + wrong));
            counts.Add(!read, read == sound);
        }
        damaged[i] = file[i];
    }
    counts.Print();
    QVERIFY(counts.All() >= file.size() / DamageStep * 9);
}

void EveryByteTest::testEveryTruncation_data()
{
    testEveryByteDamaged_data();
}

void EveryByteTest::testEveryTruncation()
{
    QFETCH(bool, isBigEndian);
    const QByteArray file = SmallDatabase(isBigEndian ? ByteOrder::Big : ByteOrder::Little);
    for (qsizetype size = 0; size < file.size(); ++size)
        QVERIFY2(!ReadAll(file.first(size)), qPrintable(QString::number(size)));
    qInfo("%lld cases, all refused", static_cast<long long>(file.size()));
}

/// A journal of whole records that says what the damaged one says, by the rules of journals. Damage
/// in its mark or in the number of pages gives no such journal.
QByteArray EveryByteTest::JournalThatReadsLike(const Journalled &write, qsizetype damagedByte,
                                               char damage)
{
    constexpr qsizetype countField = 8;
    constexpr qsizetype seedField = 12;
    constexpr qsizetype pagesField = 16;
    QByteArray journal = write.journal;
    journal[damagedByte] = damage;
    if (damagedByte < countField || (damagedByte >= pagesField && damagedByte < JournalHeader))
        return {};
    if (damagedByte < seedField) {
        // Records behind the number that the header tells do not count.
        const auto count = qFromBigEndian<quint32>(journal.constData() + countField);
        return write.journal.first(JournalHeader + qMin<qsizetype>(count, 3) * JournalRecord);
    }
    // A wrong checksum ends the journal.
    if (damagedByte < pagesField)
        return write.journal.first(JournalHeader);
    const qsizetype record = (damagedByte - JournalHeader) / JournalRecord;
    const qsizetype place = (damagedByte - JournalHeader) % JournalRecord;
    const bool isContent = place >= 4 && place < 4 + PageSize;
    return isContent ? journal : write.journal.first(JournalHeader + record * JournalRecord);
}

void EveryByteTest::testEveryJournalByteDamaged()
{
    const Journalled write = UnfinishedWrite();
    const TableTexts sound = ReadAll(write.before).value();
    QCOMPARE(ReadAll(write.after, write.journal), std::optional(sound));

    DamageCounts counts;
    for (qsizetype i = 0; i < write.journal.size(); i += DamageStep) {
        const QByteArray damages = DamagesOf(write.journal, i, AllBits);
        for (const char damage : damages) {
            QByteArray journal = write.journal;
            journal[i] = damage;
            const std::optional<TableTexts> read = ReadAll(write.after, journal);
            const QByteArray like = JournalThatReadsLike(write, i, damage);
            const qsizetype place = (i - JournalHeader) % JournalRecord - 4;
            if (like.isEmpty()) {
                QVERIFY2(!read, qPrintable(QString::number(i)));
            } else if (like == journal) {
                // Restored as it is, so it reads like the same damage in the file itself.
                QByteArray before = write.before;
                before[(i - JournalHeader) / JournalRecord * PageSize + place] = damage;
                QCOMPARE(read, ReadAll(before));
            } else {
                QCOMPARE(read, ReadAll(write.after, like));
            }
            counts.Add(!read, read == sound);
        }
    }
    counts.Print();
    QVERIFY(counts.All() >= write.journal.size() / DamageStep * 9);
}

void EveryByteTest::testEveryJournalTruncation()
{
    const Journalled write = UnfinishedWrite();
    for (qsizetype size = 0; size < write.journal.size(); ++size) {
        // Without a whole header it is no journal; a record that is not whole does not count.
        const qsizetype wholeRecords = (size - JournalHeader) / JournalRecord * JournalRecord;
        const QByteArray like =
            size < JournalHeader ? QByteArray() : write.journal.first(JournalHeader + wholeRecords);
        QCOMPARE(ReadAll(write.after, write.journal.first(size)), ReadAll(write.after, like));
    }
    qInfo("%lld cases", static_cast<long long>(write.journal.size()));
}

QTEST_GUILESS_MAIN(EveryByteTest)
#include "EveryByteTest.moc"
