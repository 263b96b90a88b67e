#include "browser/PagePrinter.h"
#include "browser/WebBrowser.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/PrintedSheets.h"
#include "support/SampleCatalogue.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/PageProtocol.h"

#include <QDate>
#include <QPrinter>
#include <QSignalSpy>
#include <QTest>

#include <utility>

using namespace Tesk;

namespace {

constexpr int ListLength = 20;
constexpr double PointsPerMillimetre = 72 / 25.4;
const QString AllPicturesAreThere =
    QStringLiteral("[...document.images].every(picture => picture.complete)");

bool HasThreePictures(const ResultTable &rows)
{
    return rows.UpperRow() > 1 && !GetField(QStringLiteral("p.img3"), rows, 2).isEmpty() &&
           GetField(QStringLiteral("p.isSet"), rows, 2) == QLatin1String("False");
}

} // namespace

/// The catalogue's pages on paper, as the window shows them.
class TestPrintedPages final : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<CatalogueWindow> catalogue;
    QTemporaryDir folder;
    QList<PdfSheet> sheets;

    static void AddPapers()
    {
        QTest::addColumn<QPageSize::PageSizeId>("paper");
        QTest::newRow("A4") << QPageSize::A4;
        QTest::newRow("Letter") << QPageSize::Letter;
    }

    QString File() const { return folder.filePath(QStringLiteral("print.pdf")); }

    /// Prints the page shown on the paper of the test's data. Every page keeps to the inner part of
    /// its sheets, and every page with an address line keeps clear of it.
    void Print()
    {
        QFETCH(const QPageSize::PageSizeId, paper);
        WebBrowser &browser = *catalogue->Window().wbMain;
        PagePrinter printer(browser, [this, paper](QPrinter &chosen) {
            chosen.setOutputFormat(QPrinter::PdfFormat);
            chosen.setOutputFileName(File());
            chosen.setPageSize(QPageSize(paper));
            return true;
        });
        const QSignalSpy ends(&printer, &PagePrinter::Finished);
        QVERIFY(printer.Print());
        QVERIFY(WaitUntil([&] { return !ends.isEmpty(); }));
        QCOMPARE(ends.first().first().value<PrintEnd>(), PrintEnd::Printed);
        sheets = SheetsOfPdf(File());
        QVERIFY(!sheets.isEmpty());
        QCOMPARE(sheets.first().size.toSize(), QPageSize::sizePoints(paper));
        QCOMPARE(WordInMargins(sheets), QString());
        if (!browser.Address().contains(QLatin1String("welcome.html")))
            QCOMPARE(FaultOfAddressLines(File(), AddressLine()), QString());
    }

    QString PrintedText() const
    {
        QString text;
        for (const PdfSheet &sheet : sheets)
            text += WordsOf(sheet) + u' ';
        return text;
    }

    void Run(const char *script)
    {
        QVERIFY(catalogue
                    ->Evaluate(
                        QStringLiteral("(() => { %1; return true })()").arg(QLatin1String(script)))
                    .toBool());
    }

    QString Text(const char *key) const
    {
        return catalogue->GetController().GetText(QLatin1String(key));
    }

    QString AddressLine() const
    {
        return QStringLiteral("© %1 %2")
            .arg(QDate::currentDate().year())
            .arg(Text("commonAddress"));
    }

    void OpenList(const CategoryNode *category)
    {
        ClickInTree(*catalogue, category);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("id=") + category->tag));
    }

    void OpenProduct(int row)
    {
        const QString id = catalogue->Window().Protocol().ProductRows().Text(row, 0);
        QVERIFY(catalogue->Click(QStringLiteral("#contListRow%1 td:nth-child(2)").arg(row)));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_details.html?id=") + id));
    }

    QString Field(const char *name, int row = 1) const
    {
        return GetField(QLatin1String(name), catalogue->Window().Protocol().ProductRows(), row);
    }

private Q_SLOTS:
    void init()
    {
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
    }
    void cleanup() { catalogue.reset(); }

    void testProductList_data() { AddPapers(); }
    void testProductList()
    {
        const CategoryNode *const leaf = FindLongLeaf(*catalogue);
        OpenList(leaf);
        // Names of several lines, as another catalogue may have them, fill further sheets.
        Run("for (const name of document.querySelectorAll('td:nth-child(3) > a.prodItem'))"
            " name.textContent = 'Langname '.repeat(60)");
        Print();
        QVERIFY(sheets.size() > 1);
        for (const PdfSheet &sheet : sheets)
            QCOMPARE(WordsOf(sheet).count(QStringLiteral("Article no. Description")), 1);
        const QString text = PrintedText();
        for (int row = 1; row <= ListLength; ++row)
            QCOMPARE(text.count(Field("p.artNr", row)), 1);
        QCOMPARE(text.count(QStringLiteral("Langname")), ListLength * 60);
        QVERIFY2(text.startsWith(leaf->FullPath() + u' ' + leaf->text), qPrintable(text));
        // Of the pictures the logo alone, of the links to the further lists none.
        QCOMPARE(SheetsWithPictures(File()), QList<int>{1});
        QVERIFY2(!text.contains(u'[') && !text.contains(QStringLiteral("(1)")), qPrintable(text));
    }

    void testLongWordsInAList_data() { AddPapers(); }
    void testLongWordsInAList()
    {
        OpenList(FindLongLeaf(*catalogue));
        Run("const rows = document.querySelectorAll('#list tr.contListRow');"
            "for (let cell = 1; cell < 5; ++cell)"
            " rows[cell].cells[cell].textContent = 'W'.repeat(120);"
            "document.getElementById('caption').textContent = 'W'.repeat(120)");
        Print();
        QCOMPARE(PrintedText().count(u'W'), 5 * 120);
    }

    void testLongWordsInDetails_data() { AddPapers(); }
    void testLongWordsInDetails()
    {
        OpenList(FindLeaf(*catalogue, HasThreePictures));
        OpenProduct(2);
        Run("for (const cell of document.querySelectorAll('#productDetails "
            "td:not([width=\"25\"])'))"
            " cell.textContent = 'W'.repeat(120);"
            "document.getElementById('productTitle').textContent = 'W'.repeat(120)");
        Print();
        QCOMPARE(PrintedText().count(u'W'), 5 * 120);
    }

    void testNoHits_data() { AddPapers(); }
    void testNoHits()
    {
        FastSearchFor(*catalogue, QStringLiteral("no such instrument"));
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("product_list.html")));
        Print();
        QCOMPARE(sheets.size(), 1);
        QVERIFY(WordsOf(sheets.first()).contains(Text("productListNoProducts")));
    }

    void testSetList_data() { AddPapers(); }
    void testSetList()
    {
        const CategoryNode *const leaf =
            FindLeaf(*catalogue, [](const ResultTable &rows) { return FirstSet(rows) != 0; });
        OpenList(leaf);
        const int row = FirstSet(catalogue->Window().Protocol().ProductRows());
        const QString name = Field("l.name", row);
        OpenProduct(row);
        const int members = catalogue->Window().Protocol().ProductRows().UpperRow();
        QVERIFY(members > 1);
        Run("const rows = document.querySelectorAll('#list tr.contListRow');"
            "for (let i = 0; i < 9; ++i) for (const row of rows)"
            " row.parentNode.append(row.cloneNode(true))");
        Print();
        QVERIFY(sheets.size() > 1);
        for (const PdfSheet &sheet : sheets)
            QCOMPARE(WordsOf(sheet).count(QStringLiteral("Article no. Description Length Form")),
                     1);
        const QString text = PrintedText();
        for (int member = 1; member <= members; ++member)
            QCOMPARE(text.count(Field("p.artNr", member)), 10);
        QCOMPARE(text.count(QStringLiteral(" St.")), members * 10);
        QVERIFY2(text.startsWith(leaf->FullPath() + u' ' + name), qPrintable(text));
        QCOMPARE(SheetsWithPictures(File()), QList<int>{1});
    }

    void testProductDetails_data() { AddPapers(); }
    void testProductDetails()
    {
        const CategoryNode *const leaf = FindLeaf(*catalogue, HasThreePictures);
        OpenList(leaf);
        const int row = 2;
        const QStringList facts{Field("p.artNr", row), Field("l.name", row), Field("l.form", row)};
        OpenProduct(row);
        QVERIFY(catalogue->WaitFor(QString(), AllPicturesAreThere));
        Print();
        QCOMPARE(sheets.size(), 1);
        const QString text = PrintedText();
        QVERIFY2(text.startsWith(leaf->FullPath() + u' ' + facts[1]), qPrintable(text));
        for (const QString &fact : facts)
            QVERIFY2(text.contains(fact), qPrintable(fact));
        // Each with its picture above it.
        int scales = 0;
        for (const PdfWord &word : sheets.first().words) {
            if (word.text != QStringLiteral("1:1") && word.text != QStringLiteral("2:1"))
                continue;
            ++scales;
            QVERIFY(!IsWhite(File(), 0, word.place.adjusted(0, -60, 80, -12)));
        }
        QCOMPARE(scales, 3);
    }

    void testTallPictures_data() { AddPapers(); }
    void testTallPictures()
    {
        const CategoryNode *const leaf = FindLeaf(*catalogue, HasThreePictures);
        OpenList(leaf);
        OpenProduct(2);
        Run("const cells = document.querySelectorAll('#productImages td');"
            "for (let i = 0; i < 3; ++i) for (const cell of cells)"
            " cell.parentNode.append(cell.cloneNode(true));"
            "for (const picture of document.querySelectorAll('#productImages img'))"
            " picture.style.cssText = 'width: 100mm; height: 80mm'");
        Print();
        QVERIFY(sheets.size() > 3);
        // A scale stands right under its picture, so there must be room for it on the same sheet.
        int scales = 0;
        for (const PdfSheet &sheet : std::as_const(sheets)) {
            for (const PdfWord &word : sheet.words) {
                if (!word.text.endsWith(QLatin1String(":1")))
                    continue;
                ++scales;
                QVERIFY2(word.place.top() > (12 + 80) * PointsPerMillimetre,
                         qPrintable(QString::number(word.place.top())));
            }
        }
        QCOMPARE(scales, 12);
    }

    void testCategoryPage_data() { AddPapers(); }
    void testCategoryPage()
    {
        const CategoryNode *const top = catalogue->Window().Tree().Nodes().front().get();
        OpenList(top);
        Run("const rows = document.querySelectorAll('#list tr');"
            "for (let i = 0; i < 24; ++i) for (const row of rows)"
            " row.parentNode.append(row.cloneNode(true))");
        Print();
        QVERIFY(sheets.size() > 1);
        const QString text = PrintedText();
        QVERIFY2(text.startsWith(top->FullPath() + u' ' + top->text), qPrintable(text));
        for (const CategoryNode *child : top->children)
            QVERIFY2(text.count(child->text) >= 25, qPrintable(child->text));
        QCOMPARE(SheetsWithPictures(File()), QList<int>{1});
    }

    void testWelcomePage_data() { AddPapers(); }
    void testWelcomePage()
    {
        Print();
        QCOMPARE(sheets.size(), 1);
        const QString text = PrintedText();
        for (const char *key : {"ucWelcomeCaption", "ucInfosCaption", "ucCategoriesCaption"})
            QVERIFY2(text.contains(Text(key)), key);
        for (const auto &node : catalogue->Window().Tree().Nodes()) {
            if (node->parent == nullptr || node->parent->parent == nullptr)
                QVERIFY2(text.contains(node->text), qPrintable(node->text));
        }
        QVERIFY2(!text.contains(QStringLiteral("Liste")), qPrintable(text));
        QCOMPARE(SheetsWithPictures(File()), QList<int>{1});
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestPrintedPages>(argc, argv);
}

#include "test_printed_pages.moc"
