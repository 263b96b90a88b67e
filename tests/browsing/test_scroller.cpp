#include "browser/WebBrowser.h"
#include "core/CategoryTree.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/ItemScroller.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace Tesk;

/// The item scroller of the real window: from product to product with mouse and space bar.
class TestScroller final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }

    void cleanup() { catalogue.reset(); }

    void testPagesWithoutAProductSwitchItOff()
    {
        QCOMPARE(Buttons(), QStringLiteral("---- -"));
        const CategoryNode *const top = catalogue->Window().Tree().Nodes().front().get();
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, top); }));
        QCOMPARE(Counter(), QString());
        QCOMPARE(Buttons(), QStringLiteral("---- B"));
        OpenList();
        QCOMPARE(Counter(), QString());
        QCOMPARE(Buttons(), QStringLiteral("---- B"));
        OpenRow(2);
        QCOMPARE(Buttons(), QStringLiteral("FPNL B"));
        OpenList();
        QCOMPARE(Counter(), QString());
        QCOMPARE(Buttons(), QStringLiteral("---- B"));
    }

    void testMouseStepsThroughTheList()
    {
        OpenList();
        OpenRow(2);
        const int last = rows.UpperRow();
        VerifyShown(2, QStringLiteral("FPNL B"));
        Step([&] { ClickOn(Button("btnNext")); });
        VerifyShown(3, QStringLiteral("FPNL B"));
        Step([&] { ClickOn(Button("btnPrevious")); });
        VerifyShown(2, QStringLiteral("FPNL B"));
        Step([&] { ClickOn(Button("btnPrevious")); });
        VerifyShown(1, QStringLiteral("--NL B"));
        Step([&] { ClickOn(Button("btnLast")); });
        VerifyShown(last, QStringLiteral("FP-- B"));
        Step([&] { ClickOn(Button("btnFirst")); });
        VerifyShown(1, QStringLiteral("--NL B"));
    }

    void testSpaceStepsThroughTheList()
    {
        OpenList();
        OpenRow(1);
        const int last = rows.UpperRow();
        Button("btnNext")->setFocus(Qt::TabFocusReason);
        Step([&] { PressKey(Button("btnNext"), Qt::Key_Space); });
        VerifyShown(2, QStringLiteral("FPNL B"));
        Button("btnLast")->setFocus(Qt::TabFocusReason);
        Step([&] { PressKey(Button("btnLast"), Qt::Key_Space); });
        VerifyShown(last, QStringLiteral("FP-- B"));
        // The focus of the button that went off is on the way back in the list.
        QVERIFY(Button("btnPrevious")->hasFocus());
        Step([&] { PressKey(Button("btnPrevious"), Qt::Key_Space); });
        VerifyShown(last - 1, QStringLiteral("FPNL B"));
        Button("btnFirst")->setFocus(Qt::TabFocusReason);
        Step([&] { PressKey(Button("btnFirst"), Qt::Key_Space); });
        VerifyShown(1, QStringLiteral("--NL B"));
    }

    void testPressOnAButtonThatIsOffDoesNothing()
    {
        OpenList();
        OpenRow(1);
        const QSignalSpy steps(catalogue->Window().scroller, &ItemScroller::OnIndexChange);
        ClickOn(Button("btnPrevious"));
        ClickOn(Button("btnFirst"));
        QCOMPARE(steps.count(), 0);
        VerifyShown(1, QStringLiteral("--NL B"));
    }

    void testProductOfTheSecondPageHasItsPlaceInTheWholeList()
    {
        OpenList();
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(catalogue->Click(QStringLiteral("a[href*='firstItem=21&']")));
        }));
        OpenRow(23);
        VerifyShown(23, QStringLiteral("FPNL B"));
    }

    void testSingleHitHasNoSteps()
    {
        OpenList();
        const QString artNr = GetField(QStringLiteral("p.artNr"), rows, 1);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { FastSearchFor(*catalogue, artNr, 2); }));
        rows = catalogue->Window().Protocol().ProductRows();
        QCOMPARE(rows.UpperRow(), 1);
        OpenRow(1);
        VerifyShown(1, QStringLiteral("---- B"));
    }

    void testSetStepsThroughItsMembers()
    {
        const CategoryNode *const leaf = FindLeaf(*catalogue, [this](const ResultTable &list) {
            const int set = FirstSet(list);
            return set > 0 && set < list.UpperRow() && MembersOf(list.Text(set, 0)).UpperRow() > 2;
        });
        QVERIFY(leaf != nullptr);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        rows = catalogue->Window().Protocol().ProductRows();
        const QString set = rows.Text(FirstSet(rows), 0);
        QVERIFY(WaitForFillAfter(*catalogue, [&] {
            QVERIFY(
                catalogue->Click(QStringLiteral("a[href='product_details.html?id=%1']").arg(set)));
        }));
        rows = MembersOf(set);
        QCOMPARE(Counter(), QStringLiteral("1/%1").arg(rows.UpperRow()));
        QCOMPARE(RowCount(*catalogue), rows.UpperRow());
        Step([&] { ClickOn(Button("btnNext")); });
        VerifyShown(2, QStringLiteral("FPNL B"));
        Step([&] { ClickOn(Button("btnPrevious")); });
        VerifyShown(1, QStringLiteral("--NL B"));
        Step([&] { ClickOn(Button("btnLast")); });
        VerifyShown(rows.UpperRow(), QStringLiteral("FP-- B"));
    }

    void testDetailsOutsideAListHaveNoSteps()
    {
        OpenList();
        const QString id = rows.Text(2, 0);
        QVERIFY(
            WaitForFillAfter(*catalogue, [&] { catalogue->Window().ShowStandaloneDetails(id); }));
        QVERIFY(catalogue->Window().wbMain->Address().endsWith(
            QLatin1String("product_details.html?id=") + id));
        QCOMPARE(Buttons(), QStringLiteral("---- B"));
        QCOMPARE(Counter(), QString());

        // The next list offers steps again.
        OpenList();
        OpenRow(2);
        VerifyShown(2, QStringLiteral("FPNL B"));
    }

    void testUnitKeepsThePlace()
    {
        OpenList();
        OpenRow(3);
        QVERIFY(WaitForFillAfter(
            *catalogue, [&] { ChooseEntry(catalogue->Window().header->cbUnitSelection, 1); }));
        VerifyShown(3, QStringLiteral("FPNL B"));
    }

private:
    QAbstractButton *Button(const char *name) { return ButtonOfScroller(*catalogue, name); }

    ResultTable MembersOf(const QString &set)
    {
        return catalogue->GetController().Queries().QuerySetMembers(set);
    }

    QString Counter()
    {
        return catalogue->Window().scroller->findChild<QLabel *>(QStringLiteral("Counter"))->text();
    }

    /// Which of first, previous, next, last and, behind a blank, back can be pressed: "--NL B".
    QString Buttons()
    {
        const auto letter = [this](const char *name, char sign) {
            return QLatin1Char(Button(name)->isEnabled() ? sign : '-');
        };
        QString letters;
        letters += letter("btnFirst", 'F');
        letters += letter("btnPrevious", 'P');
        letters += letter("btnNext", 'N');
        letters += letter("btnLast", 'L');
        letters += u' ';
        letters += letter("btnBack", 'B');
        return letters;
    }

    void OpenList()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        QVERIFY(leaf != nullptr);
        QVERIFY(WaitForFillAfter(*catalogue, [&] { ClickInTree(*catalogue, leaf); }));
        rows = catalogue->Window().Protocol().ProductRows();
    }

    void OpenRow(int row)
    {
        Step([&] {
            QVERIFY(catalogue->Click(QStringLiteral("#contListRow%1 td:nth-child(2)").arg(row)));
        });
    }

    void Step(const std::function<void()> &action)
    {
        QVERIFY(WaitForFillAfter(*catalogue, action));
    }

    /// That the details of the product in this row are shown, with its place and these buttons.
    void VerifyShown(int row, const QString &buttons)
    {
        QVERIFY(catalogue->Window().wbMain->Address().endsWith(
            QLatin1String("product_details.html?id=") + rows.Text(row, 0)));
        QVERIFY(InnerText(*catalogue, QStringLiteral("productDetails"))
                    .contains(GetField(QStringLiteral("p.artNr"), rows, row)));
        QCOMPARE(Counter(), QStringLiteral("%1/%2").arg(row).arg(rows.UpperRow()));
        QCOMPARE(Buttons(), buttons);
    }

    std::unique_ptr<CatalogueWindow> catalogue;
    ResultTable rows;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestScroller>(argc, argv);
}
#include "test_scroller.moc"
