#include "ui/main/controls/tests/NavLeftFixture.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

using namespace Tesk;

/// The menu in a window that is too low for it.
class TestLongNavLeft : public QObject, private NavLeftFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testScrollBarStandsBesideTheEntries();
    void testScrollsToTheFocusedEntry();
    void testFirstEntryBringsItsHeading();
    void testScrollsToTheMarkedEntry();
    void testWheelLeadsToTheLastEntry();
    void testRelabellingKeepsThePlace();
    void testHoverEndsOverTheScrollBar();

private:
    QScrollBar *Bar() const { return menu->findChild<QScrollArea *>()->verticalScrollBar(); }
    static bool IsWhole(const QWidget *widget)
    {
        return widget->visibleRegion().boundingRect() == widget->rect();
    }

    int usualWidth = 0;
};

void TestLongNavLeft::init()
{
    SetUp();
    usualWidth = menu->width();
    window->resize(500, 120);
    QCoreApplication::processEvents();
    QVERIFY(Entries().last()->visibleRegion().isEmpty());
}

void TestLongNavLeft::testScrollBarStandsBesideTheEntries()
{
    QVERIFY(Bar()->isVisible());
    QCOMPARE(menu->width(), usualWidth + Bar()->width());
}

void TestLongNavLeft::testScrollsToTheFocusedEntry()
{
    Entries().first()->setFocus();
    QTest::keyClick(Entries().first(), Qt::Key_End);
    QVERIFY(IsWhole(Entries().last()));
}

void TestLongNavLeft::testFirstEntryBringsItsHeading()
{
    Entries().last()->setFocus();
    QVERIFY(!IsWhole(Headings().first()));
    QTest::keyClick(Entries().last(), Qt::Key_Home);
    QVERIFY(IsWhole(Headings().first()));
}

void TestLongNavLeft::testScrollsToTheMarkedEntry()
{
    QVERIFY(Entries()[4]->visibleRegion().isEmpty());
    menu->selectSubCategory(QStringLiteral("22"));
    QVERIFY(IsWhole(Entries()[4]));
}

void TestLongNavLeft::testWheelLeadsToTheLastEntry()
{
    const auto turnWheelOver = [](QWidget *widget) {
        const QPointF place(50, 50);
        QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
        return event.isAccepted();
    };
    // What the entry under the pointer leaves alone goes on to the area.
    QVERIFY(!turnWheelOver(Entries().first()));
    for (int turn = 0; turn < 10; ++turn)
        turnWheelOver(menu->findChild<QScrollArea *>()->viewport());
    QVERIFY(IsWhole(Entries().last()));
}

void TestLongNavLeft::testRelabellingKeepsThePlace()
{
    Bar()->setValue(Bar()->maximum());
    const int place = Bar()->value();
    QVERIFY(place > 0);
    Initialize(TwoLevels);
    QCOMPARE(Bar()->value(), place);
}

void TestLongNavLeft::testHoverEndsOverTheScrollBar()
{
    MovePointer(Entries()[0], QPoint(50, 5));
    QCOMPARE(GreyCaptions().size(), 1);
    MovePointer(Bar(), QPoint(3, 60));
    QCOMPARE(GreyCaptions(), QStringList());
}

QTEST_MAIN(TestLongNavLeft)
#include "TestLongNavLeft.moc"
