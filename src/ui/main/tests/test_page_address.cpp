#include "base/Errors.h"
#include "ui/main/PageAddress.h"

#include <QTest>

using namespace Tesk;

class TestPageAddress final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testIdIsBehindLastEquals()
    {
        QCOMPARE(PageAddress::Id(
                     QStringLiteral("file:///a/content/product_list.html?firstItem=21&id=17")),
                 QStringLiteral("17"));
    }

    void testIdOfSearchResultsIsEmpty()
    {
        QCOMPARE(PageAddress::Id(QStringLiteral("file:///a/product_list.html?firstItem=1&id=")),
                 QString());
    }

    void testAddressWithoutEqualsIsItsOwnId()
    {
        QCOMPARE(PageAddress::Id(QStringLiteral("file:///a/category_list.html")),
                 QStringLiteral("file:///a/category_list.html"));
    }

    void testFirstItemStandsBetweenFirstEqualsAndAmpersand()
    {
        QCOMPARE(PageAddress::FirstItem(
                     QStringLiteral("file:///a/content/product_list.html?firstItem=41&id=7")),
                 qint16(41));
    }

    void testFolderWithSignsOfParameters()
    {
        const QString address =
            QStringLiteral("file:///a/b=c&d/content/product_list.html?firstItem=41&id=7");
        QCOMPARE(PageAddress::FirstItem(address), qint16(41));
        QCOMPARE(PageAddress::Id(address), QStringLiteral("7"));
    }

    void testFragmentBelongsToNoParameter()
    {
        const QString address =
            QStringLiteral("file:///a #1/content/product_list.html?firstItem=21&id=7#top");
        QCOMPARE(PageAddress::Id(address), QStringLiteral("7"));
        QCOMPARE(PageAddress::FirstItem(address), qint16(21));
    }

    void testFirstItemMustBeA16BitNumber_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("missing") << "file:///a/product_list.html?id=7";
        QTest::newRow("no number") << "file:///a/product_list.html?firstItem=x&id=7";
        QTest::newRow("too large") << "file:///a/product_list.html?firstItem=32768&id=7";
    }

    void testFirstItemMustBeA16BitNumber()
    {
        QFETCH(QString, address);
        QVERIFY_THROWS_EXCEPTION(ConversionError, PageAddress::FirstItem(address));
    }

    void testContainerDocumentChangesItsLanguage()
    {
        QCOMPARE(
            PageAddress::InLanguage(
                QStringLiteral(
                    "mk:@MSITStore:/opt/a_b/resources.chm::/Dokumente/info_ge_care.html"),
                QStringLiteral("en")),
            QStringLiteral("mk:@MSITStore:/opt/a_b/resources.chm::/Dokumente/info_en_care.html"));
    }

    void testDocumentWithoutUnderscoreStays()
    {
        const QString address =
            QStringLiteral("mk:@MSITStore:/a/resources.chm::/Dokumente/note.html");
        QCOMPARE(PageAddress::InLanguage(address, QStringLiteral("en")), address);
    }

    void testFileDocumentIsMarkedByBackslashes()
    {
        QCOMPARE(PageAddress::InLanguage(QStringLiteral("C:\\x\\Dokumente\\info_ge_a.html"),
                                         QStringLiteral("fr")),
                 QStringLiteral("C:\\x\\Dokumente\\info_fr_a.html"));
        const QString slashes = QStringLiteral("file:///x/Dokumente/info_ge_a.html");
        QCOMPARE(PageAddress::InLanguage(slashes, QStringLiteral("fr")), slashes);
    }

    void testCataloguePageStays()
    {
        const QString address = QStringLiteral("file:///a/content/category_list.html?id=3");
        QCOMPARE(PageAddress::InLanguage(address, QStringLiteral("it")), address);
    }
};

QTEST_APPLESS_MAIN(TestPageAddress)
#include "test_page_address.moc"
