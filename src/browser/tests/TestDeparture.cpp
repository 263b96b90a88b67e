#include "browser/Departure.h"

#include <QTest>
#include <QWidget>

using namespace Tesk;

/// What a page may open while another one is on its way.
class TestDeparture : public QObject
{
    Q_OBJECT

private:
    const QUrl left{QStringLiteral("file:///content/left.html?id=1")};
    const QUrl leftAgain{QStringLiteral("file:///content/left.html?id=2#a")};
    const QUrl next{QStringLiteral("file:///content/next.html")};

private Q_SLOTS:
    void testNothingIsRefusedWithoutADeparture_data()
    {
        QTest::addColumn<QUrl>("from");
        QTest::addColumn<QUrl>("to");
        QTest::newRow("first page") << QUrl() << next;
        QTest::newRow("same page") << left << leftAgain;
    }

    void testNothingIsRefusedWithoutADeparture()
    {
        QFETCH(const QUrl, from);
        QFETCH(const QUrl, to);
        Departure departure;
        QVERIFY(!departure.Refuses(left));
        departure.Begin(from, to);
        QVERIFY(!departure.Refuses(from));
        QCOMPARE(departure.TakeUp(), QUrl());
    }

    void testPageIsRefusedUntilTheNextOneIsThere()
    {
        Departure departure;
        departure.Begin(left, next);
        QVERIFY(departure.Refuses(left));
        QVERIFY(departure.IsFirstRefusal());
        QVERIFY(departure.Refuses(leftAgain));
        QVERIFY(!departure.IsFirstRefusal());
        QVERIFY(!departure.Refuses(next));
        // Back on the page that was left.
        QVERIFY(!departure.Refuses(left));
    }

    void testDepartureEndsWithTheLoad()
    {
        Departure departure;
        departure.Begin(left, next);
        departure.Continue(leftAgain);
        QVERIFY(departure.Refuses(left));
        departure.Continue(next);
        QVERIFY(!departure.Refuses(left));
        departure.Begin(left, next);
        departure.End();
        QVERIFY(!departure.Refuses(left));
    }

    void testUserMayGoElsewhere()
    {
        QWidget page;
        page.show();
        Departure departure;
        QTest::mouseClick(&page, Qt::LeftButton);
        departure.Begin(left, next);
        QVERIFY(departure.Refuses(left));
        QTest::mouseClick(&page, Qt::LeftButton);
        QVERIFY(!departure.Refuses(left));
        QCOMPARE(departure.TakeUp(), QUrl());
    }

    void testOnlyALoadThatThePageEndedIsTakenUp()
    {
        Departure departure;
        departure.Begin(left, next);
        QCOMPARE(departure.TakeUp(), QUrl());
        QVERIFY(departure.Refuses(left));
        QCOMPARE(departure.TakeUp(), next);
        QCOMPARE(departure.TakeUp(), QUrl());
    }

    void testLoadIsNotTakenUpForEver()
    {
        Departure departure;
        departure.Begin(left, next);
        for (int load = 0; load < Departure::MostLoads; ++load) {
            QVERIFY(departure.Refuses(left));
            QCOMPARE(departure.TakeUp(), next);
            departure.Begin(left, next);
        }
        QVERIFY(departure.Refuses(left));
        QCOMPARE(departure.TakeUp(), QUrl());
        QVERIFY(!departure.Refuses(left));
        departure.Begin(left, next);
        QVERIFY(departure.Refuses(left));
        QCOMPARE(departure.TakeUp(), next);
    }
};

QTEST_MAIN(TestDeparture)

#include "TestDeparture.moc"
