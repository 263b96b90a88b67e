#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/CrumbButton.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Tesk;

namespace {

const Crumb Home{QStringLiteral("tesk-shop"), QStringLiteral("default.html")};

/// `count` crumbs "0", "1" and so on, with the links "link0", "link1".
QList<Crumb> Crumbs(int count)
{
    QList<Crumb> crumbs;
    for (int i = 0; i < count; ++i)
        crumbs.append({QString::number(i), QStringLiteral("link%1").arg(i)});
    return crumbs;
}

} // namespace

class TestBreadcrumb : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testHomeRowAloneShowsOneCrumb();
    void testEachCrumbHasAnArrowBeforeIt();
    void testCrumbsFollowEachOther();
    void testElevenRowsFillAllCrumbs();
    void testTwelveRowsChangeNothingOnScreen();
    void testShorterListHidesTheSurplus();
    void testEmptyListHidesAll();
    void testClickReportsTheLink();
    void testCrumbWithoutLinkReportsAnEmptyText();
    void testKeysReachAndPressACrumb();
    void testCaptionsStandAMiddleAboveTheMiddle();
    void testColours();
    void testLongPathIsCutToTheBand();
    void testShortCaptionsStayWholeBesideALongOne();
    void testReadersOfTheScreenLearnALink();

private:
    /// The pixels that the whole caption takes.
    int CaptionWidth(const QString &caption) const
    {
        return int(std::ceil(QFontMetricsF(breadcrumb->font()).horizontalAdvance(caption)));
    }
    QList<CrumbButton *> Shown() const;
    QStringList Captions() const;
    /// The columns of pixels in which something is drawn beside the captions.
    QList<int> ArrowColumns() const;

    std::unique_ptr<Breadcrumb> breadcrumb;
};

void TestBreadcrumb::init()
{
    breadcrumb = std::make_unique<Breadcrumb>();
    QFont font;
    font.setPixelSize(12);
    breadcrumb->setFont(font);
    breadcrumb->resize(800, 30);
    breadcrumb->show();
    breadcrumb->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(breadcrumb.get()));
}

QList<CrumbButton *> TestBreadcrumb::Shown() const
{
    QList<CrumbButton *> shown;
    for (CrumbButton *crumb : breadcrumb->findChildren<CrumbButton *>()) {
        if (crumb->isVisible())
            shown.append(crumb);
    }
    return shown;
}

QStringList TestBreadcrumb::Captions() const
{
    QStringList captions;
    for (const CrumbButton *crumb : Shown())
        captions.append(crumb->Caption());
    return captions;
}

void TestBreadcrumb::testHomeRowAloneShowsOneCrumb()
{
    breadcrumb->SetList({Home});
    QCOMPARE(Captions(), QStringList({QStringLiteral("tesk-shop")}));
    QCOMPARE(breadcrumb->findChildren<CrumbButton *>().size(), 11);
}

QList<int> TestBreadcrumb::ArrowColumns() const
{
    for (CrumbButton *const crumb : Shown())
        crumb->hide();
    const QImage image = breadcrumb->grab().toImage();
    const QColor band(219, 39, 28);
    QList<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) != band) {
                columns.append(x);
                break;
            }
        }
    }
    return columns;
}

void TestBreadcrumb::testEachCrumbHasAnArrowBeforeIt()
{
    breadcrumb->SetList(Crumbs(11));
    breadcrumb->SetList({Home, {QStringLiteral("Scissors"), QStringLiteral("x")}});
    QList<QRect> captions;
    for (const CrumbButton *const crumb : Shown())
        captions.append(crumb->CaptionRect());
    // An arrow begins 75 twips behind the caption before it, 125 before its own.
    const int second = captions[0].right() + 1;
    QList<int> columns = ArrowColumns();
    QVERIFY(!columns.isEmpty());
    QCOMPARE(columns.first(), 75 / 15);
    QVERIFY(columns.contains(second + 75 / 15));
    for (const int column : columns) {
        const bool isBeforeFirst = column < captions[0].left();
        const bool isBeforeSecond = column > second && column < captions[1].left();
        QVERIFY2(isBeforeFirst || isBeforeSecond, qPrintable(QString::number(column)));
    }
}

void TestBreadcrumb::testCrumbsFollowEachOther()
{
    breadcrumb->SetList(
        {Home, {QStringLiteral("Fine scissors"), {}}, {QStringLiteral("Microscheren"), {}}});
    // A caption stands 200 twips behind the end of the one before it.
    int x = 0;
    const auto shown = Shown();
    for (const CrumbButton *crumb : shown) {
        const int width = CaptionWidth(crumb->Caption());
        QCOMPARE(crumb->CaptionRect().x(), (x + 200) / 15);
        QCOMPARE(crumb->CaptionRect().width(), (x + 200 + 15 * width) / 15 - (x + 200) / 15);
        x += 200 + 15 * width;
    }
    QCOMPARE(shown.size(), 3);
    for (const CrumbButton *crumb : shown)
        QCOMPARE(crumb->ShownCaption(), crumb->Caption());
}

void TestBreadcrumb::testElevenRowsFillAllCrumbs()
{
    breadcrumb->SetList(Crumbs(11));
    QCOMPARE(Captions(), QStringLiteral("0 1 2 3 4 5 6 7 8 9 10").split(QLatin1Char(' ')));
}

void TestBreadcrumb::testTwelveRowsChangeNothingOnScreen()
{
    breadcrumb->SetList({Home, {QStringLiteral("Scissors"), QStringLiteral("old")}});
    breadcrumb->SetList(Crumbs(12));
    QCOMPARE(Captions(), QStringList({QStringLiteral("tesk-shop"), QStringLiteral("Scissors")}));
    QCOMPARE(breadcrumb->list(), Crumbs(12));

    // A click takes the link from the stored list.
    QSignalSpy spy(breadcrumb.get(), &Breadcrumb::OnCrumbSelect);
    QTest::mouseClick(Shown()[1], Qt::LeftButton);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("link1"));
}

void TestBreadcrumb::testShorterListHidesTheSurplus()
{
    breadcrumb->SetList(Crumbs(5));
    breadcrumb->SetList(Crumbs(2));
    QCOMPARE(Captions(), QStringList({QStringLiteral("0"), QStringLiteral("1")}));
}

void TestBreadcrumb::testEmptyListHidesAll()
{
    breadcrumb->SetList(Crumbs(5));
    breadcrumb->SetList({});
    QCOMPARE(Captions(), QStringList());
}

void TestBreadcrumb::testClickReportsTheLink()
{
    QSignalSpy spy(breadcrumb.get(), &Breadcrumb::OnCrumbSelect);
    breadcrumb->SetList({Home, {QStringLiteral("Scissors"), QStringLiteral("list.html?id=3")}});
    QTest::mouseClick(Shown()[0], Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("default.html"));
    QTest::mouseClick(Shown()[1], Qt::LeftButton);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("list.html?id=3"));
}

void TestBreadcrumb::testCrumbWithoutLinkReportsAnEmptyText()
{
    QSignalSpy spy(breadcrumb.get(), &Breadcrumb::OnCrumbSelect);
    breadcrumb->SetList({Home, {QStringLiteral("Detailsuche"), {}}});
    QTest::mouseClick(Shown()[1], Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toString(), QString());
}

void TestBreadcrumb::testKeysReachAndPressACrumb()
{
    QSignalSpy spy(breadcrumb.get(), &Breadcrumb::OnCrumbSelect);
    breadcrumb->SetList(Crumbs(3));
    Shown()[0]->setFocus();
    QTest::keyClick(Shown()[0], Qt::Key_Tab);
    QVERIFY(Shown()[1]->hasFocus());
    QTest::keyClick(Shown()[1], Qt::Key_Return);
    QCOMPARE(spy.last().first().toString(), QStringLiteral("link1"));
    QTest::keyClick(Shown()[1], Qt::Key_Space);
    QCOMPARE(spy.size(), 2);
}

void TestBreadcrumb::testCaptionsStandAMiddleAboveTheMiddle()
{
    breadcrumb->SetList({Home});
    // 30 pixels are 450 twips: 225 - 100 = 125 twips, which is pixel 8.
    QCOMPARE(Shown()[0]->CaptionRect().y(), 8);
    // 600 twips: 300 - 100 = 200 twips, which is pixel 13.
    breadcrumb->resize(800, 40);
    QCoreApplication::processEvents();
    QCOMPARE(Shown()[0]->CaptionRect().y(), 13);
}

void TestBreadcrumb::testColours()
{
    breadcrumb->SetList({Home});
    const QImage picture = breadcrumb->grab().toImage();
    const auto colourAt = [&picture](int x, int y) {
        return picture.pixelColor(QPoint(x, y) * picture.devicePixelRatio());
    };
    QCOMPARE(colourAt(1, 1), QColor(219, 39, 28));
    QCOMPARE(colourAt(790, 28), QColor(219, 39, 28));
    // The arrow's base stands at 75 twips, level with the caption.
    const int middle = Shown()[0]->CaptionRect().center().y();
    QCOMPARE(colourAt(6, middle), QColor(255, 255, 255));
    QCOMPARE(colourAt(3, middle), QColor(219, 39, 28));
}

void TestBreadcrumb::testLongPathIsCutToTheBand()
{
    breadcrumb->resize(300, 30);
    breadcrumb->SetList({Home,
                         {QStringLiteral("Ciseaux à pansements et à fil métallique"), {}},
                         {QStringLiteral("Microciseaux à manche plat ou à manche rond"), {}}});
    QCoreApplication::processEvents();
    const auto shown = Shown();
    for (const CrumbButton *crumb : shown) {
        QVERIFY(breadcrumb->rect().contains(crumb->geometry()));
        QVERIFY(crumb->CaptionRect().width() > 30);
    }
    QCOMPARE(shown.last()->toolTip(), shown.last()->Caption());

    breadcrumb->resize(800, 30);
    QCoreApplication::processEvents();
    QCOMPARE(Shown().last()->toolTip(), QString());
    QCOMPARE(Shown().last()->CaptionRect().width(), CaptionWidth(Shown().last()->Caption()));
}

void TestBreadcrumb::testShortCaptionsStayWholeBesideALongOne()
{
    breadcrumb->resize(260, 30);
    breadcrumb->SetList({Home, {QString(200, QLatin1Char('x')), {}}});
    QCoreApplication::processEvents();
    QCOMPARE(Shown()[0]->ShownCaption(), QStringLiteral("tesk-shop"));
    QVERIFY(Shown()[1]->ShownCaption().endsWith(QChar(0x2026)));
    QCOMPARE(Shown()[1]->toolTip(), QString(200, QLatin1Char('x')));
}

void TestBreadcrumb::testReadersOfTheScreenLearnALink()
{
    breadcrumb->SetList({Home});
    QAccessibleInterface *crumb = QAccessible::queryAccessibleInterface(Shown()[0]);
    QCOMPARE(crumb->role(), QAccessible::Link);
    QCOMPARE(crumb->text(QAccessible::Name), QStringLiteral("tesk-shop"));
}

QTEST_MAIN(TestBreadcrumb)
#include "TestBreadcrumb.moc"
