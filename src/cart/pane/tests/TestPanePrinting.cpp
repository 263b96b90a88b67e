#include "PaneWindow.h"
#include "browser/WebBrowser.h"
#include "support/EngineTest.h"
#include "support/PrintedSheets.h"
#include "support/WaitUntil.h"

#include <QDate>
#include <QFile>
#include <QPrinter>
#include <QRegularExpression>

using namespace Tesk;

namespace {

constexpr int LineCount = 40;

/// The words of each line that is not empty.
QList<QStringList> WordsOf(const QString &sheet)
{
    QList<QStringList> lines;
    for (const QString &line : sheet.split(u'\n', Qt::SkipEmptyParts))
        lines.append(line.simplified().split(u' '));
    return lines;
}

/// Whether the page is the order form's or the cart's, on each kind of paper.
void AddPagesAndPapers()
{
    QTest::addColumn<QPageSize::PageSizeId>("paper");
    QTest::addColumn<bool>("isOrder");
    QTest::newRow("order, A4") << QPageSize::A4 << true;
    QTest::newRow("order, Letter") << QPageSize::Letter << true;
    QTest::newRow("cart, A4") << QPageSize::A4 << false;
    QTest::newRow("cart, Letter") << QPageSize::Letter << false;
}

/// Prints the page on the paper of the test's data; false when it does not come.
bool Print(PaneWindow &pane)
{
    QFETCH(const QPageSize::PageSizeId, paper);
    QFETCH(const bool, isOrder);
    pane.setUpPrinter = [paper](QPrinter &printer) { printer.setPageSize(QPageSize(paper)); };
    if (isOrder) {
        pane.Pane().ExtContactCall(true);
    } else {
        if (!pane.ShowCart())
            return false;
        pane.Pane().OnPrint();
    }
    return pane.WaitForPrints(1);
}

QString AddressLine(PaneWindow &pane)
{
    return QStringLiteral("© %1 %2")
        .arg(QDate::currentDate().year())
        .arg(pane.GetController().GetText(QStringLiteral("commonAddress")));
}

} // namespace

/// The cart and the order form on paper.
class TestPanePrinting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void testFortyLines_data() { AddPagesAndPapers(); }
    void testFortyLines();
    void testLongRemarks_data();
    void testLongRemarks();
    void testLongWords_data() { AddPagesAndPapers(); }
    void testLongWords();
    void testCartIsPrintedWithWhatTheFieldsHold();
    void testPrintWaitsForThePageThatIsUnderWay();
    void testEditIsPrinted();
    void testPricesArePrintedWithAPriceListOnly();
    void testEmptyOrderIsPrinted();
};

void TestPanePrinting::testFortyLines()
{
    QFETCH(const bool, isOrder);
    PaneWindow pane;
    QStringList numbers;
    for (int i = 0; i < LineCount; ++i) {
        pane.Add(static_cast<qint16>(PaneWindow::Scissors + i), static_cast<qint16>(100 + i),
                 QStringLiteral("Ward%1").arg(i));
        numbers.append(pane.Cart().Entries().At(i)->ArtNr.section(u' ', -1));
    }
    pane.lastContact = {QStringLiteral("Bestellung"),
                        QStringLiteral("Name der Institution: Klinik Süd\r\nTelefon: 4711\r\n")};
    QVERIFY(Print(pane));

    QCOMPARE(WordInMargins(SheetsOfPdf(pane.PrintedFile())), QString());
    QCOMPARE(FaultOfAddressLines(pane.PrintedFile(), AddressLine(pane)), QString());
    const QStringList sheets = pane.PrintedText().split(u'\f', Qt::SkipEmptyParts);
    QVERIFY(sheets.size() > 1);
    // All lines in their order, number, category and amount in one row, nothing cut and nothing
    // that is there to be clicked.
    int line = 0;
    for (const QString &sheet : sheets) {
        for (const QStringList &words : WordsOf(sheet)) {
            if (line < LineCount && words.size() > 3 && words.at(1) == numbers.at(line) &&
                words.last() == QString::number(100 + line)) {
                QCOMPARE(words.at(words.size() - 2), QStringLiteral("Ward%1").arg(line));
                ++line;
            }
        }
        QVERIFY2(sheet.contains(QRegularExpression(
                     QStringLiteral("Article no\\. +Description +Your category +Amount"))),
                 qUtf8Printable(sheet));
        QCOMPARE(sheet.count(QStringLiteral("Tesk Instruments GmbH")), 1);
        QVERIFY2(!sheet.contains(QStringLiteral("Remove")), qUtf8Printable(sheet));
        // The heading of the print header stands on the first sheet only.
        QCOMPARE(sheet.startsWith(QStringLiteral("Shopping cart\n")), &sheet == &sheets.first());
    }
    QCOMPARE(line, LineCount);
    QCOMPARE(SheetsWithPictures(pane.PrintedFile()), QList<int>{1});
    QCOMPARE(sheets.first().contains(QStringLiteral("Bestellung")), isOrder);
    QCOMPARE(sheets.first().contains(QStringLiteral("Name der Institution: Klinik Süd\n")),
             isOrder);
    QVERIFY(!sheets.last().contains(QStringLiteral("Klinik Süd")));
}

void TestPanePrinting::testLongRemarks_data()
{
    QTest::addColumn<QPageSize::PageSizeId>("paper");
    QTest::addColumn<bool>("isOrder");
    QTest::addColumn<int>("lineCount");
    for (const int lineCount : {45, 60, 130}) {
        QTest::addRow("%d lines, A4", lineCount) << QPageSize::A4 << true << lineCount;
        QTest::addRow("%d lines, Letter", lineCount) << QPageSize::Letter << true << lineCount;
    }
}

void TestPanePrinting::testLongRemarks()
{
    QFETCH(const int, lineCount);
    PaneWindow pane;
    pane.Add(PaneWindow::Scissors, 3);
    pane.lastContact.subject = QStringLiteral("Bestellung");
    for (int line = 0; line < lineCount; ++line)
        pane.lastContact.body += QStringLiteral("Zeile-%1 der Bemerkungen\r\n").arg(line);
    QVERIFY(Print(pane));
    const QList<PdfSheet> sheets = SheetsOfPdf(pane.PrintedFile());
    QString text;
    for (const PdfSheet &sheet : sheets)
        text += WordsOf(sheet) + u' ';
    for (int line = 0; line < lineCount; ++line)
        QCOMPARE(text.count(QStringLiteral("Zeile-%1 der Bemerkungen").arg(line)), 1);
    QVERIFY(text.contains(QStringLiteral("AB 10/115")));
    QCOMPARE(WordInMargins(sheets), QString());
    QCOMPARE(FaultOfAddressLines(pane.PrintedFile(), AddressLine(pane)), QString());
}

void TestPanePrinting::testLongWords()
{
    PaneWindow pane;
    const QString word(120, u'W');
    QFile prices(pane.PathOf(QStringLiteral("prices.txt")));
    QVERIFY(prices.open(QIODevice::WriteOnly));
    prices.write("AB10/115\t" + word.toLatin1() + "\r\n");
    prices.close();
    pane.GetController().Prices().LoadPriceList(prices.fileName());
    for (int i = 0; i < 4; ++i)
        pane.Add(PaneWindow::Scissors, 999);
    pane.Cart().Entries().At(1)->ArtNr = word;
    pane.Cart().Entries().At(2)->Title = word;
    pane.Cart().Entries().At(3)->AltCategory = word;
    pane.lastContact = {word, word};
    QVERIFY(Print(pane));
    const QList<PdfSheet> sheets = SheetsOfPdf(pane.PrintedFile());
    QCOMPARE(WordInMargins(sheets), QString());
    QString text;
    for (const PdfSheet &sheet : sheets)
        text += WordsOf(sheet);
    // The price stands in three lines of the cart.
    QFETCH(const bool, isOrder);
    QCOMPARE(text.count(u'W'), (3 + 3 + (isOrder ? 2 : 0)) * word.size());
    QCOMPARE(text.count(QStringLiteral("999")), 4);
}

void TestPanePrinting::testCartIsPrintedWithWhatTheFieldsHold()
{
    PaneWindow pane;
    const QString category = QStringLiteral("Operating theatre 2, cupboard 14, upper drawer");
    pane.Add(PaneWindow::Scissors, 23, category);
    QVERIFY(pane.ShowCart());
    pane.Pane().OnPrint();
    QVERIFY(pane.WaitForPrints(1));
    const QString text = pane.PrintedText();
    QVERIFY2(text.contains(QStringLiteral("AB 10/115")) && text.contains(QStringLiteral(" 23\n")),
             qUtf8Printable(text));
    for (const QString &word : category.split(u' '))
        QVERIFY2(text.contains(word), qUtf8Printable(text));
    QVERIFY(text.contains(QStringLiteral("Shopping cart")));
}

// The window shows the pane, which loads its page, and asks for the print at once.
void TestPanePrinting::testPrintWaitsForThePageThatIsUnderWay()
{
    PaneWindow pane;
    pane.Add(PaneWindow::Scissors, 3);
    pane.Pane().Initialize();
    pane.Pane().OnPrint();
    QVERIFY(pane.WaitForPrints(1));
    QVERIFY(pane.PrintedText().contains(QStringLiteral("AB 10/115")));
    pane.Add(PaneWindow::OtherScissors, 4);
    pane.Pane().Initialize();
    pane.Pane().OnPrint();
    QVERIFY(pane.WaitForPrints(2));
    QVERIFY(pane.PrintedText().contains(QStringLiteral("AB 10/116")));
    QCOMPARE(pane.printCount, 2);
}

void TestPanePrinting::testEditIsPrinted()
{
    PaneWindow pane;
    pane.Add(PaneWindow::Scissors, 3);
    QVERIFY(pane.ShowCart());
    QVERIFY(pane.Type(QStringLiteral("#cat_0"), QStringLiteral("Ward 81")));
    pane.Pane().OnPrint();
    QVERIFY(pane.WaitForPrints(1));
    QVERIFY(pane.PrintedText().contains(QStringLiteral("Ward 81")));
}

void TestPanePrinting::testPricesArePrintedWithAPriceListOnly()
{
    PaneWindow pane;
    pane.Add(PaneWindow::Scissors, 3);
    pane.Pane().ExtContactCall(true);
    QVERIFY(pane.WaitForPrints(1));
    const QString withoutPrices = pane.PrintedText();
    QVERIFY2(withoutPrices.contains(QStringLiteral("AB 10/115")), qUtf8Printable(withoutPrices));
    QVERIFY(!withoutPrices.contains(QStringLiteral("EUR")));
    // The sample's price of AB 10/115.
    pane.GetController().Prices().LoadPriceList(QStringLiteral(APPLICATION_DIR "/price_list.txt"));
    pane.Pane().ExtContactCall(true);
    QVERIFY(pane.WaitForPrints(2));
    QVERIFY(pane.PrintedText().contains(QRegularExpression(QStringLiteral("14,60\\sEUR"))));
}

void TestPanePrinting::testEmptyOrderIsPrinted()
{
    PaneWindow pane;
    pane.lastContact = {QStringLiteral("Kontakt"), QStringLiteral("Telefon: 4711\r\n")};
    pane.Pane().ExtContactCall(true);
    QVERIFY(pane.WaitForPrints(1));
    const QString text = pane.PrintedText();
    QVERIFY(text.contains(QStringLiteral("Kontakt")) &&
            text.contains(QStringLiteral("Telefon: 4711")));
    QVERIFY(!text.contains(QStringLiteral("empty")));
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestPanePrinting>(argc, argv);
}

#include "TestPanePrinting.moc"
