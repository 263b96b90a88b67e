#include "PrintFixture.h"
#include "base/tests/LogCapture.h"
#include "support/EngineProcess.h"
#include "support/PdfFiles.h"

#include <QFileInfo>

namespace Tesk {

/// How prints end when something comes between: every one ends, and the next one is printed.
class TestPrintEnds : public QObject
{
    Q_OBJECT

private:
    PrintFixture fixture;

    /// A page that tells when it is laid out for the printer, and never ends that.
    QString WriteEndlessPage()
    {
        return fixture.WritePage(
            QStringLiteral("endless.html"),
            "<!DOCTYPE html><title>Endless</title><script>matchMedia('print').addListener("
            "() => { status = 'laid out'; for (;;); })</script><p>text");
    }

private Q_SLOTS:
    void init() { QFile::remove(fixture.Pdf()); }

    void testFileThatCannotBeWrittenIsLogged_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("folder missing") << fixture.Pdf(QStringLiteral("none/print.pdf"));
        QTest::newRow("folder in its place") << QFileInfo(fixture.Pdf()).path();
        QTest::newRow("no name") << QString();
        QTest::newRow("folder not writable") << QStringLiteral("/proc/print.pdf");
    }

    void testFileThatCannotBeWrittenIsLogged()
    {
        QFETCH(const QString, fileName);
        QVERIFY(fixture.OpenLongTable());
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), [&](QPrinter &chosen) {
            PrintFixture::IntoFile(fileName)(chosen);
            chosen.setOutputFormat(QPrinter::PdfFormat);
            return true;
        });
        QVERIFY(!PrintFixture::IsPrinted(printer));
        QVERIFY(!printer.IsPrinting());
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("Long table"), fileName}));
    }

    void testPrintsEndWithTheEngine()
    {
        QVERIFY(fixture.Open(WriteEndlessPage()));
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        QSignalSpy status(&fixture.Browser(), &WebBrowser::StatusTextChange);
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QSignalSpy complete(&fixture.Browser(), &WebBrowser::DocumentComplete);
        QVERIFY(printer.Print());
        QVERIFY(printer.Print());
        QVERIFY(status.wait(BrowserFixture::WaitTime));
        KillEngine(fixture.Browser());
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, BrowserFixture::WaitTime);
        for (const QVariantList &print : finished)
            QCOMPARE(print.first().value<PrintEnd>(), PrintEnd::EngineFailed);
        QVERIFY(!printer.IsPrinting());
        QVERIFY(log.Has("tesk.browser.print", {QStringLiteral("Endless")}));
        QVERIFY(!QFile::exists(fixture.Pdf()));

        QVERIFY(!complete.isEmpty() || complete.wait(BrowserFixture::WaitTime));
        QVERIFY(fixture.OpenLongTable());
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), PrintFixture::SheetsOfTable);
    }

    void testPrintWithoutAPageEnds()
    {
        WebBrowser empty(&fixture.Profile());
        PagePrinter printer(empty, PrintFixture::IntoFile(fixture.Pdf()));
        QCOMPARE(PrintFixture::EndOfPrint(printer), PrintEnd::EngineFailed);
        QVERIFY(!QFile::exists(fixture.Pdf()));
    }

    void testPageIsLeftOnceItsSheetsAreMade_data()
    {
        QTest::addColumn<bool>("isLink");
        QTest::addColumn<QString>("moment");
        for (const char *const moment : {"at once", "on paper", "on screen"}) {
            QTest::addRow("by the program, %s", moment) << false << QString::fromLatin1(moment);
            QTest::addRow("by a link, %s", moment) << true << QString::fromLatin1(moment);
        }
    }

    // At once, when the page is laid out for the sheets, and when it is again for the screen.
    void testPageIsLeftOnceItsSheetsAreMade()
    {
        QFETCH(const bool, isLink);
        QFETCH(const QString, moment);
        const QString next = fixture.WritePage(QStringLiteral("next.html"), "<p>next");
        const QString last = fixture.WritePage(QStringLiteral("last.html"), "<p>last");
        QVERIFY(fixture.OpenLongTable());
        WebBrowser &browser = fixture.Browser();
        const auto open = [&](const char *name, const QString &address) {
            if (isLink)
                browser.RunScript(
                    QStringLiteral("window.location = '%1'").arg(QLatin1String(name)));
            else
                browser.Navigate(address);
        };
        fixture.Evaluate(QStringLiteral("void matchMedia('print').addListener(print => {"
                                        " status = print.matches ? 'on paper' : 'on screen' })"));
        bool isMoment = moment == QLatin1String("at once");
        QObject watch;
        connect(&browser, &WebBrowser::StatusTextChange, &watch,
                [&](const QString &text) { isMoment = isMoment || text == moment; });
        PagePrinter printer(browser, PrintFixture::IntoFile(fixture.Pdf()));
        QSignalSpy finished(&printer, &PagePrinter::Finished);
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        QVERIFY(printer.Print());
        QVERIFY(QTest::qWaitFor([&] { return isMoment; }, BrowserFixture::WaitTime));
        open("next.html", next);
        open("last.html", last);
        QVERIFY(!finished.isEmpty() || finished.wait(BrowserFixture::WaitTime));
        QCOMPARE(finished.first().first().value<PrintEnd>(), PrintEnd::Printed);
        QCOMPARE(SheetCount(fixture.Pdf()), PrintFixture::SheetsOfTable);
        QTRY_COMPARE_WITH_TIMEOUT(browser.Address(), last, BrowserFixture::WaitTime);
        QCOMPARE(complete.last().first().toString(), last);
        QCOMPARE(failed.count(), 0);
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.body.innerText")),
                 QVariant(QStringLiteral("last")));
    }

    void testPageThatIsLoadingIsPrintedOnceItIsThere()
    {
        const QString table = fixture.WriteLongTable();
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("before.html"), "<p>before")));
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        QSignalSpy loading(fixture.Browser().View()->page(), &QWebEnginePage::loadingChanged);
        fixture.Browser().Navigate(table);
        QVERIFY(loading.wait(BrowserFixture::WaitTime));
        QVERIFY(PrintFixture::IsPrinted(printer));
        QCOMPARE(SheetCount(fixture.Pdf()), PrintFixture::SheetsOfTable);
    }

    void testPageThatWaitedOpensWhenTheEngineFails()
    {
        QVERIFY(fixture.Open(WriteEndlessPage()));
        const QString next = fixture.WritePage(QStringLiteral("next.html"), "<p>next");
        const LogCapture log;
        PagePrinter printer(fixture.Browser(), PrintFixture::IntoFile(fixture.Pdf()));
        QSignalSpy status(&fixture.Browser(), &WebBrowser::StatusTextChange);
        QSignalSpy complete(&fixture.Browser(), &WebBrowser::DocumentComplete);
        QVERIFY(printer.Print());
        QVERIFY(status.wait(BrowserFixture::WaitTime));
        fixture.Browser().Navigate(next);
        KillEngine(fixture.Browser());
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(complete.first().first().toString(), next);
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.body.innerText")),
                 QVariant(QStringLiteral("next")));
        QCOMPARE(complete.count(), 1);
        QVERIFY(!log.Has("tesk.browser", {QStringLiteral("loaded again")}));
    }

    void testEndOfTheBrowserWaitsForThePrint_data()
    {
        QTest::addColumn<int>("prints");
        QTest::newRow("one") << 1;
        QTest::newRow("two") << 2;
    }

    void testEndOfTheBrowserWaitsForThePrint()
    {
        QFETCH(const int, prints);
        QStringList files;
        {
            WebBrowser browser(&fixture.Profile());
            browser.show();
            QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
            browser.Navigate(fixture.WriteLongTable());
            QVERIFY(complete.wait(BrowserFixture::WaitTime));
            auto *const printer = new PagePrinter(browser, [&](QPrinter &chosen) {
                files.append(fixture.Pdf(QStringLiteral("%1.pdf").arg(files.size())));
                return PrintFixture::IntoFile(files.last())(chosen);
            });
            for (int print = 0; print < prints; ++print)
                QVERIFY(printer->Print());
        }
        QCOMPARE(files.size(), qsizetype{prints});
        for (const QString &file : std::as_const(files))
            QCOMPARE(SheetCount(file), PrintFixture::SheetsOfTable);
    }
};

} // namespace Tesk

int main(int argc, char **argv)
{
    return Tesk::RunBrowserTest<Tesk::TestPrintEnds>(argc, argv);
}

#include "TestPrintEnds.moc"
