#include "ui/main/history/NavigationHistory.h"

#include <QTest>

using namespace Tesk;

namespace {

QString Page(int number)
{
    return QStringLiteral("file:///opt/page%1.html").arg(number);
}

/// A history after visits to pages `first` to `last`.
NavigationHistory Visited(int first, int last)
{
    NavigationHistory history;
    for (int number = first; number <= last; ++number)
        history.PushEntry(Page(number));
    return history;
}

} // namespace

class TestNavigationHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFreshHistoryHasNothingToGoBackTo() { QVERIFY(!NavigationHistory().HasMoreEntries()); }

    void testOnePageHasNothingToGoBackTo()
    {
        NavigationHistory history = Visited(1, 1);
        QVERIFY(!history.HasMoreEntries());
    }

    void testTheFirstPageLeavesThePlaceBeforeItEmpty()
    {
        NavigationHistory history = Visited(1, 1);
        QCOMPARE(history.PopEntry(), QString());
    }

    void testSecondPageLeadsBackToTheFirst()
    {
        NavigationHistory history = Visited(1, 2);
        QVERIFY(history.HasMoreEntries());
        QCOMPARE(history.PopEntry(), Page(1));
        QVERIFY(!history.HasMoreEntries());
    }

    void testSamePageTwiceInARowIsRecordedOnce()
    {
        NavigationHistory history = Visited(1, 1);
        history.PushEntry(Page(1));
        QVERIFY(!history.HasMoreEntries());
    }

    void testEmptyEntryIsNotRecordedAtFirst()
    {
        NavigationHistory history;
        history.PushEntry(QString());
        history.PushEntry(Page(1));
        QVERIFY(!history.HasMoreEntries());
    }

    void testFragmentIsCutOff()
    {
        NavigationHistory history;
        history.PushEntry(QStringLiteral("page.html#top"));
        history.PushEntry(QStringLiteral("other.html"));
        QCOMPARE(history.PopEntry(), QStringLiteral("page.html"));
    }

    void testOnlyTheLastFragmentIsCutOff()
    {
        NavigationHistory history;
        history.PushEntry(QStringLiteral("a#b.html#top"));
        history.PushEntry(QStringLiteral("other.html"));
        QCOMPARE(history.PopEntry(), QStringLiteral("a#b.html"));
    }

    void testFragmentOfTheNewestPageIsNotRecorded()
    {
        NavigationHistory history = Visited(1, 1);
        history.PushEntry(Page(1) + QStringLiteral("#top"));
        QVERIFY(!history.HasMoreEntries());
    }

    void testFiftyPagesAllLeadBack()
    {
        NavigationHistory history = Visited(1, 50);
        for (int number = 49; number >= 1; --number) {
            QVERIFY(history.HasMoreEntries());
            QCOMPARE(history.PopEntry(), Page(number));
        }
        QVERIFY(!history.HasMoreEntries());
    }

    void testRingKeepsTheNewestPages()
    {
        // 51 places: the last of 52 visits takes the place of the first.
        NavigationHistory history = Visited(1, 52);
        for (int number = 51; number >= 2; --number) {
            QVERIFY(history.HasMoreEntries());
            QCOMPARE(history.PopEntry(), Page(number));
        }
        QVERIFY(!history.HasMoreEntries());
    }

    void testAfterFiftyOnePagesTheRingHasWrapped()
    {
        NavigationHistory history = Visited(1, 51);
        QVERIFY(history.HasMoreEntries());
        for (int number = 50; number >= 1; --number)
            QCOMPARE(history.PopEntry(), Page(number));
        QVERIFY(!history.HasMoreEntries());
    }

    void testPageReachedByGoingBackIsNotRecordedAgain()
    {
        NavigationHistory history = Visited(1, 3);
        QCOMPARE(history.PopEntry(), Page(2));
        history.PushEntry(Page(2));
        QCOMPARE(history.PopEntry(), Page(1));
    }

    void testPageReachedByGoingBackStaysUnrecordedUntilTheNextStep()
    {
        // Back to X, then to Y, then to X: the second visit of X leaves Y the newest entry.
        NavigationHistory history;
        const QString x = QStringLiteral("x.html");
        const QString y = QStringLiteral("y.html");
        history.PushEntry(x);
        history.PushEntry(QStringLiteral("other.html"));
        QCOMPARE(history.PopEntry(), x);
        history.PushEntry(x);
        history.PushEntry(y);
        history.PushEntry(x);
        QCOMPARE(history.PopEntry(), x);
        QVERIFY(!history.HasMoreEntries());
    }

    void testNextStepBackAllowsThePageAgain()
    {
        NavigationHistory history = Visited(1, 3);
        QCOMPARE(history.PopEntry(), Page(2));
        QCOMPARE(history.PopEntry(), Page(1));
        history.PushEntry(Page(2));
        QVERIFY(history.HasMoreEntries());
        QCOMPARE(history.PopEntry(), Page(1));
    }

    void testNamedViewIsAnEntryLikeAnyOther()
    {
        NavigationHistory history;
        history.PushEntry(QStringLiteral("SearchDetail"));
        history.PushEntry(Page(1));
        QCOMPARE(history.PopEntry(), QStringLiteral("SearchDetail"));
    }
};

QTEST_APPLESS_MAIN(TestNavigationHistory)
#include "TestNavigationHistory.moc"
