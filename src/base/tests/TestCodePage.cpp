#include "base/CodePage.h"

#include <QTest>

using namespace Tesk;

class TestCodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testAsciiMapsToItself()
    {
        QCOMPARE(CodePage::FromBytes("Clamp 14,5\t\r\n"), QStringLiteral("Clamp 14,5\t\r\n"));
        QCOMPARE(CodePage::ToBytes(u"Clamp 14,5\t\r\n"), QByteArray("Clamp 14,5\t\r\n"));
    }

    void testReadsCharactersOfWindows1252()
    {
        QCOMPARE(CodePage::FromBytes("\x80\x84\x93\x9C\xDF\xE9\xF1\xFF"),
                 QStringLiteral(u"\u20AC\u201E\u201C\u0153\u00DF\u00E9\u00F1\u00FF"));
    }

    void testWritesCharactersOfWindows1252()
    {
        QCOMPARE(CodePage::ToBytes(u"\u20AC\u201E\u201C\u0153\u00DF\u00E9\u00F1\u00FF"),
                 QByteArray("\x80\x84\x93\x9C\xDF\xE9\xF1\xFF"));
    }

    void testOpenBytesMapOneToOne()
    {
        QCOMPARE(CodePage::FromBytes("\x81\x8D\x8F\x90\x9D"),
                 QStringLiteral(u"\u0081\u008D\u008F\u0090\u009D"));
        QCOMPARE(CodePage::ToBytes(u"\u0081\u008D\u008F\u0090\u009D"),
                 QByteArray("\x81\x8D\x8F\x90\x9D"));
    }

    void testEveryByteSurvivesTheRoundTrip()
    {
        QByteArray all;
        for (int code = 0; code < 256; ++code)
            all.append(static_cast<char>(code));
        const QString text = CodePage::FromBytes(all);
        QCOMPARE(text.size(), 256);
        QCOMPARE(CodePage::ToBytes(text), all);
    }

    void testForeignCharactersBecomeQuestionMarks()
    {
        QCOMPARE(CodePage::ToBytes(u"a\u0142b\u4E2Dc\u0080"), QByteArray("a?b?c?"));
    }

    void testCharacterOfTwoUnitsBecomesOneQuestionMark()
    {
        QCOMPARE(CodePage::ToBytes(u"a\U0001F600b"), QByteArray("a?b"));
    }

    void testLoneSurrogateBecomesOneQuestionMark()
    {
        const QString text =
            QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xDE00);
        QCOMPARE(CodePage::ToBytes(text), QByteArray("a?b?"));
    }

    void testEmptyTextIsEmpty()
    {
        QCOMPARE(CodePage::FromBytes(""), QString());
        QCOMPARE(CodePage::ToBytes(u""), QByteArray());
    }

    void testCodeOf_data()
    {
        QTest::addColumn<QChar>("character");
        QTest::addColumn<int>("code");
        QTest::newRow("NUL") << QChar(0) << 0;
        QTest::newRow("A") << QChar(u'A') << 65;
        QTest::newRow("DEL") << QChar(0x7F) << 127;
        QTest::newRow("euro sign") << QChar(0x20AC) << 0x80;
        QTest::newRow("open byte") << QChar(0x81) << 0x81;
        QTest::newRow("no-break space") << QChar(0xA0) << 0xA0;
        QTest::newRow("oe ligature") << QChar(0x153) << 0x9C;
        QTest::newRow("y with diaeresis") << QChar(0xFF) << 0xFF;
        QTest::newRow("outside the code page") << QChar(0x142) << 63;
    }

    void testCodeOf()
    {
        QFETCH(QChar, character);
        QFETCH(int, code);
        QCOMPARE(CodePage::CodeOf(character), code);
    }
};

QTEST_APPLESS_MAIN(TestCodePage)
#include "TestCodePage.moc"
