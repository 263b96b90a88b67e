#include "sqlite2/IndexKey.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>
#include <set>

using namespace Sqlite2;

class IndexKeyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testNumbers_data();
    void testNumbers();
    void testNumbersSortAsTheirEncodings();
    void testNumbersBeyondADouble();
    void testNullNumberAndText();
    void testNumberTexts_data();
    void testNumberTexts();
};

void IndexKeyTest::testNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("encoded");
    // The whole numbers from 0 on as they stand in the samples; the others by the rule, by hand.
    QTest::newRow("0") << 0.0 << QByteArray("000W");
    QTest::newRow("-0") << -0.0 << QByteArray("000W");
    QTest::newRow("1") << 1.0 << QByteArray("0G1X");
    QTest::newRow("3") << 3.0 << QByteArray("0G1Z");
    QTest::newRow("4") << 4.0 << QByteArray("0G1a");
    QTest::newRow("31") << 31.0 << QByteArray("0G1~");
    QTest::newRow("32") << 32.0 << QByteArray("0G2WW");
    QTest::newRow("126") << 126.0 << QByteArray("0G2X|");
    QTest::newRow("127") << 127.0 << QByteArray("0G2X~");
    QTest::newRow("150") << 150.0 << QByteArray("0G2YM");
    QTest::newRow("4096") << 4096.0 << QByteArray("0G3X");
    QTest::newRow("0.5") << 0.5 << QByteArray("0G1WW");
    QTest::newRow("1/64") << 1.0 / 64 << QByteArray("0G0X");
    QTest::newRow("1/4096") << 1.0 / 4096 << QByteArray("0F~X");
    QTest::newRow("-1") << -1.0 << QByteArray("-F~V");
    QTest::newRow("-32") << -32.0 << QByteArray("-F|VW");
}

void IndexKeyTest::testNumbers()
{
    QFETCH(double, number);
    QFETCH(QByteArray, encoded);
    QCOMPARE(QByteArray::fromStdString(EncodeNumber(number)), encoded);
}

void IndexKeyTest::testNumbersSortAsTheirEncodings()
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> exponent(-300, 300);
    std::uniform_int_distribution<int> mantissa(-99999, 99999);
    std::set<double> numbers{0,  -1,   1,    0.5,  -0.5,  63,     64,
                             65, 4095, 4096, 4097, 1e300, -1e300, 1e-300};
    while (numbers.size() < 20000) {
        numbers.insert(mantissa(random));
        numbers.insert(mantissa(random) * std::pow(10, exponent(random)));
    }
    std::string previous;
    for (const double number : numbers) {
        const std::string encoded = EncodeNumber(number);
        QVERIFY2(previous < encoded, qPrintable(QString::number(number, 'g', 17)));
        previous = encoded;
    }
}

void IndexKeyTest::testNumbersBeyondADouble()
{
    const auto key = [](const char *text) { return EncodeIndexValue(text, TypeClass::Numeric); };
    QVERIFY(key("1e999") > key("1e308"));
    QVERIFY(key("-1e999") < key("-1e308"));
    QCOMPARE(key("1e-999"), key("0"));
    QVERIFY(EncodeNumber(std::numeric_limits<double>::max()) <
            EncodeNumber(std::numeric_limits<double>::infinity()));
}

void IndexKeyTest::testNullNumberAndText()
{
    using namespace std::string_literals;
    QCOMPARE(EncodeIndexValue({}, TypeClass::Numeric), "a\0"s);
    QCOMPARE(EncodeIndexValue({}, TypeClass::Text), "a\0"s);
    QCOMPARE(EncodeIndexValue("1", TypeClass::Numeric), "b0G1X\0"s);
    QCOMPARE(EncodeIndexValue("1", TypeClass::Text), "c1\0"s);
    QCOMPARE(EncodeIndexValue("x", TypeClass::Numeric), "cx\0"s);
    QCOMPARE(EncodeIndexValue("", TypeClass::Numeric), "c\0"s);
}

void IndexKeyTest::testNumberTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isNumber");
    for (const char *text : {"0", "7", "007", "1.50", "+5", "-3", "9e0", "1e1", "1E+2", "1e-2",
                             "2.5e-3", "10.0", "123456789012345678901234567890"})
        QTest::newRow(text) << QByteArray(text) << true;
    for (const char *text : {"", " 7 ", "7 ", " 7", ".5", "5.", "0x10", "abc", "7abc", "-", "+",
                             "1e", "1e+", "e5", "--1", "1.2.3", "1,5", "inf", "nan"})
        QTest::newRow(*text ? text : "empty") << QByteArray(text) << false;
}

void IndexKeyTest::testNumberTexts()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, isNumber);
    const std::string key = EncodeIndexValue(text.toStdString(), TypeClass::Numeric);
    QCOMPARE(key.front() == 'b', isNumber);
}

QTEST_GUILESS_MAIN(IndexKeyTest)
#include "IndexKeyTest.moc"
