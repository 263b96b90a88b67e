#include "browser/Engine.h"
#include "browser/WebBrowser.h"
#include "search/SearchDetail.h"
#include "support/CatalogueWindow.h"
#include "support/EngineProcess.h"
#include "support/ShownPage.h"
#include "support/WaitUntil.h"
#include "ui/main/CatalogApplication.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"
#include "ui/main/controls/Breadcrumb.h"
#include "ui/main/controls/ItemScroller.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

using namespace Tesk;

namespace {

const QString SampleCatalogue = QStringLiteral(APPLICATION_DIR);

// Leaf categories of the sample catalogue.
const QString DissectingScissors = QStringLiteral("3");
const QString IrisScissors = QStringLiteral("5");

} // namespace

/// What the user finds when he goes back from one kind of page to another.
class TestBackToLists final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        window = &catalogue->Window();
    }

    void cleanup() { catalogue.reset(); }

    void testFromASearchToTheListOfACategory()
    {
        QVERIFY(OpenList(DissectingScissors));
        const QStringList numbers = ShownNumbers();
        QVERIFY(!numbers.isEmpty());
        QVERIFY(Search(QStringLiteral("forceps")));
        QVERIFY(ShownNumbers() != numbers);

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("&id=") + DissectingScissors));
        QCOMPARE(ShownNumbers(), numbers);
        VerifySelected(DissectingScissors);
    }

    void testFromACategoryToTheResultsOfASearch()
    {
        QVERIFY(Search(QStringLiteral("forceps")));
        const QStringList hits = ShownNumbers();
        QVERIFY(!hits.isEmpty());
        QVERIFY(OpenList(DissectingScissors));
        QVERIFY(ShownNumbers() != hits);

        PressBack();
        QVERIFY(WaitForSearchResults());
        QCOMPARE(ShownNumbers(), hits);
        QCOMPARE(window->CurrentNode(), nullptr);
        QCOMPARE(Caption(), Text("productListSearchHeadline"));
        QCOMPARE(window->lblStatus->text(), QStringLiteral("%1: %2")
                                                .arg(Text("productListSearchHeadline"))
                                                .arg(window->Protocol().ProductRows().UpperRow()));
    }

    void testFromOneCategoryToAnother()
    {
        QVERIFY(OpenList(DissectingScissors));
        const QStringList numbers = ShownNumbers();
        QVERIFY(OpenList(IrisScissors));

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("&id=") + DissectingScissors));
        QCOMPARE(ShownNumbers(), numbers);
        VerifySelected(DissectingScissors);
    }

    void testFromASetToTheResultsOfASearch()
    {
        QVERIFY(Search(QStringLiteral("set")));
        const QStringList hits = ShownNumbers();
        const ResultTable rows = window->Protocol().ProductRows();
        QString setId;
        for (qsizetype row = 1; row <= rows.UpperRow() && setId.isEmpty(); ++row) {
            const ResultTable product =
                catalogue->GetController().Queries().QueryProduct(rows.Text(row, 0));
            if (GetField(QStringLiteral("p.isSet"), product, 1) == QLatin1String("True"))
                setId = rows.Text(row, 0);
        }
        QVERIFY(!setId.isEmpty());
        QVERIFY(
            catalogue->Click(QStringLiteral("[onclick$=\"id=%1';\"] td:nth-child(2)").arg(setId)));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + setId));

        PressBack();
        QVERIFY(WaitForSearchResults());
        QCOMPARE(ShownNumbers(), hits);
    }

    void testToTheResultsOfAnOlderSearch()
    {
        QVERIFY(Search(QStringLiteral("forceps")));
        const QStringList older = ShownNumbers();
        QVERIFY(OpenList(DissectingScissors));
        QVERIFY(Search(QStringLiteral("iris")));
        QVERIFY(ShownNumbers() != older);

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("&id=") + DissectingScissors));
        PressBack();
        QVERIFY(WaitForSearchResults());
        QCOMPARE(ShownNumbers(), older);
    }

    void testToDetailsAmongTheProductsOfTheirList()
    {
        QVERIFY(OpenList(DissectingScissors));
        const ResultTable rows = window->Protocol().ProductRows();
        const QString third = rows.Text(3, 0);
        QVERIFY(OpenDetails(third));
        const QString position = QStringLiteral("3/%1").arg(rows.UpperRow());
        QCOMPARE(Counter(), position);
        QVERIFY(OpenList(IrisScissors));

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + third));
        QVERIFY(WaitUntil([&] { return Counter() == position; }));
        const CategoryNode *const node = window->Tree().FindByTag(DissectingScissors);
        QCOMPARE(window->CurrentNode(), node);
        QCOMPARE(window->ucBreadcrumb->list().last().caption, node->text);
    }

    void testToTheSearchFormAfterDetailsOfAnEarlierResult()
    {
        QVERIFY(Search(QStringLiteral("forceps")));
        const QStringList hits = ShownNumbers();
        QVERIFY(OpenDetails(window->Protocol().ProductRows().Text(1, 0)));
        PressBack();
        QVERIFY(WaitForSearchResults());

        QTest::keyClick(window->windowHandle(), Qt::Key_4, Qt::ControlModifier);
        SearchDetail *const form = window->ucSearchDetail;
        QTest::keyClicks(form->tbProductLength, QStringLiteral("145"));
        const QSignalSpy fills(&window->Protocol(), &PageProtocol::PageFilled);
        QTest::keyClick(form->tbProductLength, Qt::Key_Return);
        QVERIFY(WaitUntil([&] { return !fills.isEmpty(); }));
        QCOMPARE(window->tabMain->currentIndex(), int(frmCatalog::ProductsTab));

        PressBack();
        QCOMPARE(window->tabMain->currentIndex(), int(frmCatalog::SearchTab));
        PressBack();
        QVERIFY(WaitForSearchResults());
        QVERIFY(WaitUntil([&] { return ShownNumbers() == hits; }));
    }

    void testFromAPageThatCannotBeShown()
    {
        QVERIFY(OpenList(DissectingScissors));
        const QStringList numbers = ShownNumbers();
        window->wbMain->Navigate(catalogue->GetController().GetContentBaseUrl() +
                                 QStringLiteral("/content/missing.html"));
        QVERIFY(WaitUntil([this] { return window->wbMain->Address().isEmpty(); }));

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("&id=") + DissectingScissors));
        QCOMPARE(ShownNumbers(), numbers);
    }

    // The page is an entry: it was shown before it failed.
    void testFromAPageThatFailedLater()
    {
        QVERIFY(OpenList(DissectingScissors));
        const QStringList numbers = ShownNumbers();
        QVERIFY(OpenList(IrisScissors));
        QVERIFY(WaitForFillAfter(*catalogue, [this] { KillEngine(*window->wbMain); }));
        KillEngine(*window->wbMain);
        QVERIFY(WaitUntil([this] { return !window->wbMain->FailedAddress().isEmpty(); }));

        PressBack();
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("&id=") + DissectingScissors));
        QCOMPARE(ShownNumbers(), numbers);
        QCOMPARE(window->wbMain->FailedAddress(), QString());
    }

private:
    bool OpenList(const QString &id)
    {
        window->TreeViewCategories_NodeClick(window->Tree().FindByTag(id));
        return catalogue->WaitForFilledPage(QStringLiteral("&id=") + id);
    }

    bool OpenDetails(const QString &id)
    {
        return catalogue->Click(QStringLiteral("[onclick$=\"id=%1';\"] td:nth-child(2)").arg(id)) &&
               catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + id);
    }

    QString Counter() const
    {
        return window->scroller->findChild<QLabel *>(QStringLiteral("Counter"))->text();
    }

    bool Search(const QString &text)
    {
        QLineEdit *const field = window->header->tbFastSearchText;
        field->setFocus();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        return WaitForSearchResults();
    }

    bool WaitForSearchResults()
    {
        return catalogue->WaitFor(
            QStringLiteral("product_list.html?firstItem=1&id="),
            QStringLiteral("document.getElementById('caption')?.innerText.trim() == '%1'")
                .arg(Text("productListSearchHeadline")));
    }

    void PressBack()
    {
        auto *const back =
            window->scroller->findChild<QAbstractButton *>(QStringLiteral("btnBack"));
        QTest::mouseClick(back, Qt::LeftButton);
    }

    QString Text(const char *key) const
    {
        return catalogue->GetController().GetText(QLatin1String(key));
    }

    QString Caption()
    {
        return catalogue->Evaluate(QStringLiteral("document.getElementById('caption').innerText"))
            .toString()
            .trimmed();
    }

    /// The first column of the rows shown.
    QStringList ShownNumbers()
    {
        return catalogue
            ->Evaluate(QStringLiteral("[...document.querySelectorAll('tr[id^=contListRow]')]"
                                      ".map(row => row.cells[1].innerText.trim()).join('|')"))
            .toString()
            .split(u'|', Qt::SkipEmptyParts);
    }

    void VerifySelected(const QString &id)
    {
        const CategoryNode *const node = window->Tree().FindByTag(id);
        QCOMPARE(window->CurrentNode(), node);
        QCOMPARE(Caption(), node->text);
        QCOMPARE(window->lblStatus->text(), node->FullPath());
        QVERIFY(window->TreeViewCategories->IsBold(node));
    }

    std::unique_ptr<CatalogueWindow> catalogue;
    frmCatalog *window = nullptr;
};

int main(int argc, char *argv[])
{
    ConfigureEngine();
    CatalogApplication application(argc, argv);
    TestBackToLists test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_back_to_lists.moc"
