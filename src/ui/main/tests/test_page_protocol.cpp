#include "base/Errors.h"
#include "core/CategoryTree.h"
#include "pages/HtmlBuilder.h"
#include "support/RecordingDocument.h"
#include "support/TestApplication.h"
#include "ui/main/MousePointer.h"
#include "ui/main/PageHost.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/ItemScroller.h"
#include "ui/main/history/NavigationHistory.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace Tesk;

namespace {

class RecordingHost final : public PageHost
{
public:
    const CategoryNode *CurrentNode() const override { return currentNode; }
    void TreeViewCategories_NodeClick(const CategoryNode *node) override
    {
        currentNode = node;
        ++clickCount;
    }
    void SelectCategory(const CategoryNode *node) override { currentNode = node; }
    void SetStatusText(const QString &text) override { statusTexts << text; }
    void SetBreadcrumb(const QList<Crumb> &pairs) override { crumbs = pairs; }

    const CategoryNode *currentNode = nullptr;
    int clickCount = 0;
    QStringList statusTexts;
    QList<Crumb> crumbs;
};

QString Page(const char *tail)
{
    return QStringLiteral("file:///a/content/") + QLatin1String(tail);
}

} // namespace

/// On the sample database: category 2 holds 12 products, products 50 and 25 are sets, 17 is none.
class TestPageProtocol final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        application = std::make_unique<TestApplication>(QStringLiteral(SAMPLES_DIR "/catalog.db"));
        builder = std::make_unique<HtmlBuilder>(application->GetController());
        tree = std::make_unique<CategoryTree>();
        tree->Fill(application->GetController().Queries().QueryCategories());
        history = std::make_unique<NavigationHistory>();
        scroller = std::make_unique<ItemScroller>([](const QString &key) { return key; });
        document = RecordingDocument();
        host = RecordingHost();
        protocol = std::make_unique<PageProtocol>(
            PageProtocol::Parts{application->GetController(), *builder, *tree, *history, document,
                                host, pointer, *scroller});
        filled = std::make_unique<QSignalSpy>(protocol.get(), &PageProtocol::PageFilled);
    }

    void testEmptyAddressResetsThePointerOnly()
    {
        for (const char *address : {"  http:///  ", "", "   "}) {
            pointer.SetHourglass();
            protocol->DocumentComplete(QLatin1String(address));
            QCOMPARE(QApplication::overrideCursor(), nullptr);
            QCOMPARE(protocol->CurrentUrl(), QLatin1String(address));
        }
        protocol->DocumentComplete(Page("one.html"));
        QVERIFY(!history->HasMoreEntries());
        QVERIFY(document.calls.isEmpty());
    }

    void testCategoryPageOfAnotherNodeSelectsItAndReplacesItsEntry()
    {
        protocol->DocumentComplete(Page("before.html"));
        protocol->DocumentComplete(Page("category_list.html?id=3"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(host.clickCount, 1);
        QCOMPARE(host.currentNode->tag, QStringLiteral("3"));
        QVERIFY(document.calls.isEmpty());

        protocol->DocumentComplete(Page("category_list.html?id=3"));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(document.Html(QStringLiteral("caption")), host.currentNode->text);
        QCOMPARE(history->PopEntry(), Page("before.html"));
    }

    void testCategoryPageThatLeadsOnToAListLeavesNoEntry()
    {
        protocol->DocumentComplete(Page("before.html"));
        protocol->DocumentComplete(Page("category_list.html?id=2"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(host.clickCount, 1);

        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(history->PopEntry(), Page("before.html"));
    }

    void testCategoryPageOfTheSelectedNodeIsFilledAtOnce()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("1"));
        protocol->DocumentComplete(Page("category_list.html?id=1"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(host.clickCount, 0);
        QCOMPARE(document.Html(QStringLiteral("caption")), host.currentNode->text);
    }

    void testListOfACategoryShowsItsProducts()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(protocol->ProductRows().UpperRow(), 12);
        QCOMPARE(document.Html(QStringLiteral("caption")), host.currentNode->text);
        QCOMPARE(document.Html(QStringLiteral("list")).count(QLatin1String("<tr id=\"contListRow")),
                 12);
    }

    void testPagesAreNamedForWhatTheyShow()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("1"));
        protocol->DocumentComplete(Page("category_list.html?id=1"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(protocol->PageName(), host.currentNode->text);

        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(protocol->PageName(), tree->FindByTag(QStringLiteral("2"))->text);

        const ResultTable product =
            application->GetController().Queries().QueryProduct(QStringLiteral("17"));
        protocol->DocumentComplete(Page("product_details.html?id=17"));
        QCOMPARE(protocol->PageName(), QString());
        QTRY_COMPARE(filled->size(), 3);
        QCOMPARE(protocol->PageName(), GetField(QStringLiteral("p.artNr"), product, 1) + u' ' +
                                           GetField(QStringLiteral("l.name"), product, 1));

        protocol->DocumentComplete(Page("../PDF/sheet.pdf"));
        QCOMPARE(protocol->PageName(), QString());
    }

    void testPageThatIsLeftForSearchResultsIsNotFilled()
    {
        PageProtocol clock(PageProtocol::Parts{application->GetController(), *builder, *tree,
                                               *history, document, host, pointer, *scroller});
        const QSignalSpy ticks(&clock, &PageProtocol::PageFilled);
        protocol->DocumentComplete(Page("category_list.html?id=3"));
        protocol->SetSearchRows(ResultTable());
        // Armed later, with the same interval.
        clock.DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(ticks.size(), 1);
        QCOMPARE(filled->size(), 0);
        QCOMPARE(host.clickCount, 0);
    }

    void testListThatIsLeftForAProductOfTheCartIsNotFilled()
    {
        PageProtocol clock(PageProtocol::Parts{application->GetController(), *builder, *tree,
                                               *history, document, host, pointer, *scroller});
        const QSignalSpy ticks(&clock, &PageProtocol::PageFilled);
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        protocol->SetStandaloneDetails(true);
        // Armed later, with the same interval.
        clock.DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(ticks.size(), 1);
        QCOMPARE(filled->size(), 0);
    }

    void testListOfSearchResultsKeepsTheRows()
    {
        const ResultTable rows =
            application->GetController().Queries().QueryProduct(QStringLiteral("17"));
        protocol->SetSearchRows(rows);
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id="));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(document.Html(QStringLiteral("caption")),
                 QStringLiteral("en:productListSearchHeadline"));
        QCOMPARE(protocol->ProductRows().UpperRow(), 1);
        QVERIFY(document.Html(QStringLiteral("list")).contains(rows.Text(1, 1)));
    }

    void testListOfAnotherCategorySelectsIt()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("1"));
        const CategoryNode *const node = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(host.currentNode, node);
        QCOMPARE(host.clickCount, 0);
        QCOMPARE(document.Html(QStringLiteral("caption")), node->text);
        QCOMPARE(protocol->ProductRows().UpperRow(), 12);
        QCOMPARE(host.crumbs.last().caption, node->text);
    }

    void testListOfACategoryAfterASearchShowsTheCategory()
    {
        protocol->SetSearchRows(
            application->GetController().Queries().QueryProduct(QStringLiteral("17")));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(host.currentNode, tree->FindByTag(QStringLiteral("2")));
        QCOMPARE(protocol->ProductRows().UpperRow(), 12);
    }

    void testSearchResultsComeBackAfterOtherPages()
    {
        const ResultTable rows =
            application->GetController().Queries().QueryProduct(QStringLiteral("17"));
        protocol->SetSearchRows(rows);
        protocol->DocumentComplete(Page("product_details.html?id=50"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(protocol->ProductRows().UpperRow(), 4);
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id="));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(host.currentNode, nullptr);
        QCOMPARE(protocol->ProductRows().UpperRow(), 1);
        QVERIFY(document.Html(QStringLiteral("list")).contains(rows.Text(1, 1)));
    }

    void testSetThatEndsItsListStillStepsThroughItsMembers()
    {
        protocol->SetProductRows(
            application->GetController().Queries().QueryProduct(QStringLiteral("50")));
        protocol->DocumentComplete(Page("product_details.html?id=50"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(Counter(), QStringLiteral("1/4"));
        QVERIFY(ScrollerButton("btnNext")->isEnabled());
        QVERIFY(ScrollerButton("btnFirst")->isEnabled());
    }

    void testDetailsOutsideAListHaveNoSteps()
    {
        // A place in the middle of the rows, which a list would let the user leave both ways.
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->SetProductRows(
            application->GetController().Queries().QueryProductsOfCategory(QStringLiteral("2")));
        protocol->SetStandaloneDetails(true);
        protocol->DocumentComplete(Page("product_details.html?id=") +
                                   protocol->ProductRows().Text(6, 0));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(Counter(), QString());
        for (const char *button : {"btnFirst", "btnPrevious", "btnNext", "btnLast"})
            QVERIFY(!ScrollerButton(button)->isEnabled());
    }

    void testDetailsOfAListSetThePosition()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        protocol->DocumentComplete(Page("product_details.html?id=") +
                                   protocol->ProductRows().Text(6, 0));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(Counter(), QStringLiteral("6/12"));
        for (const char *button : {"btnFirst", "btnPrevious", "btnNext", "btnLast"})
            QVERIFY(ScrollerButton(button)->isEnabled());
    }

    void testWelcomePageSwitchesTheStepsOff()
    {
        scroller->SetCount(5);
        scroller->SetItemIndex(3);
        protocol->DocumentComplete(Page("welcome.html"));
        QCOMPARE(Counter(), QString());
        QVERIFY(!ScrollerButton("btnNext")->isEnabled());
    }

    void testBackIsOfferedOnceThereIsAPageBefore()
    {
        protocol->DocumentComplete(Page("welcome.html"));
        QVERIFY(!ScrollerButton("btnBack")->isEnabled());
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        QVERIFY(ScrollerButton("btnBack")->isEnabled());
    }

    void testDetailsOfASetReplaceTheRowsByItsMembers()
    {
        protocol->DocumentComplete(Page("product_details.html?id=50"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(protocol->ProductRows().UpperRow(), 4);
        QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("hidden"));
    }

    void testDetailsOfAProductKeepTheRows()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        QTRY_COMPARE(filled->size(), 1);
        protocol->DocumentComplete(Page("product_details.html?id=17"));
        QTRY_COMPARE(filled->size(), 2);
        QCOMPARE(protocol->ProductRows().UpperRow(), 12);
        QCOMPARE(document.Visibility(QStringLiteral("imagesTable")), QStringLiteral("visible"));
    }

    void testOnlyTheLastOfTwoQuickPagesIsFilled()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2"));
        protocol->DocumentComplete(Page("product_details.html?id=17"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(filled->at(0).at(0).toString(), QStringLiteral("productDetails"));
        QCOMPARE(document.Html(QStringLiteral("caption")), QString());
    }

    void testFailedFillPutsThePointerRight()
    {
        pointer.SetHourglass();
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("could not be filled")));
        protocol->DocumentComplete(Page("product_details.html?id=9999"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        QVERIFY(document.calls.isEmpty());
    }

    void testJumpInsideAListFillsTheSameList()
    {
        host.currentNode = tree->FindByTag(QStringLiteral("2"));
        protocol->DocumentComplete(Page("product_list.html?firstItem=1&id=2#top"));
        QTRY_COMPARE(filled->size(), 1);
        QCOMPARE(protocol->ProductRows().UpperRow(), 12);
    }

    void testFailedLoadPutsThePointerRight()
    {
        pointer.SetHourglass();
        protocol->LoadFailed();
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void testListWithoutAProperFirstItemPutsThePointerRight()
    {
        pointer.SetHourglass();
        QVERIFY_THROWS_EXCEPTION(ConversionError, protocol->DocumentComplete(
                                                      Page("product_list.html?firstItem=x&id=2")));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void testWelcomePageIsFilledAtOnce()
    {
        protocol->DocumentComplete(Page("welcome.html"));
        QCOMPARE(document.Html(QStringLiteral("text")), QStringLiteral("en:ucWelcomeText"));
        QCOMPARE(host.statusTexts, QStringList{QString()});
    }

    void testDocumentShowsAsItIs()
    {
        protocol->DocumentComplete(Page("one.html"));
        pointer.SetHourglass();
        protocol->DocumentComplete(
            QStringLiteral("mk:@MSITStore:/a/resources.chm::/Dokumente/info_en_care.html"));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        QVERIFY(document.calls.isEmpty());
        QVERIFY(history->HasMoreEntries());
        QCOMPARE(history->PopEntry(), Page("one.html"));
    }

private:
    QString Counter() const
    {
        return scroller->findChild<QLabel *>(QStringLiteral("Counter"))->text();
    }

    QAbstractButton *ScrollerButton(const char *name) const
    {
        return scroller->findChild<QAbstractButton *>(QLatin1String(name));
    }

    std::unique_ptr<TestApplication> application;
    std::unique_ptr<HtmlBuilder> builder;
    std::unique_ptr<CategoryTree> tree;
    std::unique_ptr<NavigationHistory> history;
    RecordingDocument document;
    RecordingHost host;
    MousePointer pointer;
    std::unique_ptr<ItemScroller> scroller;
    std::unique_ptr<PageProtocol> protocol;
    std::unique_ptr<QSignalSpy> filled;
};

QTEST_MAIN(TestPageProtocol)
#include "test_page_protocol.moc"
