#include "Scratch.h"

#include "sqlite2/Error.h"
#include "sqlite2/Journal.h"
#include "sqlite2/Reader.h"

#include <QTest>

#include <QtEndian>

using namespace Sqlite2;

namespace {

constexpr qsizetype PageSize = 1024;
const QByteArray Mark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd6", 8);

QByteArray BigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray Header(quint32 records, quint32 seed, quint32 pages)
{
    return Mark + BigEndian(records) + BigEndian(seed) + BigEndian(pages);
}

QByteArray Record(quint32 page, const QByteArray &content, quint32 checksum)
{
    return BigEndian(page) + content + BigEndian(checksum);
}

QByteArray Page(char filling)
{
    return QByteArray(PageSize, filling);
}

QByteArray RolledBack(const QByteArray &database, const QByteArray &journal)
{
    return QByteArray::fromStdString(RollBack(database.toStdString(), journal.toStdString()));
}

QByteArray TableWith(const char *text, int rows = 1)
{
    return MakeDatabase(ByteOrder::Little, [&](Writer &writer) {
        writer.CreateTable("CREATE TABLE t(a)");
        for (int i = 0; i < rows; ++i)
            writer.InsertRow("t", {text});
    });
}

} // namespace

class JournalTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testReaderShowsTheStateBeforeTheWrite();
    void testPagesAreLaidOverAndTheFileIsCut();
    void testWrongChecksumEndsTheJournal();
    void testCutOffRecordEndsTheJournal();
    void testNumberOfRecordsIsKept();
    void testUnknownNumberOfRecordsTakesAllThatAreThere();
    void testChecksumRunsOver();
    void testJournalWithoutWholeHeaderIsNoJournal();
    void testPagesBehindTheOldEndAreIgnored();
    void testLostPagesComeBackFromTheJournal();
    void testUnknownKindIsAnError();
    void testPageZeroIsAnError();
    void testMorePagesThanThereAreIsAnError();
    void testLostPagesThatTheJournalLacksAreAnError();
    void testFolderInTheJournalsPlaceIsAnError();
};

void JournalTest::testReaderShowsTheStateBeforeTheWrite()
{
    const QByteArray before = TableWith("before");
    const QByteArray after = TableWith("after the write", 200);
    QVERIFY(after.size() > before.size());
    const quint32 pages = static_cast<quint32>(before.size() / PageSize);
    QByteArray journal = Header(pages, 99, pages);
    for (quint32 page = 1; page <= pages; ++page)
        journal += Record(page, before.mid((page - 1) * PageSize, PageSize), page + 99);

    const Scratch scratch;
    scratch.Write(after);
    scratch.Write(journal, "test.db-journal");
    const Reader reader(scratch.File());
    std::vector<Row> rows;
    reader.ReadRows(*reader.FindTable("t"),
                    [&](std::int32_t, const Row &row) { rows.push_back(row); });
    QVERIFY(rows == std::vector<Row>{{"before"}});
    QCOMPARE(scratch.Bytes(), after);
}

void JournalTest::testPagesAreLaidOverAndTheFileIsCut()
{
    const QByteArray journal =
        Header(2, 1000, 3) + Record(2, Page('B'), 1002) + Record(1, Page('A'), 1001);
    QCOMPARE(RolledBack(Page('1') + Page('2') + Page('3') + Page('4'), journal),
             Page('A') + Page('B') + Page('3'));
}

void JournalTest::testWrongChecksumEndsTheJournal()
{
    const QByteArray journal = Header(3, 7, 3) + Record(1, Page('A'), 8) + Record(2, Page('B'), 8) +
                               Record(3, Page('C'), 10);
    QCOMPARE(RolledBack(Page('1') + Page('2') + Page('3'), journal),
             Page('A') + Page('2') + Page('3'));
}

void JournalTest::testCutOffRecordEndsTheJournal()
{
    QByteArray journal = Header(2, 7, 2) + Record(1, Page('A'), 8) + Record(2, Page('B'), 9);
    journal.chop(1);
    QCOMPARE(RolledBack(Page('1') + Page('2'), journal), Page('A') + Page('2'));
}

void JournalTest::testNumberOfRecordsIsKept()
{
    const QByteArray journal = Header(1, 7, 2) + Record(1, Page('A'), 8) + Record(2, Page('B'), 9);
    QCOMPARE(RolledBack(Page('1') + Page('2'), journal), Page('A') + Page('2'));
}

void JournalTest::testUnknownNumberOfRecordsTakesAllThatAreThere()
{
    const QByteArray journal =
        Header(0xffffffff, 7, 2) + Record(1, Page('A'), 8) + Record(2, Page('B'), 9);
    QCOMPARE(RolledBack(Page('1') + Page('2'), journal), Page('A') + Page('B'));
}

void JournalTest::testChecksumRunsOver()
{
    const QByteArray journal = Header(1, 0xffffffff, 1) + Record(1, Page('A'), 0);
    QCOMPARE(RolledBack(Page('1'), journal), Page('A'));
}

void JournalTest::testJournalWithoutWholeHeaderIsNoJournal()
{
    QCOMPARE(RolledBack(Page('1'), QByteArray()), Page('1'));
    QCOMPARE(RolledBack(Page('1'), Header(0, 0, 0).chopped(1)), Page('1'));
}

void JournalTest::testPagesBehindTheOldEndAreIgnored()
{
    const QByteArray journal = Header(2, 0, 1) + Record(2, Page('B'), 2) + Record(1, Page('A'), 1);
    QCOMPARE(RolledBack(Page('1') + Page('2'), journal), Page('A'));
}

void JournalTest::testLostPagesComeBackFromTheJournal()
{
    const QByteArray journal = Header(1, 0, 2) + Record(2, Page('B'), 2);
    QCOMPARE(RolledBack(Page('1'), journal), Page('1') + Page('B'));
}

void JournalTest::testUnknownKindIsAnError()
{
    QByteArray journal = Header(1, 0, 1) + Record(1, Page('A'), 1);
    journal[7] = '\x00';
    QVERIFY_THROWS_EXCEPTION(Error, RolledBack(Page('1'), journal));
}

void JournalTest::testPageZeroIsAnError()
{
    const QByteArray journal = Header(1, 5, 1) + Record(0, Page('A'), 5);
    QVERIFY_THROWS_EXCEPTION(Error, RolledBack(Page('1'), journal));
}

void JournalTest::testMorePagesThanThereAreIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(Error, RolledBack(Page('1'), Header(0, 0, 0xffffffff)));
    QVERIFY_THROWS_EXCEPTION(Error,
                             RolledBack(Page('1'), Header(1, 0, 3) + Record(3, Page('C'), 3)));
}

void JournalTest::testLostPagesThatTheJournalLacksAreAnError()
{
    const QByteArray journal = Header(1, 0, 2) + Record(1, Page('A'), 1);
    QVERIFY_THROWS_EXCEPTION(Error, RolledBack(Page('1'), journal));
}

void JournalTest::testFolderInTheJournalsPlaceIsAnError()
{
    const Scratch scratch;
    scratch.Write(TableWith("text"));
    std::filesystem::create_directory(scratch.File("test.db-journal"));
    QVERIFY_THROWS_EXCEPTION(Error, Reader(scratch.File()));
}

QTEST_GUILESS_MAIN(JournalTest)
#include "JournalTest.moc"
