#include "PrintFixture.h"
#include "base/tests/FileSizeLimit.h"
#include "base/tests/LogCapture.h"
#include "browser/PdfPainter.h"

#include <QDir>
#include <QImage>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>

namespace Tesk {
namespace {

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
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-r"), QStringLiteral("20"), fileName, pictures});
    for (const QFileInfo &file : QDir(folder.path()).entryInfoList(QDir::Files, QDir::Name)) {
        const QImage picture(file.filePath());
        sheets.append(qRound((250 - qGray(picture.pixel(picture.rect().center()))) / 40.0));
    }
    return sheets;
}

} // namespace

/// Data sheets, whose files are printed, and the way of sheets to a printer.
class TestSheetPrinting : public QObject
{
    Q_OBJECT

private:
    PrintFixture fixture;

    bool OpenDataSheet(int sheets)
    {
        WriteGreySheets(fixture.Path(QStringLiteral("content/sheet.pdf")), sheets);
        return fixture.Open(fixture.Page(QStringLiteral("sheet.pdf")));
    }

private Q_SLOTS:
    void init() { QFile::remove(fixture.Pdf()); }

    void testDataSheetIsPrintedAsItsFile()
    {
        QVERIFY(OpenDataSheet(3));
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        QVERIFY(PrintFixture::IsPrinted(printer));
        QFile source(fixture.Path(QStringLiteral("content/sheet.pdf")));
        QFile print(fixture.Pdf());
        QVERIFY(source.open(QIODevice::ReadOnly) && print.open(QIODevice::ReadOnly));
        QVERIFY(source.readAll() == print.readAll());
    }

#ifdef Q_OS_LINUX
    void testDataSheetThatCannotBeReadToItsEndIsNoPrint()
    {
        QVERIFY(OpenDataSheet(3));
        // A file that can be opened, but whose first byte cannot be read.
        const QString sheet = fixture.Path(QStringLiteral("content/sheet.pdf"));
        QVERIFY(QFile::remove(sheet) && QFile::link(QStringLiteral("/proc/self/mem"), sheet));
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        const std::optional<PrintEnd> end = PrintFixture::EndOfPrint(printer);
        QVERIFY(QFile::remove(sheet));
        QVERIFY(end == PrintEnd::PrinterFailed);
        QVERIFY(!QFile::exists(fixture.Pdf()));
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("cannot be read")}));
    }
#endif

    void testPrintsChosenSheetsOfADataSheet()
    {
        QVERIFY(OpenDataSheet(4));
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(2, 3);
            return PrintFixture::IntoFile(fixture.Pdf())(chosen);
        });
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(GreySheets(fixture.Pdf()), QList<int>({2, 3}));
    }

    void testChoiceWithoutAnySheetIsNoPrint()
    {
        QVERIFY(OpenDataSheet(2));
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(90, 91);
            return PrintFixture::IntoFile(fixture.Pdf())(chosen);
        });
        QVERIFY(!PrintFixture::IsPrinted(printer));
        QVERIFY(!QFile::exists(fixture.Pdf()));
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("sheet")}));
    }

    void testDamagedDataSheetIsNoPrint()
    {
        QVERIFY(OpenDataSheet(1));
        fixture.Write(QStringLiteral("content/sheet.pdf"), "%PDF-1.4 damaged");
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [this](QPrinter &chosen) {
            chosen.setPrintRange(QPrinter::PageRange);
            chosen.setFromTo(1, 1);
            return PrintFixture::IntoFile(fixture.Pdf())(chosen);
        });
        QVERIFY(!PrintFixture::IsPrinted(printer));
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
        const QString source = fixture.Pdf(QStringLiteral("source.pdf"));
        WriteGreySheets(source, 2);
        QFile file(source);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QPrinter printer(QPrinter::HighResolution);
        PrintFixture::IntoFile(fixture.Pdf(), QPageSize::A6)(printer);
        printer.setCopyCount(2);
        printer.setCollateCopies(isCollated);
        printer.setPageOrder(order);
        PaintPdf(file.readAll(), {}, printer);
        QCOMPARE(GreySheets(fixture.Pdf()), expected);
    }

    void testSheetsFillThePaper()
    {
        const QString source = fixture.Pdf(QStringLiteral("source.pdf"));
        WriteGreySheets(source, 1);
        QFile file(source);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QPrinter printer(QPrinter::HighResolution);
        PrintFixture::IntoFile(fixture.Pdf(), QPageSize::Letter)(printer);
        PaintPdf(file.readAll(), {}, printer);
        QProcess::execute(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("100"),
                                                       QStringLiteral("-singlefile"), fixture.Pdf(),
                                                       fixture.Pdf(QStringLiteral("letter"))});
        const QImage picture(fixture.Pdf(QStringLiteral("letter.ppm")));
        QCOMPARE(picture.size(), QSize(850, 1100));
        // A4 on 11 inches of height is 7.78 inches wide: 36 pixels of white on either side.
        const auto isGrey = [&](int x, int y) {
            return qAbs(qGray(picture.pixel(x, y)) - 210) < 4;
        };
        QVERIFY(isGrey(425, 3) && isGrey(425, 1096) && isGrey(40, 550) && isGrey(809, 550));
        QCOMPARE(qGray(picture.pixel(32, 550)), 255);
        QCOMPARE(qGray(picture.pixel(817, 550)), 255);
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
            PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(old));
            QSignalSpy finished(&printer, &PagePrinter::Finished);
            {
                const FileSizeLimit limit(static_cast<rlim_t>(room));
                QVERIFY(printer.Print());
            }
            QVERIFY(finished.wait(BrowserFixture::WaitTime));
            QCOMPARE(finished.first().first().value<PrintEnd>(), PrintEnd::PrinterFailed);
            QVERIFY(log.Has("tesk.browser.print", {old}));
            QFile file(old);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), QByteArray("old"));
        }
    }
#endif
};

} // namespace Tesk

int main(int argc, char **argv)
{
    return Tesk::RunBrowserTest<Tesk::TestSheetPrinting>(argc, argv);
}

#include "TestSheetPrinting.moc"
