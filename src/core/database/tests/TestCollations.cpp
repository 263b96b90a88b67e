#include "core/database/Collations.h"

#include <QTest>

using namespace Tesk::Database;

namespace {

int SignOf(int value)
{
    return static_cast<int>(value > 0) - static_cast<int>(value < 0);
}

} // namespace

class TestCollations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNumericOrder_data()
    {
        QTest::addColumn<QByteArray>("left");
        QTest::addColumn<QByteArray>("right");
        QTest::addColumn<int>("sign");
        QTest::newRow("equal values") << QByteArray("007") << QByteArray("7") << 0;
        QTest::newRow("fraction of zero") << QByteArray("7.0") << QByteArray("7") << 0;
        QTest::newRow("exponent") << QByteArray("1e1") << QByteArray("10") << 0;
        QTest::newRow("plus") << QByteArray("+5") << QByteArray("5") << 0;
        QTest::newRow("negative zero") << QByteArray("-0") << QByteArray("0") << 0;
        QTest::newRow("by value, not by digits") << QByteArray("9") << QByteArray("10") << -1;
        QTest::newRow("negative") << QByteArray("-3") << QByteArray("2") << -1;
        QTest::newRow("fraction") << QByteArray("1.5") << QByteArray("1.25") << 1;
        QTest::newRow("many digits")
            << QByteArray("12345678901234567890") << QByteArray("9999999999999999999") << 1;
        QTest::newRow("beyond a double") << QByteArray("1e400") << QByteArray("1e300") << 1;
        QTest::newRow("number before text") << QByteArray("999") << QByteArray("") << -1;
        QTest::newRow("text behind number") << QByteArray(" 7 ") << QByteArray("999") << 1;
        QTest::newRow("two texts") << QByteArray("7abc") << QByteArray("abc") << -1;
        QTest::newRow("blank before letter") << QByteArray(" 7 ") << QByteArray("7abc") << -1;
    }

    void testNumericOrder()
    {
        QFETCH(QByteArray, left);
        QFETCH(QByteArray, right);
        QFETCH(int, sign);
        QCOMPARE(SignOf(CompareNumeric(left.toStdString(), right.toStdString())), sign);
        QCOMPARE(SignOf(CompareNumeric(right.toStdString(), left.toStdString())), -sign);
    }

    void testTextOrder_data()
    {
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::addColumn<int>("sign");
        const auto add = [](const char *name, const char16_t *left, const char16_t *right,
                            int sign) {
            QTest::newRow(name) << QString::fromUtf16(left) << QString::fromUtf16(right) << sign;
        };
        add("equal", u"Schere", u"Schere", 0);
        add("prefix", u"Schere", u"Scheren", -1);
        add("empty", u"", u"a", -1);
        add("digits as text", u"007", u"7", -1);
        add("upper before lower case", u"Z", u"a", -1);
        add("ASCII before the rest", u"zebra", u"é", -1);
        // In Windows-1252 œ is 9C, é is E9, Š is 8A, ÿ is FF, € is 80.
        add("œ before é", u"œuf", u"éuf", -1);
        add("Š before œ", u"aŠ", u"aœ", -1);
        add("€ before Š", u"€", u"Š", -1);
        add("é before ÿ", u"Hallé", u"Hallÿ", -1);
        add("same lead byte in UTF-8", u"é", u"ê", -1);
        add("equal start beyond ASCII", u"œé", u"œê", -1);
        add("prefix beyond ASCII", u"œ", u"œé", -1);
    }

    void testTextOrder()
    {
        QFETCH(QString, left);
        QFETCH(QString, right);
        QFETCH(int, sign);
        QCOMPARE(SignOf(CompareText(left.toStdString(), right.toStdString())), sign);
        QCOMPARE(SignOf(CompareText(right.toStdString(), left.toStdString())), -sign);
    }
};

QTEST_APPLESS_MAIN(TestCollations)
#include "TestCollations.moc"
