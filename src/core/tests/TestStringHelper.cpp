#include "core/StringHelper.h"

#include <QTest>

using namespace Tesk;

class TestStringHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testAsciiStays()
    {
        QString ascii;
        for (char16_t code = 0; code < 128; ++code)
            ascii += QChar(code);
        QCOMPARE(MaskNonAscii(ascii), ascii);
    }

    void testCharactersAbove127AreMasked()
    {
        QCOMPARE(MaskNonAscii(QStringLiteral(u"Gef\u00E4\u00DFklemme \u20AC \u0153uf")),
                 QStringLiteral("Gef__klemme _ _uf"));
    }

    void testCharactersOutsideTheCodePageStay()
    {
        QCOMPARE(MaskNonAscii(QStringLiteral(u"\u0142\u00F3d")), QStringLiteral(u"\u0142_d"));
    }

    void testEmptyTextStays() { QCOMPARE(MaskNonAscii(QString()), QString()); }
};

QTEST_APPLESS_MAIN(TestStringHelper)
#include "TestStringHelper.moc"
