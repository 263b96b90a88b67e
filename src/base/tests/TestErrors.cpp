#include "base/Errors.h"

#include <QTest>

using namespace Tesk;

class TestErrors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testMessageKeepsItsCharacters()
    {
        const QString message = QStringLiteral(u"Die Datei \u201EPreise \u0142\u201C fehlt.");
        QCOMPARE(FileError(message).Message(), message);
    }

    void testFamilyIsCaughtAsOne()
    {
        QVERIFY_THROWS_EXCEPTION(CatalogueError, throw ConversionError(QString()));
        QVERIFY_THROWS_EXCEPTION(CatalogueError, throw OverflowError(QString()));
        QVERIFY_THROWS_EXCEPTION(CatalogueError, throw SubscriptError(QString()));
        QVERIFY_THROWS_EXCEPTION(CatalogueError, throw FileError(QString()));
        QVERIFY_THROWS_EXCEPTION(CatalogueError, throw DuplicateKeyError(QString()));
    }
};

QTEST_APPLESS_MAIN(TestErrors)
#include "TestErrors.moc"
