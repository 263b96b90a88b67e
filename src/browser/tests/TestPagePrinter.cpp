#include "PrintFixture.h"
#include "browser/PaperSize.h"
#include "support/PdfFiles.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>

namespace Tesk {

/// Pages on paper, and the choices of the print dialog.
class TestPagePrinter : public QObject
{
    Q_OBJECT

private:
    PrintFixture fixture;

private Q_SLOTS:
    void init() { QFile::remove(fixture.Pdf()); }

    void testPrintsEverySheetWithItsCaption_data()
    {
        QTest::addColumn<QPageSize::PageSizeId>("size");
        QTest::addColumn<int>("rowsOfSheet");
        QTest::addColumn<int>("sheets");
        // Of 297 mm, 24 are margins: 10 for the caption and 13 rows of 20 fit. 7 x 13 + 9 = 100.
        QTest::newRow("A4") << QPageSize::A4 << 13 << 8;
        // Of 279.4 mm, 255.4 are left: 12 rows. 8 x 12 + 4 = 100.
        QTest::newRow("Letter") << QPageSize::Letter << 12 << 9;
    }

    void testPrintsEverySheetWithItsCaption()
    {
        QFETCH(const QPageSize::PageSizeId, size);
        QFETCH(const int, rowsOfSheet);
        QFETCH(const int, sheets);
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf(), size));
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), sheets);
        for (int sheet = 1; sheet <= sheets; ++sheet) {
            QStringList expected = {QStringLiteral("Caption")};
            for (int row = (sheet - 1) * rowsOfSheet + 1;
                 row <= qMin(sheet * rowsOfSheet, PrintFixture::RowCount); ++row)
                expected += QStringLiteral("Row %1").arg(row);
            QCOMPARE(LinesOfSheet(fixture.Pdf(), sheet), expected);
        }
    }

    void testLeavesMargins()
    {
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        QVERIFY(PrintFixture::IsPrinted(printer));
        const QList<PdfSheet> sheets = SheetsOfPdf(fixture.Pdf());
        QVERIFY(!sheets.isEmpty() && !sheets.first().words.isEmpty());
        const QPointF first = sheets.first().words.first().place.topLeft();
        constexpr double margin = 12 * 72 / 25.4; // points
        QVERIFY(qAbs(first.x() - margin) < 1);
        QVERIFY(first.y() >= margin);
    }

    void testPrintsChosenSheetsOnly()
    {
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(2, 3);
            return PrintFixture::IntoFile(fixture.Pdf())(chosen);
        });
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), 2);
        QVERIFY(LinesOfSheet(fixture.Pdf(), 1).contains(QStringLiteral("Row 14")));
        QVERIFY(LinesOfSheet(fixture.Pdf(), 2).contains(QStringLiteral("Row 39")));
    }

    void testSheetsBeyondTheLastAreLeftOut()
    {
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(7, 90);
            return PrintFixture::IntoFile(fixture.Pdf())(chosen);
        });
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), 2);
    }

    void testCancelPrintsNothing()
    {
        QVERIFY(fixture.OpenLongTable());
        bool isCancelled = true;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            return PrintFixture::IntoFile(fixture.Pdf())(chosen) && !isCancelled;
        });
        QVERIFY(!printer.Print());
        QVERIFY(!printer.IsPrinting());
        isCancelled = false;
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), PrintFixture::SheetsOfTable);
    }

    // The engine makes the sheets of one print after the other.
    void testSecondPrintIsPrintedAfterTheFirst()
    {
        QVERIFY(fixture.OpenLongTable());
        const QStringList files{fixture.Pdf(QStringLiteral("first.pdf")),
                                fixture.Pdf(QStringLiteral("second.pdf"))};
        QStringList left = files;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            return PrintFixture::IntoFile(left.takeFirst())(chosen);
        });
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QVERIFY(printer.Print());
        QVERIFY(printer.IsPrinting());
        QVERIFY(printer.Print());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, BrowserFixture::WaitTime);
        QVERIFY(!printer.IsPrinting());
        for (const QString &file : files)
            QCOMPARE(SheetCount(file), PrintFixture::SheetsOfTable);
    }

    void testSecondPrintIsRefusedWhileTheUserIsAsked()
    {
        QVERIFY(fixture.OpenLongTable());
        bool isSecondBegun = true;
        PagePrinter *asked = nullptr;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &) {
            isSecondBegun = asked->Print();
            return false;
        });
        asked = &printer;
        QVERIFY(!printer.Print());
        QVERIFY(!isSecondBegun);
    }

    void testProposesTheTitleAsName()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("title.html"),
                                               "<title>Nadeln / 5.5: \"fein\"</title><p>text")));
        QStringList names;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            names += chosen.docName();
            return false;
        });
        printer.Print();
        printer.Print(QStringLiteral("Order"));
        QCOMPARE(names, QStringList({QStringLiteral("Nadeln 5 5 fein"), QStringLiteral("Order")}));
    }

    void testPaperIsThatOfTheTerritory()
    {
        QCOMPARE(UsualPaperSize(QLocale(QStringLiteral("de_DE"))).id(), QPageSize::A4);
        QCOMPARE(UsualPaperSize(QLocale(QStringLiteral("en_GB"))).id(), QPageSize::A4);
        QCOMPARE(UsualPaperSize(QLocale(QStringLiteral("en_US"))).id(), QPageSize::Letter);
        QCOMPARE(UsualPaperSize(QLocale(QStringLiteral("fr_CA"))).id(), QPageSize::Letter);
        QCOMPARE(UsualPaperSize(QLocale::c()).id(), QPageSize::A4);
    }

    void testDialogOffersAFileWithoutPrinters()
    {
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser());
        bool isFileOffered = false;
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            auto *dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            watch.stop();
            for (const QComboBox *box : dialog->findChildren<QComboBox *>())
                isFileOffered |= box->findText(QStringLiteral("PDF"), Qt::MatchContains) >= 0;
            dialog->reject();
        });
        watch.start(10);
        QVERIFY(!printer.Print());
        QVERIFY(isFileOffered);
        QVERIFY(!printer.IsPrinting());
    }

    void testDialogPrintsIntoTheFileNamedThere()
    {
        QVERIFY(fixture.OpenLongTable());
        PagePrinter printer(fixture.Browser());
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            auto *dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            watch.stop();
            dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(fixture.Pdf());
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        watch.start(10);
        QVERIFY(printer.Print());
        QVERIFY(finished.wait(BrowserFixture::WaitTime));
        QCOMPARE(SheetCount(fixture.Pdf()), PrintFixture::SheetsOfTable);
    }
};

} // namespace Tesk

int main(int argc, char **argv)
{
    return Tesk::RunBrowserTest<Tesk::TestPagePrinter>(argc, argv);
}

#include "TestPagePrinter.moc"
