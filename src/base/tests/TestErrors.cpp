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
        QVERIFY_EXCEPTION_THROWN(throw ConversionError(QString()), CatalogueError);
        QVERIFY_EXCEPTION_THROWN(throw OverflowError(QString()), CatalogueError);
        QVERIFY_EXCEPTION_THROWN(throw SubscriptError(QString()), CatalogueError);
        QVERIFY_EXCEPTION_THROWN(throw FileError(QString()), CatalogueError);
        QVERIFY_EXCEPTION_THROWN(throw DuplicateKeyError(QString()), CatalogueError);
    }
};

QTEST_APPLESS_MAIN(TestErrors)
#include "TestErrors.moc"
