#include "ui/main/controls/tests/NavLeftFixture.h"

#include <QAccessible>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Tesk;

namespace {

const QColor Red(219, 39, 28);
const QColor White(255, 255, 255);
const QColor Grey(204, 204, 204);

} // namespace

class TestNavLeft : public QObject, private NavLeftFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }

    void testHeadingsAndEntriesStandInTheirPlaces();
    void testGrandchildrenHaveNoEntries();
    void testLongCaptionWraps();
    void testLargeFontMakesRoomForTheHeading();
    void testLargeFontMakesRoomForTheScrollBar();
    void testColours();
    void testHeadingStaysSharpAtDoubleScale();
    void testClickMarksAndReports();
    void testClickOnTheSearchEntry();
    void testClickOnAHeadingDoesNothing();
    void testMarkingByTagReportsNothing();
    void testFirstEntryOfATagIsMarked();
    void testUnknownTagClearsMarkAndHover_data();
    void testUnknownTagClearsMarkAndHover();
    void testHoverFollowsThePointer();
    void testHoverLeavesTheMarkedEntryGrey();
    void testHoverEndsOverTheFreeArea();
    void testPointerOnTheWindowEndsTheHover();
    void testResetTakesTheHoverAway();
    void testRelabellingKeepsTheElementsAndClearsTheMark();
    void testSmallerTreeRemovesTheSurplus();
    void testKeysLeadThroughTheEntries();
    void testOneEntryIsReachedByTab();
    void testAmpersandIsShownAsItIs();
    void testReadersOfTheScreenLearnNameRoleAndMark();
};

void TestNavLeft::testHeadingsAndEntriesStandInTheirPlaces()
{
    // The heights in twips: a heading takes 300 with the gap below it, an entry 50 more than its
    // caption; every heading but the first stands 200 lower.
    const int caption = 15 * QFontMetrics(menu->font()).height();
    const int entry = caption + 50;
    const int second = 300 + 3 * entry + 200;
    const int search = second + 300 + 2 * entry + 200;

    const auto expectPlace = [](const QWidget *widget, int top, int height) {
        QCOMPARE(widget->geometry(), QRect(0, top / 15, 2990 / 15, (top + height) / 15 - top / 15));
    };
    const auto headings = Headings();
    QCOMPARE(headings.size(), 3);
    expectPlace(headings[0], 0, 250);
    expectPlace(headings[1], second, 250);
    expectPlace(headings[2], search, 250);
    QCOMPARE(headings[2]->accessibleName(), QStringLiteral("searchHeadline"));

    const auto entries = Entries();
    QCOMPARE(entries.size(), 6);
    expectPlace(entries[0], 300, caption + 55);
    expectPlace(entries[1], 300 + entry, caption + 55);
    expectPlace(entries[2], 300 + 2 * entry, caption + 55);
    expectPlace(entries[3], second + 300, caption + 55);
    expectPlace(entries[4], second + 300 + entry, caption + 55);
    expectPlace(entries[5], search + 300, caption + 55);
    QCOMPARE(entries[5]->Caption(), QStringLiteral("Detail search"));
}

void TestNavLeft::testGrandchildrenHaveNoEntries()
{
    std::vector<Row> rows = TwoLevels;
    rows.insert(rows.begin() + 3, Category(121, QStringLiteral("Mayo"), 12));
    rows.push_back(Category(14, QStringLiteral("Behind another heading"), 1));
    tree = {};
    Initialize(rows);
    QStringList captions;
    for (const NavEntry *entry : Entries())
        captions.append(entry->Caption());
    QCOMPARE(captions, QStringList({QStringLiteral("Operating"), QStringLiteral("Dissecting"),
                                    QStringLiteral("Ligature"), QStringLiteral("Tissue"),
                                    QStringLiteral("Dressing"), QStringLiteral("Detail search")}));
}

void TestNavLeft::testLongCaptionWraps()
{
    std::vector<Row> rows = TwoLevels;
    rows[2][3] = QStringLiteral("Haemostatic forceps, delicate and very delicate patterns for all");
    tree = {};
    Initialize(rows);
    const int line = QFontMetrics(menu->font()).height();
    const NavEntry *longOne = Entries()[1];
    QVERIFY(longOne->CaptionHeight() >= 2 * 15 * line);
    QCOMPARE(longOne->CaptionHeight() % (15 * line), 0);
    const int top = 300 + 15 * line + 50;
    QCOMPARE(longOne->y(), top / 15);
    QCOMPARE(Entries()[2]->y(), (top + longOne->CaptionHeight() + 50) / 15);
}

void TestNavLeft::testLargeFontMakesRoomForTheHeading()
{
    QFont large;
    large.setPixelSize(30);
    menu->setFont(large);
    QVERIFY(Headings()[0]->height() >= QFontMetrics(large).height());
    QVERIFY(Entries()[0]->y() > Headings()[0]->geometry().bottom());
}

void TestNavLeft::testLargeFontMakesRoomForTheScrollBar()
{
    const int usualWidth = menu->width();
    QFont large;
    large.setPixelSize(60);
    menu->setFont(large);
    QCoreApplication::processEvents();
    const QScrollBar *bar = menu->findChild<QScrollArea *>()->verticalScrollBar();
    QVERIFY(bar->isVisible());
    QCOMPARE(menu->width(), usualWidth + bar->width());
}

void TestNavLeft::testColours()
{
    menu->selectSubCategory(QStringLiteral("12"));
    const QImage picture = window->grab().toImage();
    const auto colourAt = [&](QWidget *widget, int x, int y) {
        return picture.pixelColor(widget->mapTo(window.get(), QPoint(x, y)) *
                                  picture.devicePixelRatio());
    };
    QCOMPARE(colourAt(Headings()[0], 190, 8), Red);
    QCOMPARE(colourAt(Entries()[0], 190, 8), White);
    QCOMPARE(colourAt(Entries()[1], 190, 8), Grey);
    // The arrow's base stands at 80 twips.
    QCOMPARE(colourAt(Entries()[0], 6, 8), Red);
}

void TestNavLeft::testHeadingStaysSharpAtDoubleScale()
{
    QPixmap pixmap(menu->size() * 2);
    pixmap.setDevicePixelRatio(2);
    menu->render(&pixmap);
    const QImage picture = pixmap.toImage();
    const int bottom = Headings()[0]->geometry().bottom();
    QCOMPARE(picture.pixelColor(380, 2 * bottom + 1), Red);
    QCOMPARE(picture.pixelColor(380, 2 * bottom + 2), White);
}

void TestNavLeft::testClickMarksAndReports()
{
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    QTest::mouseClick(Entries()[1], Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("12"));
    QVERIFY(Entries()[1]->IsMarked());

    // The arrow belongs to the entry.
    QTest::mouseClick(Entries()[3], Qt::LeftButton, {}, QPoint(7, 8));
    QCOMPARE(spy.last().first().toString(), QStringLiteral("21"));
    QVERIFY(!Entries()[1]->IsMarked());
    QVERIFY(Entries()[3]->IsMarked());
}

void TestNavLeft::testClickOnTheSearchEntry()
{
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    QTest::mouseClick(Entries().last(), Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("searchDetail"));
}

void TestNavLeft::testClickOnAHeadingDoesNothing()
{
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    for (NavHeading *heading : Headings())
        QTest::mouseClick(heading, Qt::LeftButton);
    QCOMPARE(spy.size(), 0);
    QCOMPARE(GreyCaptions(), QStringList());
}

void TestNavLeft::testMarkingByTagReportsNothing()
{
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    menu->selectSubCategory(QStringLiteral("22"));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Dressing")}));
    menu->selectSubCategory(QStringLiteral("11"));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
    QCOMPARE(spy.size(), 0);
}

void TestNavLeft::testFirstEntryOfATagIsMarked()
{
    std::vector<Row> rows = TwoLevels;
    rows[5][0] = QStringLiteral("13");
    tree = {};
    Initialize(rows);
    menu->selectSubCategory(QStringLiteral("13"));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Ligature")}));
}

void TestNavLeft::testUnknownTagClearsMarkAndHover_data()
{
    QTest::addColumn<QString>("tag");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("99");
    QTest::newRow("of a heading") << QStringLiteral("1");
}

void TestNavLeft::testUnknownTagClearsMarkAndHover()
{
    QFETCH(const QString, tag);
    menu->selectSubCategory(QStringLiteral("12"));
    MovePointer(Entries()[3], QPoint(50, 5));
    QCOMPARE(GreyCaptions().size(), 2);
    menu->selectSubCategory(tag);
    QCOMPARE(GreyCaptions(), QStringList());

    // The mark goes even when the pointer never was on the menu.
    menu->selectSubCategory(QStringLiteral("12"));
    menu->selectSubCategory(tag);
    QCOMPARE(GreyCaptions(), QStringList());
}

void TestNavLeft::testHoverFollowsThePointer()
{
    MovePointer(Entries()[0], QPoint(50, 5));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
    MovePointer(Entries()[1], QPoint(50, 5));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Dissecting")}));
}

void TestNavLeft::testHoverLeavesTheMarkedEntryGrey()
{
    menu->selectSubCategory(QStringLiteral("11"));
    MovePointer(Entries()[0], QPoint(50, 5));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
    MovePointer(Entries()[2], QPoint(50, 5));
    QCOMPARE(GreyCaptions(),
             QStringList({QStringLiteral("Operating"), QStringLiteral("Ligature")}));
    // An entry that loses the mark turns white, wherever the pointer is.
    MovePointer(Entries()[0], QPoint(50, 5));
    menu->selectSubCategory(QStringLiteral("13"));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Ligature")}));
}

void TestNavLeft::testHoverEndsOverTheFreeArea()
{
    menu->selectSubCategory(QStringLiteral("11"));
    MovePointer(Entries()[2], QPoint(50, 5));
    MovePointer(menu, QPoint(50, menu->height() - 10));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));

    MovePointer(Entries()[2], QPoint(50, 5));
    MovePointer(Headings()[1], QPoint(50, 5));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
}

void TestNavLeft::testPointerOnTheWindowEndsTheHover()
{
    menu->selectSubCategory(QStringLiteral("11"));
    MovePointer(Entries()[2], QPoint(50, 5));
    QCOMPARE(GreyCaptions().size(), 2);
    MovePointer(window.get(), QPoint(450, 300));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
}

void TestNavLeft::testResetTakesTheHoverAway()
{
    menu->selectSubCategory(QStringLiteral("11"));
    MovePointer(Entries()[2], QPoint(50, 5));
    menu->ResetMouseCapture();
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Operating")}));
}

void TestNavLeft::testRelabellingKeepsTheElementsAndClearsTheMark()
{
    menu->selectSubCategory(QStringLiteral("11"));
    const auto entries = Entries();
    std::vector<Row> rows = TwoLevels;
    rows[0][3] = QStringLiteral("Scheren");
    rows[1][3] = QStringLiteral("Chirurgische Scheren");
    searchCaption = QStringLiteral("Detailsuche");
    Initialize(rows);
    QCOMPARE(Entries(), entries);
    QCOMPARE(GreyCaptions(), QStringList());
    QCOMPARE(entries.first()->Caption(), QStringLiteral("Chirurgische Scheren"));
    QCOMPARE(entries.last()->Caption(), QStringLiteral("Detailsuche"));
    QCOMPARE(Headings().first()->accessibleName(), QStringLiteral("Scheren"));
}

void TestNavLeft::testSmallerTreeRemovesTheSurplus()
{
    menu->selectSubCategory(QStringLiteral("22"));
    tree = {};
    Initialize({Category(1, QStringLiteral("Scissors"))});
    QCOMPARE(Headings().size(), 2);
    QCOMPARE(Entries().size(), 1);
    QCOMPARE(GreyCaptions(), QStringList());
}

void TestNavLeft::testKeysLeadThroughTheEntries()
{
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    const auto entries = Entries();
    entries[0]->setFocus();
    QTest::keyClick(entries[0], Qt::Key_Up);
    QVERIFY(entries[0]->hasFocus());
    QTest::keyClick(entries[0], Qt::Key_Down);
    QVERIFY(entries[1]->hasFocus());
    QTest::keyClick(entries[1], Qt::Key_End);
    QVERIFY(entries[5]->hasFocus());
    QTest::keyClick(entries[5], Qt::Key_Down);
    QVERIFY(entries[5]->hasFocus());
    QTest::keyClick(entries[5], Qt::Key_Home);
    QVERIFY(entries[0]->hasFocus());
    QCOMPARE(spy.size(), 0);

    QTest::keyClick(entries[0], Qt::Key_Return);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("11"));
    QTest::keyClick(entries[0], Qt::Key_Down);
    QTest::keyClick(entries[1], Qt::Key_Space);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("12"));
    QCOMPARE(GreyCaptions(), QStringList({QStringLiteral("Dissecting")}));
}

void TestNavLeft::testOneEntryIsReachedByTab()
{
    const auto stops = [this] {
        QStringList captions;
        for (const NavEntry *entry : Entries()) {
            if (entry->focusPolicy() & Qt::TabFocus)
                captions.append(entry->Caption());
        }
        return captions;
    };
    QCOMPARE(stops(), QStringList({QStringLiteral("Operating")}));
    menu->selectSubCategory(QStringLiteral("21"));
    QCOMPARE(stops(), QStringList({QStringLiteral("Tissue")}));
    Entries()[3]->setFocus();
    QTest::keyClick(Entries()[3], Qt::Key_Down);
    QCOMPARE(stops(), QStringList({QStringLiteral("Dressing")}));
}

void TestNavLeft::testAmpersandIsShownAsItIs()
{
    std::vector<Row> rows = TwoLevels;
    rows[1][3] = QStringLiteral("Cut & &hold");
    tree = {};
    Initialize(rows);
    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    QTest::keyClick(window.get(), Qt::Key_H, Qt::AltModifier);
    QCoreApplication::processEvents();
    QCOMPARE(spy.size(), 0);
    QCOMPARE(Entries().first()->accessibleName(), QStringLiteral("Cut & &hold"));
}

void TestNavLeft::testReadersOfTheScreenLearnNameRoleAndMark()
{
    QAccessibleInterface *entry = QAccessible::queryAccessibleInterface(Entries()[1]);
    QCOMPARE(entry->role(), QAccessible::ListItem);
    QCOMPARE(entry->text(QAccessible::Name), QStringLiteral("Dissecting"));
    QVERIFY(!entry->state().selected);
    menu->selectSubCategory(QStringLiteral("12"));
    QVERIFY(entry->state().selected);

    QSignalSpy spy(menu, &NavLeft::OnCategorySelect);
    QVERIFY(entry->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
    entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(menu->accessibleName(), QStringLiteral("ucCategoriesCaption"));
}

QTEST_MAIN(TestNavLeft)
#include "TestNavLeft.moc"
