#include "ui/main/controls/Twips.h"

#include <QTest>

using namespace Tesk;

class TestTwips : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFifteenMakeAPixel()
    {
        QCOMPARE(Twips::FromPixels(20), 300);
        QCOMPARE(Twips::ToPixels(300), 20);
        QCOMPARE(Twips::ToPixels(2990), 199);
    }

    void testWhatTouchesInTwipsTouchesInPixels()
    {
        const QRect upper = Twips::ToPixels(QRect(0, 0, 2990, 250));
        const QRect lower = Twips::ToPixels(QRect(0, 250, 2990, 250));
        QCOMPARE(upper, QRect(0, 0, 199, 16));
        QCOMPARE(lower, QRect(0, 16, 199, 17));
    }
};

QTEST_APPLESS_MAIN(TestTwips)
#include "TestTwips.moc"
