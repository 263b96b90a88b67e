#include "core/ContentAddresses.h"

#include <QTest>

using namespace Tesk;

class TestContentAddresses : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testBases_data()
    {
        QTest::addColumn<QString>("directory");
        QTest::addColumn<QString>("contentBase");
        QTest::addColumn<QString>("resourceBase");
        QTest::newRow("drive root") << QStringLiteral("C:\\") << QStringLiteral("file:///C:")
                                    << QStringLiteral("mk:@MSITStore:C:\\resources.chm::");
        QTest::newRow("drive and folder with a blank")
            << QStringLiteral("D:\\My Catalog") << QStringLiteral("file:///D:/My Catalog")
            << QStringLiteral("mk:@MSITStore:D:\\My Catalog\\resources.chm::");
        QTest::newRow("separator at the end")
            << QStringLiteral("D:\\Catalog\\") << QStringLiteral("file:///D:/Catalog")
            << QStringLiteral("mk:@MSITStore:D:\\Catalog\\resources.chm::");
        QTest::newRow("from the root, with a blank")
            << QStringLiteral("/opt/My Catalog") << QStringLiteral("file:///opt/My Catalog")
            << QStringLiteral("mk:@MSITStore:/opt/My Catalog/resources.chm::");
        QTest::newRow("from the root, slash at the end")
            << QStringLiteral("/opt/Catalog/") << QStringLiteral("file:///opt/Catalog")
            << QStringLiteral("mk:@MSITStore:/opt/Catalog/resources.chm::");
        QTest::newRow("the root") << QStringLiteral("/") << QStringLiteral("file://")
                                  << QStringLiteral("mk:@MSITStore:/resources.chm::");
        QTest::newRow("from the root, backslash in a name")
            << QStringLiteral("/opt/a\\b") << QStringLiteral("file:///opt/a\\b")
            << QStringLiteral("mk:@MSITStore:/opt/a\\b/resources.chm::");
        QTest::newRow("umlaut and per cent sign")
            << QStringLiteral(u"/opt/Ger\u00E4te 100%")
            << QStringLiteral(u"file:///opt/Ger\u00E4te 100%")
            << QStringLiteral(u"mk:@MSITStore:/opt/Ger\u00E4te 100%/resources.chm::");
    }

    void testBases()
    {
        QFETCH(QString, directory);
        QFETCH(QString, contentBase);
        QFETCH(QString, resourceBase);
        QCOMPARE(ContentAddresses::ContentBase(directory), contentBase);
        QCOMPARE(ContentAddresses::ResourceBase(directory), resourceBase);
    }

    void testPdfDocument_data()
    {
        QTest::addColumn<QString>("directory");
        QTest::addColumn<QString>("address");
        QTest::newRow("drive") << QStringLiteral("D:\\My Catalog")
                               << QStringLiteral("file:///D:/My Catalog/PDF/a b.pdf");
        QTest::newRow("drive root")
            << QStringLiteral("C:\\") << QStringLiteral("file:///C:/PDF/a b.pdf");
        QTest::newRow("from the root") << QStringLiteral("/opt/My Catalog")
                                       << QStringLiteral("file:///opt/My Catalog/PDF/a b.pdf");
        QTest::newRow("doubled separators") << QStringLiteral("/opt//Catalog/")
                                            << QStringLiteral("file:///opt/Catalog/PDF/a b.pdf");
        QTest::newRow("the root") << QStringLiteral("/") << QStringLiteral("file:///PDF/a b.pdf");
    }

    void testPdfDocument()
    {
        QFETCH(QString, directory);
        QFETCH(QString, address);
        QCOMPARE(ContentAddresses::PdfDocument(directory, QStringLiteral("a b.pdf")), address);
    }

    void testOnlyTheExactEndingIsAPdf()
    {
        QVERIFY(ContentAddresses::IsPdfFile(QStringLiteral("abc.pdf")));
        QVERIFY(!ContentAddresses::IsPdfFile(QStringLiteral("abc.PDF")));
        QVERIFY(!ContentAddresses::IsPdfFile(QStringLiteral("abc.Pdf")));
        QVERIFY(!ContentAddresses::IsPdfFile(QStringLiteral("abcpdf")));
        QVERIFY(!ContentAddresses::IsPdfFile(QStringLiteral("pdf")));
    }

    void testPdfKey_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("key");
        QTest::newRow("plain") << QStringLiteral("abc.pdf") << QStringLiteral("ABC");
        QTest::newRow("both marks") << QStringLiteral("ab-12_x.pdf") << QStringLiteral("AB/12 X");
        QTest::newRow("sharp s stays one letter")
            << QStringLiteral(u"gro\u00DF.pdf") << QStringLiteral(u"GRO\u00DF");
        QTest::newRow("accents") << QStringLiteral(u"\u00E4\u0153\u00F1.pdf")
                                 << QStringLiteral(u"\u00C4\u0152\u00D1");
        QTest::newRow("ending inside the name")
            << QStringLiteral("a.pdf.pdf") << QStringLiteral("A.PDF");
        QTest::newRow("nothing but the ending") << QStringLiteral(".pdf") << QString();
    }

    void testPdfKey()
    {
        QFETCH(QString, fileName);
        QFETCH(QString, key);
        QCOMPARE(ContentAddresses::PdfKey(fileName), key);
    }
};

QTEST_APPLESS_MAIN(TestContentAddresses)
#include "TestContentAddresses.moc"
