#include "BrowserFixture.h"
#include "LogCapture.h"
#include "base/tests/FileSizeLimit.h"
#include "browser/PagePrinter.h"
#include "browser/PaperSize.h"
#include "browser/PdfPainter.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>

#include <csignal>

namespace Tesk {
namespace {

constexpr int rowCount = 100;

/// A caption row of 10 mm and rows of 20 mm that stay whole.
QByteArray LongTable()
{
    QByteArray html = "<!DOCTYPE html><title>Long table</title><style>body { margin: 0 }"
                      "table { border-spacing: 0 } td { padding: 0; height: 20mm }"
                      "thead td { height: 10mm } tr { break-inside: avoid }</style>"
                      "<table><thead><tr><td>Caption</td></tr></thead><tbody>";
    for (int row = 1; row <= rowCount; ++row)
        html += "<tr><td>Row " + QByteArray::number(row) + "</td></tr>";
    return html + "</tbody></table>";
}

QString Output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

int SheetCount(const QString &pdf)
{
    static const QRegularExpression pages(QStringLiteral("Pages:\\s+(\\d+)"));
    return pages.match(Output(QStringLiteral("pdfinfo"), {pdf})).captured(1).toInt();
}

QStringList LinesOfSheet(const QString &pdf, int sheet)
{
    const QString number = QString::number(sheet);
    return Output(QStringLiteral("pdftotext"), {QStringLiteral("-f"), number, QStringLiteral("-l"),
                                                number, pdf, QStringLiteral("-")})
        .split(QRegularExpression(QStringLiteral("[\\n\\f]+")), Qt::SkipEmptyParts);
}

/// Writes a document whose sheets are grey, each a little darker than the one before.
void WriteGreySheets(const QString &fileName, int count)
{
    QPdfWriter writer(fileName);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    for (int sheet = 1; sheet <= count; ++sheet) {
        if (sheet > 1)
            writer.newPage();
        const int grey = 250 - 40 * sheet;
        painter.fillRect(painter.viewport(), QColor(grey, grey, grey));
    }
}

/// The numbers of the grey sheets in a document, judged by their middle.
QList<int> GreySheets(const QString &fileName)
{
    QList<int> sheets;
    QTemporaryDir folder;
    const QString pictures = folder.filePath(QStringLiteral("sheet"));
    Output(QStringLiteral("pdftoppm"),
           {QStringLiteral("-r"), QStringLiteral("20"), fileName, pictures});
    for (const QFileInfo &file : QDir(folder.path()).entryInfoList(QDir::Files, QDir::Name)) {
        const QImage picture(file.filePath());
        sheets.append(qRound((250 - qGray(picture.pixel(picture.rect().center()))) / 40.0));
    }
    return sheets;
}

} // namespace

class TestPagePrinter : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    QTemporaryDir folder;

    QString Pdf() const { return folder.filePath(QStringLiteral("print.pdf")); }

    /// Sets a printer up that prints into a file.
    static PagePrinter::SetUp IntoFile(const QString &fileName,
                                       QPageSize::PageSizeId size = QPageSize::A4)
    {
        return [fileName, size](QPrinter &printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(fileName);
            printer.setPageSize(QPageSize(size));
            return true;
        };
    }

    /// Whether a print that begins ends well.
    static bool IsPrinted(PagePrinter &printer)
    {
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        return printer.Print() && finished.wait(BrowserFixture::waitTime) &&
               finished.first().first().toBool();
    }

    bool OpenLongTable()
    {
        return fixture.Open(fixture.WritePage(QStringLiteral("long.html"), LongTable()));
    }

    bool OpenDataSheet(int sheets)
    {
        WriteGreySheets(fixture.Path(QStringLiteral("content/sheet.pdf")), sheets);
        return fixture.Open(fixture.Page(QStringLiteral("sheet.pdf")));
    }

private Q_SLOTS:
    void init() { QFile::remove(Pdf()); }

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
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser(), IntoFile(Pdf(), size));
        QVERIFY(IsPrinted(printer));
        QCOMPARE(SheetCount(Pdf()), sheets);
        for (int sheet = 1; sheet <= sheets; ++sheet) {
            QStringList expected = {QStringLiteral("Caption")};
            for (int row = (sheet - 1) * rowsOfSheet + 1;
                 row <= qMin(sheet * rowsOfSheet, rowCount); ++row)
                expected += QStringLiteral("Row %1").arg(row);
            QCOMPARE(LinesOfSheet(Pdf(), sheet), expected);
        }
    }

    void testLeavesMargins()
    {
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser(), IntoFile(Pdf()));
        QVERIFY(IsPrinted(printer));
        const QString boxes = Output(QStringLiteral("pdftotext"),
                                     {QStringLiteral("-bbox"), Pdf(), QStringLiteral("-")});
        const QRegularExpression word(
            QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\""));
        const QRegularExpressionMatch first = word.match(boxes);
        QVERIFY(first.hasMatch());
        constexpr double margin = 12 * 72 / 25.4; // points
        QVERIFY(qAbs(first.captured(1).toDouble() - margin) < 1);
        QVERIFY(first.captured(2).toDouble() >= margin);
    }

    void testPrintsChosenSheetsOnly()
    {
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(2, 3);
            return IntoFile(Pdf())(chosen);
        });
        QVERIFY(IsPrinted(printer));
        QCOMPARE(SheetCount(Pdf()), 2);
        QVERIFY(LinesOfSheet(Pdf(), 1).contains(QStringLiteral("Row 14")));
        QVERIFY(LinesOfSheet(Pdf(), 2).contains(QStringLiteral("Row 39")));
    }

    void testSheetsBeyondTheLastAreLeftOut()
    {
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(7, 90);
            return IntoFile(Pdf())(chosen);
        });
        QVERIFY(IsPrinted(printer));
        QCOMPARE(SheetCount(Pdf()), 2);
    }

    void testChoiceWithoutAnySheetIsNoPrint()
    {
        QVERIFY(OpenDataSheet(2));
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(90, 91);
            return IntoFile(Pdf())(chosen);
        });
        QVERIFY(!IsPrinted(printer));
        QVERIFY(!QFile::exists(Pdf()));
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("sheet")}));
    }

    void testCancelPrintsNothing()
    {
        QVERIFY(OpenLongTable());
        bool isCancelled = true;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            return IntoFile(Pdf())(chosen) && !isCancelled;
        });
        QVERIFY(!printer.Print());
        QVERIFY(!printer.IsPrinting());
        isCancelled = false;
        QVERIFY(IsPrinted(printer));
        QCOMPARE(SheetCount(Pdf()), 8);
    }

    void testSecondPrintIsRefusedWhileOneRuns()
    {
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser(), IntoFile(Pdf()));
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QVERIFY(printer.Print());
        QVERIFY(printer.IsPrinting());
        QVERIFY(!printer.Print());
        QVERIFY(finished.wait(BrowserFixture::waitTime));
        QCOMPARE(finished.count(), 1);
        QVERIFY(!printer.IsPrinting());
        QVERIFY(IsPrinted(printer));
    }

    void testSecondPrintIsRefusedWhileTheUserIsAsked()
    {
        QVERIFY(OpenLongTable());
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

    void testFileThatCannotBeWrittenIsLogged_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("folder missing") << folder.filePath(QStringLiteral("none/print.pdf"));
        QTest::newRow("folder in its place") << folder.path();
        QTest::newRow("no name") << QString();
        QTest::newRow("folder not writable") << QStringLiteral("/proc/print.pdf");
    }

    void testFileThatCannotBeWrittenIsLogged()
    {
        QFETCH(const QString, fileName);
        QVERIFY(OpenLongTable());
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            IntoFile(fileName)(chosen);
            chosen.setOutputFormat(QPrinter::PdfFormat);
            return true;
        });
        QVERIFY(!IsPrinted(printer));
        QVERIFY(!printer.IsPrinting());
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("Long table"), fileName}));
    }

#ifdef Q_OS_UNIX
    // A document of one small sheet fits into the buffer between the program and the disk.
    void testFullDiskLeavesTheOldFile()
    {
        QVERIFY(OpenDataSheet(1));
        fixture.Write(QStringLiteral("old.pdf"), "old");
        const QString old = fixture.Path(QStringLiteral("old.pdf"));
        const qint64 size = QFileInfo(fixture.Path(QStringLiteral("content/sheet.pdf"))).size();
        for (const qint64 room : {qint64{0}, size - 1}) {
            const LogCapture log;
            PagePrinter printer(fixture.Browser(), IntoFile(old));
            QSignalSpy finished(&printer, &PagePrinter::Finished);
            {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                QVERIFY(printer.Print());
            }
            QVERIFY(finished.wait(BrowserFixture::waitTime));
            QVERIFY(!finished.first().first().toBool());
            QVERIFY(log.Has("tesk.browser.print", {old}));
            QFile file(old);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), QByteArray("old"));
        }
    }
#endif

    void testPrintsAgainAfterTheEngineFailed()
    {
        // Tells when it is laid out for the printer, and never ends that.
        const QString address = fixture.WritePage(
            QStringLiteral("endless.html"),
            "<!DOCTYPE html><title>Endless</title><script>matchMedia('print').addListener("
            "() => { status = 'laid out'; for (;;); })</script><p>text");
        QVERIFY(fixture.Open(address));
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), IntoFile(Pdf()));
        QSignalSpy status(&fixture.Browser(), &WebBrowser::StatusTextChange);
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QSignalSpy complete(&fixture.Browser(), &WebBrowser::DocumentComplete);
        QVERIFY(printer.Print());
        QVERIFY(status.wait(BrowserFixture::waitTime));
        ::kill(static_cast<pid_t>(fixture.Browser().View()->page()->renderProcessPid()), SIGKILL);
        QVERIFY(finished.wait(BrowserFixture::waitTime));
        QVERIFY(!finished.first().first().toBool());
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("Endless")}));
        QVERIFY(!QFile::exists(Pdf()));

        QVERIFY(!complete.isEmpty() || complete.wait(BrowserFixture::waitTime));
        QVERIFY(OpenLongTable());
        QVERIFY(IsPrinted(printer));
        QCOMPARE(SheetCount(Pdf()), 8);
    }

    void testDataSheetIsPrintedAsItsFile()
    {
        QVERIFY(OpenDataSheet(3));
        PagePrinter printer(fixture.Browser(), IntoFile(Pdf()));
        QVERIFY(IsPrinted(printer));
        QFile source(fixture.Path(QStringLiteral("content/sheet.pdf")));
        QFile print(Pdf());
        QVERIFY(source.open(QIODevice::ReadOnly) && print.open(QIODevice::ReadOnly));
        QVERIFY(source.readAll() == print.readAll());
    }

    void testPrintsChosenSheetsOfADataSheet()
    {
        QVERIFY(OpenDataSheet(4));
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(2, 3);
            return IntoFile(Pdf())(chosen);
        });
        QVERIFY(IsPrinted(printer));
        QCOMPARE(GreySheets(Pdf()), QList<int>({2, 3}));
    }

    void testDamagedDataSheetIsNoPrint()
    {
        QVERIFY(OpenDataSheet(1));
        fixture.Write(QStringLiteral("content/sheet.pdf"), "%PDF-1.4 damaged");
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(1, 1);
            return IntoFile(Pdf())(chosen);
        });
        QVERIFY(!IsPrinted(printer));
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("sheet")}));
    }

    void testPrinterMakesCopiesInOrder_data()
    {
        QTest::addColumn<bool>("isCollated");
        QTest::addColumn<QPrinter::PageOrder>("order");
        QTest::addColumn<QList<int>>("expected");
        QTest::newRow("collated") << true << QPrinter::FirstPageFirst << QList<int>{1, 2, 1, 2};
        QTest::newRow("by sheet") << false << QPrinter::FirstPageFirst << QList<int>{1, 1, 2, 2};
        QTest::newRow("backwards") << true << QPrinter::LastPageFirst << QList<int>{2, 1, 2, 1};
    }

    void testPrinterMakesCopiesInOrder()
    {
        QFETCH(const bool, isCollated);
        QFETCH(const QPrinter::PageOrder, order);
        QFETCH(const QList<int>, expected);
        const QString source = folder.filePath(QStringLiteral("source.pdf"));
        WriteGreySheets(source, 2);
        QFile file(source);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QPrinter printer(QPrinter::HighResolution);
        IntoFile(Pdf(), QPageSize::A6)(printer);
        printer.setCopyCount(2);
        printer.setCollateCopies(isCollated);
        printer.setPageOrder(order);
        PaintPdf(file.readAll(), {}, printer);
        QCOMPARE(GreySheets(Pdf()), expected);
    }

    void testSheetsFillThePaper()
    {
        const QString source = folder.filePath(QStringLiteral("source.pdf"));
        WriteGreySheets(source, 1);
        QFile file(source);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QPrinter printer(QPrinter::HighResolution);
        IntoFile(Pdf(), QPageSize::Letter)(printer);
        PaintPdf(file.readAll(), {}, printer);
        Output(QStringLiteral("pdftoppm"),
               {QStringLiteral("-r"), QStringLiteral("100"), QStringLiteral("-singlefile"), Pdf(),
                folder.filePath(QStringLiteral("letter"))});
        const QImage picture(folder.filePath(QStringLiteral("letter.ppm")));
        QCOMPARE(picture.size(), QSize(850, 1100));
        // A4 on 11 inches of height is 7.78 inches wide: 36 pixels of white on either side.
        const auto isGrey = [&](int x, int y) {
            return qAbs(qGray(picture.pixel(x, y)) - 210) < 4;
        };
        QVERIFY(isGrey(425, 3) && isGrey(425, 1096) && isGrey(40, 550) && isGrey(809, 550));
        QCOMPARE(qGray(picture.pixel(32, 550)), 255);
        QCOMPARE(qGray(picture.pixel(817, 550)), 255);
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
        QVERIFY(OpenLongTable());
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
        QVERIFY(OpenLongTable());
        PagePrinter printer(fixture.Browser());
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            auto *dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            watch.stop();
            dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(Pdf());
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        watch.start(10);
        QVERIFY(printer.Print());
        QVERIFY(finished.wait(BrowserFixture::waitTime));
        QVERIFY(SheetCount(Pdf()) == 8);
    }
};

} // namespace Tesk

int main(int argc, char **argv)
{
    return Tesk::RunEngineTest<Tesk::TestPagePrinter>(argc, argv);
}

#include "TestPagePrinter.moc"
