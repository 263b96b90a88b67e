#include "base/Errors.h"
#include "base/Numbers.h"
#include "base/tests/TranslatedErrors.h"

#include <QLocale>
#include <QTest>

#include <limits>

using namespace Tesk;

class TestNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testHalvesRoundToTheEvenNeighbour_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("rounded");
        QTest::newRow("half above zero") << 0.5 << 0.0;
        QTest::newRow("odd and a half") << 1.5 << 2.0;
        QTest::newRow("even and a half") << 2.5 << 2.0;
        QTest::newRow("odd and a half again") << 3.5 << 4.0;
        QTest::newRow("negative even") << -2.5 << -2.0;
        QTest::newRow("negative odd") << -3.5 << -4.0;
        QTest::newRow("just above a half") << 2.5000001 << 3.0;
        QTest::newRow("just below a half") << 2.4999999 << 2.0;
        QTest::newRow("largest below a half") << 0.49999999999999994 << 0.0;
        QTest::newRow("whole") << 145.0 << 145.0;
        QTest::newRow("beyond all fractions") << 4503599627370497.0 << 4503599627370497.0;
    }

    void testHalvesRoundToTheEvenNeighbour()
    {
        QFETCH(double, value);
        QFETCH(double, rounded);
        QVERIFY(RoundHalfEven(value) == rounded);
    }

    void testInt16FromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint16>("number");
        QTest::newRow("plain") << QStringLiteral("127") << qint16(127);
        QTest::newRow("negative") << QStringLiteral("-1") << qint16(-1);
        QTest::newRow("plus sign") << QStringLiteral("+7") << qint16(7);
        QTest::newRow("blanks around") << QStringLiteral("  12 ") << qint16(12);
        QTest::newRow("leading zeros") << QStringLiteral("007") << qint16(7);
        QTest::newRow("largest") << QStringLiteral("32767") << qint16(32767);
        QTest::newRow("smallest") << QStringLiteral("-32768") << qint16(-32768);
        QTest::newRow("rounds down to even") << QStringLiteral("2.5") << qint16(2);
        QTest::newRow("rounds up to even") << QStringLiteral("3.5") << qint16(4);
        QTest::newRow("rounds into the range") << QStringLiteral("32767.4") << qint16(32767);
        QTest::newRow("half goes to the even end") << QStringLiteral("-32768.5") << qint16(-32768);
    }

    void testInt16FromText()
    {
        QFETCH(QString, text);
        QFETCH(qint16, number);
        QCOMPARE(ToInt16(text), number);
    }

    void testInt16RefusesText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("one above") << QStringLiteral("32768");
        QTest::newRow("one below") << QStringLiteral("-32769");
        QTest::newRow("rounds out of the range") << QStringLiteral("32767.5");
        QTest::newRow("far above") << QStringLiteral("99999999999999999999");
        QTest::newRow("empty") << QString();
        QTest::newRow("blank") << QStringLiteral(" ");
        QTest::newRow("letters") << QStringLiteral("abc");
        QTest::newRow("digits with a letter") << QStringLiteral("12a");
        QTest::newRow("two numbers") << QStringLiteral("1 2");
        QTest::newRow("decimal comma") << QStringLiteral("2,5");
    }

    void testInt16RefusesText()
    {
        QFETCH(QString, text);
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToInt16(text));
    }

    void testInt16FromValueOutsideTheRange()
    {
        QCOMPARE(ToInt16(32767.0), qint16(32767));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToInt16(32767.5));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToInt16(-32768.6));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToInt16(std::numeric_limits<double>::infinity()));
        QVERIFY_THROWS_EXCEPTION(ConversionError,
                                 ToInt16(std::numeric_limits<double>::quiet_NaN()));
    }

    void testDatabaseNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::newRow("whole") << QStringLiteral("145") << 145.0;
        QTest::newRow("fraction") << QStringLiteral("14.5") << 14.5;
        QTest::newRow("no digit before the point") << QStringLiteral(".25") << 0.25;
        QTest::newRow("no digit after the point") << QStringLiteral("3.") << 3.0;
        QTest::newRow("negative") << QStringLiteral("-0.5") << -0.5;
        QTest::newRow("exponent") << QStringLiteral("1.5e2") << 150.0;
        QTest::newRow("blanks around") << QStringLiteral(" 2.5 ") << 2.5;
    }

    void testDatabaseNumbers()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        QVERIFY(ToDouble(text) == number);
    }

    void testDatabaseNumbersRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("blank") << QStringLiteral("  ");
        QTest::newRow("comma") << QStringLiteral("14,5");
        QTest::newRow("group separator") << QStringLiteral("1,000");
        QTest::newRow("letters") << QStringLiteral("x");
        QTest::newRow("unit behind") << QStringLiteral("14 mm");
        QTest::newRow("infinity") << QStringLiteral("inf");
        QTest::newRow("not a number") << QStringLiteral("nan");
        QTest::newRow("too large") << QStringLiteral("1e400");
    }

    void testDatabaseNumbersRefused()
    {
        QFETCH(QString, text);
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(text));
    }

    void testTypedNumbersFollowTheLocale()
    {
        const QLocale german(QLocale::German, QLocale::Germany);
        const QLocale english(QLocale::English, QLocale::UnitedStates);
        QVERIFY(ToDouble(u"14,5", german) == 14.5);
        QVERIFY(ToDouble(u" 14.5 ", english) == 14.5);
        QVERIFY(ToDouble(u"-5", german) == -5.0);
        QVERIFY(ToDouble(u"145", english) == 145.0);
    }

    void testTypedNumbersRefuseGroupSeparators()
    {
        const QLocale german(QLocale::German, QLocale::Germany);
        const QLocale english(QLocale::English, QLocale::UnitedStates);
        const QLocale french(QLocale::French, QLocale::France);
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"14.5", german));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"1.000", german));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"1,000", english));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"1 000", french));
    }

    void testTypedTextThatIsNoNumber()
    {
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"abc", QLocale(QLocale::German)));
        QVERIFY_THROWS_EXCEPTION(ConversionError, ToDouble(u"", QLocale(QLocale::German)));
    }

    void testMessageNamesTheText()
    {
        try {
            ToDouble(u"abc");
            QFAIL("no error");
        } catch (const ConversionError &error) {
            QVERIFY(error.Message().contains(QStringLiteral("abc")));
        }
    }

    void testMessagesCanBeTranslated()
    {
        QCOMPARE(KeyAndValuesOfError([] { ToDouble(u"abc"); }),
                 QStringLiteral("errorNoNumber|abc|.|{2}"));
        QCOMPARE(KeyAndValuesOfError([] { ToInt16(u"40000"); }),
                 QStringLiteral("errorNumberRange|40000|{1}|{2}"));
    }
};

QTEST_APPLESS_MAIN(TestNumbers)
#include "TestNumbers.moc"
