#include "browser/Address.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tesk;

class TestAddress : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir temporary;
    QString folder;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(temporary.path()).mkpath(QStringLiteral("a #b?c %41 ü")));
        folder = temporary.filePath(QStringLiteral("a #b?c %41 ü"));
        QFile page(folder + QStringLiteral("/page.html"));
        QVERIFY(page.open(QIODevice::WriteOnly));
        QFile sheet(folder + QStringLiteral("/A#1?x.pdf"));
        QVERIFY(sheet.open(QIODevice::WriteOnly));
    }

    void testFolderNameIsEncoded()
    {
        const QUrl url = Address::ToUrl(QStringLiteral("file://%1/page.html").arg(folder));
        QVERIFY(url.toEncoded().endsWith("/a%20%23b%3Fc%20%2541%20%C3%BC/page.html"));
        QCOMPARE(url.toLocalFile(), folder + QStringLiteral("/page.html"));
    }

    void testQueryAndFragmentAreKept()
    {
        const QUrl url = Address::ToUrl(
            QStringLiteral("file://%1/page.html?firstItem=21&id=7/8#top?").arg(folder));
        QCOMPARE(url.toLocalFile(), folder + QStringLiteral("/page.html"));
        QCOMPARE(url.query(), QStringLiteral("firstItem=21&id=7/8"));
        QCOMPARE(url.fragment(), QStringLiteral("top?"));
    }

    void testMissingPageEndsAtTheFirstMark()
    {
        const QUrl url =
            Address::ToUrl(QStringLiteral("file://%1/missing.html?id=7/8#t").arg(folder));
        QCOMPARE(url.toLocalFile(), folder + QStringLiteral("/missing.html"));
        QCOMPARE(url.query(), QStringLiteral("id=7/8"));
        QCOMPARE(url.fragment(), QStringLiteral("t"));
    }

    void testFileNameMayHoldMarks()
    {
        const QUrl url = Address::ToUrl(QStringLiteral("file://%1/A#1?x.pdf#page=2").arg(folder));
        QCOMPARE(url.toLocalFile(), folder + QStringLiteral("/A#1?x.pdf"));
        QCOMPARE(url.fragment(), QStringLiteral("page=2"));
    }

    void testSlashTooManyIsForgiven()
    {
        QCOMPARE(Address::ToUrl(QStringLiteral("file:///%1/page.html").arg(folder)),
                 Address::ToUrl(QStringLiteral("file://%1/page.html").arg(folder)));
    }

    void testContainerNameIsEncoded()
    {
        const QUrl url = Address::ToUrl(QStringLiteral(
            "mk:@MSITStore:/opt/a #b?c %41/resources.chm::/Dokumente/x y.html?q=1#t"));
        QCOMPARE(url.toEncoded(),
                 "mk:@MSITStore:/opt/a%20%23b%3Fc%20%2541/resources.chm::/Dokumente/"
                 "x%20y.html?q=1#t");
    }

    void testAddressesReadAsTheyAreSpelled_data()
    {
        QTest::addColumn<QString>("address");
        const QString path = QStringLiteral("/nowhere/Gerät 50%25 x/page.html");
        QTest::newRow("file") << QStringLiteral("file://") + path;
        QTest::newRow("query") << QStringLiteral("file://%1?firstItem=1&id=5").arg(path);
        QTest::newRow("empty id") << QStringLiteral("file://%1?firstItem=1&id=").arg(path);
        QTest::newRow("fragment") << QStringLiteral("file://%1?id=5#top").arg(path);
        QTest::newRow("escaped query") << QStringLiteral("file://%1?a=%26%23%25&b=ü ß").arg(path);
        QTest::newRow("container")
            << QStringLiteral("mk:@MSITStore:/opt/a#b 50%41/resources.chm::/Dokumente/ä.html?x#y");
        QTest::newRow("folder with marks")
            << QStringLiteral("file://%1/page.html?a=1#b").arg(folder);
    }

    void testAddressesReadAsTheyAreSpelled()
    {
        QFETCH(QString, address);
        QCOMPARE(Address::FromUrl(Address::ToUrl(address)), address);
    }

    void testMemberPath_data()
    {
        QTest::addColumn<QString>("encoded");
        QTest::addColumn<QString>("member");
        QTest::newRow("plain") << QStringLiteral("mk:@MSITStore:/opt/r.chm::/Dokumente/a.html")
                               << QStringLiteral("/Dokumente/a.html");
        QTest::newRow("query") << QStringLiteral("mk:@MSITStore:/opt/r.chm::/a.html?x=1::#t")
                               << QStringLiteral("/a.html");
        QTest::newRow("encoded") << QStringLiteral(
                                        "mk:@MSITStore:/a%20b/r.chm::%5CDok%5C%C3%A4.html")
                                 << QStringLiteral("/Dok/ä.html");
        QTest::newRow("colons in the folder")
            << QStringLiteral("mk:@MSITStore:/a::b/r.chm::/a.html") << QStringLiteral("/a.html");
        QTest::newRow("doubled container")
            << QStringLiteral("mk:@MSITStore:/r.chm::/Dok/@MSITStore:/r.chm::/Dok/s.css")
            << QStringLiteral("/Dok/s.css");
        QTest::newRow("slash in front") << QStringLiteral("mk:/Grafiken/klein/a.gif")
                                        << QStringLiteral("/Grafiken/klein/a.gif");
        QTest::newRow("backslash in front") << QStringLiteral("mk:%5CGrafiken%5Cklein%5Ca.gif")
                                            << QStringLiteral("/Grafiken/klein/a.gif");
        QTest::newRow("steps back")
            << QStringLiteral("mk:@MSITStore:/r.chm::/Dok/../../x.gif") << QStringLiteral("/x.gif");
        QTest::newRow("steps back alone")
            << QStringLiteral("mk:@MSITStore:/r.chm::/../..") << QStringLiteral("/");
        QTest::newRow("name that begins like a step back")
            << QStringLiteral("mk:@MSITStore:/r.chm::/..a/..") + QStringLiteral("/..b/x.gif")
            << QStringLiteral("/..b/x.gif");
        QTest::newRow("nothing") << QStringLiteral("mk:") << QStringLiteral("/");
    }

    void testMemberPath()
    {
        QFETCH(QString, encoded);
        QFETCH(QString, member);
        QCOMPARE(Address::MemberPath(QUrl(encoded)), member);
    }

    void testWholeAddress_data()
    {
        QTest::addColumn<QString>("encoded");
        QTest::addColumn<bool>("isWhole");
        QTest::newRow("whole") << QStringLiteral("mk:@MSITStore:/a%5Cb/r.chm::/Dok/a.html") << true;
        QTest::newRow("rooted") << QStringLiteral("mk:/Dok/a.html") << false;
        QTest::newRow("backslashes")
            << QStringLiteral("mk:@MSITStore:/r.chm::%5CDok%5Ca.html") << false;
        QTest::newRow("no member") << QStringLiteral("mk:@MSITStore:/Dok/a.html") << false;
    }

    void testWholeAddress()
    {
        QFETCH(QString, encoded);
        QFETCH(bool, isWhole);
        QCOMPARE(Address::IsWhole(QUrl(encoded)), isWhole);
    }

    void testWholeAddressNamesTheContainer()
    {
        const QUrl whole = Address::ToWhole(QUrl(QStringLiteral("mk:%5CDok%5Ca%20b.html?x=1#t")),
                                            QStringLiteral("/opt/a #b\\c/r.chm"));
        QCOMPARE(whole.toEncoded(), "mk:@MSITStore:/opt/a%20%23b%5Cc/r.chm::/Dok/a%20b.html?x=1#t");
        // The engine asks for what it is led to: that must be the end of it.
        QVERIFY(Address::IsWhole(whole));
    }
};

QTEST_APPLESS_MAIN(TestAddress)
#include "TestAddress.moc"
