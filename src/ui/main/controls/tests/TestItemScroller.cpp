#include "ui/main/controls/ItemScroller.h"
#include "ui/main/controls/ScrollerButton.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace Tesk;

class TestItemScroller : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testCountShowsTheFirstPositionAndLeavesTheButtons();
    void testFirstItemDisablesTheWayBack();
    void testMiddleItemEnablesAllButtons();
    void testLastItemDisablesTheWayOn();
    void testSingleItemDisablesAllButtons();
    void testIndexZeroIsShownAsItIs();
    void testButtonsStepAndReport();
    void testNextAtTheEndStillReports();
    void testPreviousAtTheStartStillReports();
    void testDisableClearsTheCounter();
    void testEnableShowsTheCounterAgain();
    void testBackReportsAndIsSwitchedByItself();
    void testBackCaptionFollowsTheLanguage();
    void testMnemonicPressesBack();
    void testFocusDoesNotSlipToBack();
    void testCounterKeepsItsWidth();
    void testNamesTellWhereTheButtonsLead();
    void testDisabledButtonsLookDifferent();

private:
    ScrollerButton *Button(const char *name) const
    {
        return scroller->findChild<ScrollerButton *>(QLatin1String(name));
    }
    QString CounterText() const { return counter->text(); }
    /// Which of first, previous, next and last are enabled, such as "FPNL" or "--NL".
    QString Enabled() const;
    void Click(const char *name) { QTest::mouseClick(Button(name), Qt::LeftButton); }

    std::unique_ptr<ItemScroller> scroller;
    QLabel *counter = nullptr;
    QString back;
};

void TestItemScroller::init()
{
    back = QStringLiteral("&Back");
    scroller = std::make_unique<ItemScroller>(
        [this](const QString &key) { return key == QLatin1String("mBack") ? back : QString(); });
    counter = scroller->findChild<QLabel *>(QStringLiteral("Counter"));
    QVERIFY(counter != nullptr);
    scroller->Initialize();
    scroller->show();
    scroller->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(scroller.get()));
}

QString TestItemScroller::Enabled() const
{
    QString letters;
    letters += Button("btnFirst")->isEnabled() ? QLatin1Char('F') : QLatin1Char('-');
    letters += Button("btnPrevious")->isEnabled() ? QLatin1Char('P') : QLatin1Char('-');
    letters += Button("btnNext")->isEnabled() ? QLatin1Char('N') : QLatin1Char('-');
    letters += Button("btnLast")->isEnabled() ? QLatin1Char('L') : QLatin1Char('-');
    return letters;
}

void TestItemScroller::testCountShowsTheFirstPositionAndLeavesTheButtons()
{
    scroller->EnableScroller();
    scroller->SetCount(5);
    QCOMPARE(CounterText(), QStringLiteral("1/5"));
    QCOMPARE(Enabled(), QStringLiteral("FPNL"));

    scroller->DisableScroller();
    scroller->SetCount(6);
    QCOMPARE(CounterText(), QStringLiteral("1/6"));
    QCOMPARE(Enabled(), QStringLiteral("----"));
}

void TestItemScroller::testFirstItemDisablesTheWayBack()
{
    scroller->SetCount(5);
    scroller->SetItemIndex(1);
    QCOMPARE(Enabled(), QStringLiteral("--NL"));
    QCOMPARE(CounterText(), QStringLiteral("1/5"));
}

void TestItemScroller::testMiddleItemEnablesAllButtons()
{
    scroller->SetCount(17);
    scroller->SetItemIndex(3);
    QCOMPARE(Enabled(), QStringLiteral("FPNL"));
    QCOMPARE(CounterText(), QStringLiteral("3/17"));
}

void TestItemScroller::testLastItemDisablesTheWayOn()
{
    scroller->SetCount(5);
    scroller->SetItemIndex(5);
    QCOMPARE(Enabled(), QStringLiteral("FP--"));
}

void TestItemScroller::testSingleItemDisablesAllButtons()
{
    scroller->EnableScroller();
    scroller->SetCount(1);
    scroller->SetItemIndex(1);
    QCOMPARE(Enabled(), QStringLiteral("----"));
}

void TestItemScroller::testIndexZeroIsShownAsItIs()
{
    scroller->SetCount(5);
    scroller->SetItemIndex(0);
    QCOMPARE(CounterText(), QStringLiteral("0/5"));
    QCOMPARE(Enabled(), QStringLiteral("--NL"));
}

void TestItemScroller::testButtonsStepAndReport()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnIndexChange);
    const auto lastIndex = [&spy] { return spy.last().first().toInt(); };
    scroller->SetCount(5);
    scroller->SetItemIndex(3);
    Click("btnNext");
    QCOMPARE(lastIndex(), 4);
    QCOMPARE(CounterText(), QStringLiteral("4/5"));
    Click("btnPrevious");
    QCOMPARE(lastIndex(), 3);
    Click("btnLast");
    QCOMPARE(lastIndex(), 5);
    QCOMPARE(Enabled(), QStringLiteral("FP--"));
    Click("btnFirst");
    QCOMPARE(lastIndex(), 1);
    QCOMPARE(CounterText(), QStringLiteral("1/5"));
    QCOMPARE(Enabled(), QStringLiteral("--NL"));
    QCOMPARE(spy.size(), 4);
}

void TestItemScroller::testNextAtTheEndStillReports()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnIndexChange);
    scroller->SetCount(2);
    scroller->SetItemIndex(2);
    // Enabling leaves the position at the end.
    scroller->EnableScroller();
    Click("btnNext");
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toInt(), 2);
    QCOMPARE(CounterText(), QStringLiteral("2/2"));
}

void TestItemScroller::testPreviousAtTheStartStillReports()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnIndexChange);
    scroller->SetCount(2);
    scroller->EnableScroller();
    Click("btnPrevious");
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.last().first().toInt(), 1);
}

void TestItemScroller::testDisableClearsTheCounter()
{
    scroller->SetCount(5);
    scroller->SetItemIndex(3);
    scroller->DisableScroller();
    QCOMPARE(CounterText(), QString());
    QCOMPARE(Enabled(), QStringLiteral("----"));
}

void TestItemScroller::testEnableShowsTheCounterAgain()
{
    scroller->SetCount(5);
    scroller->DisableScroller();
    scroller->EnableScroller();
    QCOMPARE(CounterText(), QStringLiteral("1/5"));
    QCOMPARE(Enabled(), QStringLiteral("FPNL"));
}

void TestItemScroller::testBackReportsAndIsSwitchedByItself()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnHistoryBack);
    scroller->DisableScroller();
    QVERIFY(Button("btnBack")->isEnabled());
    Click("btnBack");
    QCOMPARE(spy.size(), 1);
    scroller->SetBackEnabled(false);
    Click("btnBack");
    QCOMPARE(spy.size(), 1);
    scroller->EnableScroller();
    QVERIFY(!Button("btnBack")->isEnabled());
    scroller->SetBackEnabled(true);
    Click("btnBack");
    QCOMPARE(spy.size(), 2);
}

void TestItemScroller::testBackCaptionFollowsTheLanguage()
{
    QCOMPARE(Button("btnBack")->text(), QStringLiteral("&Back"));
    const int width = Button("btnBack")->width();
    back = QStringLiteral("&Einen Schritt zurück");
    scroller->Initialize();
    QCOMPARE(Button("btnBack")->text(), back);
    QTRY_VERIFY(Button("btnBack")->width() > width);
    QVERIFY(Button("btnBack")->width() >=
            scroller->fontMetrics().horizontalAdvance(QStringLiteral("Einen Schritt zurück")));
}

void TestItemScroller::testMnemonicPressesBack()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnHistoryBack);
    QTest::keyClick(scroller.get(), Qt::Key_B, Qt::AltModifier);
    QTRY_COMPARE(spy.size(), 1);
}

void TestItemScroller::testFocusDoesNotSlipToBack()
{
    QSignalSpy spy(scroller.get(), &ItemScroller::OnHistoryBack);
    scroller->SetCount(3);
    scroller->SetItemIndex(2);
    Button("btnNext")->setFocus();
    QTest::keyClick(Button("btnNext"), Qt::Key_Return);
    QCOMPARE(CounterText(), QStringLiteral("3/3"));
    QVERIFY(!Button("btnBack")->hasFocus());
    QVERIFY(Button("btnPrevious")->hasFocus());

    scroller->DisableScroller();
    QVERIFY(!Button("btnBack")->hasFocus());
    QTest::keyClick(scroller.get(), Qt::Key_Return);
    QCOMPARE(spy.size(), 0);
}

void TestItemScroller::testCounterKeepsItsWidth()
{
    scroller->SetCount(100);
    scroller->SetItemIndex(1);
    QCoreApplication::processEvents();
    const int width = counter->width();
    const int place = Button("btnNext")->x();
    scroller->SetItemIndex(100);
    QCoreApplication::processEvents();
    QCOMPARE(counter->width(), width);
    QCOMPARE(Button("btnNext")->x(), place);
}

void TestItemScroller::testNamesTellWhereTheButtonsLead()
{
    const auto name = [this](const char *button) {
        return QAccessible::queryAccessibleInterface(Button(button))->text(QAccessible::Name);
    };
    scroller->SetCount(17);
    scroller->SetItemIndex(3);
    QCOMPARE(name("btnFirst"), QStringLiteral("\u21E4 1/17"));
    QCOMPARE(name("btnPrevious"), QStringLiteral("\u2190 2/17"));
    QCOMPARE(name("btnNext"), QStringLiteral("\u2192 4/17"));
    QCOMPARE(name("btnLast"), QStringLiteral("\u21E5 17/17"));
    QCOMPARE(name("btnBack"), QStringLiteral("Back"));
    QCOMPARE(QAccessible::queryAccessibleInterface(Button("btnBack"))->role(), QAccessible::Button);
    scroller->DisableScroller();
    QCOMPARE(name("btnFirst"), QStringLiteral("\u21E4"));
}

void TestItemScroller::testDisabledButtonsLookDifferent()
{
    for (const char *name : {"btnFirst", "btnPrevious", "btnNext", "btnLast", "btnBack"}) {
        ScrollerButton *button = Button(name);
        button->setEnabled(true);
        const QImage enabled = button->grab().toImage();
        button->setEnabled(false);
        QVERIFY2(button->grab().toImage() != enabled, name);
    }
}

QTEST_MAIN(TestItemScroller)
#include "TestItemScroller.moc"
