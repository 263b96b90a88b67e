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

    void testMessageInTheLanguageOfTheTexts()
    {
        const FileError error(
            QStringLiteral("The list a {1} is empty."),
            {QStringLiteral("errorList"), {QStringLiteral("a {1}"), QStringLiteral("leer")}});
        QString text = QStringLiteral("{1} {x} {2} {} {0}{0} {");
        const auto getText = [&text](const QString &key) {
            return key == QLatin1String("errorList") ? text : QString();
        };
        QCOMPARE(error.MessageIn(getText), QStringLiteral("leer {x} {2} {} a {1}a {1} {"));
        QCOMPARE(error.Message(), QStringLiteral("The list a {1} is empty."));
        text.clear();
        QCOMPARE(error.MessageIn(getText), error.Message());
    }

    void testErrorWithoutAKeyIsEnglishInEveryLanguage()
    {
        const auto getText = [](const QString &) { return QStringLiteral("text of no key"); };
        QCOMPARE(OverflowError(QStringLiteral("It is full.")).MessageIn(getText),
                 QStringLiteral("It is full."));
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
