#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"
#include "browser/LocalPage.h"
#include "support/EngineProcess.h"

using namespace Tesk;

/// Pages come back after the engine's process has failed.
class TestPageRecovery : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();

private Q_SLOTS:
    void testPageIsLoadedAgainOnceAfterACrash()
    {
        QVERIFY(fixture.OpenPlainPage());
        const LogCapture log;
        const QString address = browser.Address();
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        KillEngine(browser);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(complete.first().first().toString(), address);
        QVERIFY(log.Has("tesk.browser", {QStringLiteral("loaded again"), address}));

        KillEngine(browser);
        const QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, BrowserFixture::WaitTime);
        QTRY_COMPARE_WITH_TIMEOUT(fixture.Text(QStringLiteral("document.title")),
                                  QStringLiteral("This page cannot be shown"),
                                  BrowserFixture::WaitTime);
        QVERIFY(fixture.Text(QStringLiteral("document.body.innerText"))
                    .contains(QStringLiteral("failed on it twice")));
        QCOMPARE(complete.count(), 1);
        QVERIFY(fixture.OpenPlainPage());
    }

    void testPageThatIsLoadingComesBackAfterACrash_data()
    {
        QTest::addColumn<QString>("moment");
        for (const char *moment : {"before it is asked for", "asked for", "begun", "created"})
            QTest::newRow(moment) << QString::fromLatin1(moment);
    }

    void testPageThatIsLoadingComesBackAfterACrash()
    {
        QFETCH(const QString, moment);
        QVERIFY(fixture.OpenPlainPage());
        auto *const page = qobject_cast<LocalPage *>(browser.View()->page());
        const QString address =
            fixture.WritePage(moment + QStringLiteral(".html"),
                              "<p id=p>loaded</p><script>new MutationObserver(() => {"
                              " status = 'filled'; }).observe(p, { childList: true })</script>");
        const QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        const QSignalSpy texts(&browser, &WebBrowser::StatusTextChange);
        // A page that is complete already may be lost to the crash, and completes again.
        QObject filling;
        connect(&browser, &WebBrowser::DocumentComplete, &filling, [this] {
            browser.Apply({{QStringLiteral("p"), ElementChange::Property::InnerHtml,
                            QStringLiteral("filled")}});
        });
        QEventLoop loop;
        if (moment == QLatin1String("begun"))
            connect(page, &QWebEnginePage::loadingChanged, &loop, &QEventLoop::quit);
        else if (moment == QLatin1String("created"))
            connect(page, &LocalPage::DocumentCreated, &loop, &QEventLoop::quit);
        const bool isKilledBefore = moment == QLatin1String("before it is asked for");
        if (isKilledBefore)
            KillEngine(browser);
        browser.Navigate(address);
        if (moment == QLatin1String("begun") || moment == QLatin1String("created"))
            loop.exec();
        if (!isKilledBefore)
            KillEngine(browser);
        QTRY_VERIFY_WITH_TIMEOUT(!texts.isEmpty(), BrowserFixture::WaitTime);
        QCOMPARE(fixture.Text(QStringLiteral("p.innerText")), QStringLiteral("filled"));
        QCOMPARE(browser.Address(), address);
        QCOMPARE(failed.count(), 0);
    }

    // A crash is told of a little later than it happens.
    void testPageAskedForBesideACrashIsShown_data()
    {
        QTest::addColumn<bool>("isAskedFirst");
        QTest::newRow("before") << true;
        QTest::newRow("after") << false;
    }

    void testPageAskedForBesideACrashIsShown()
    {
        QFETCH(const bool, isAskedFirst);
        QVERIFY(fixture.OpenPlainPage());
        const QString address = fixture.WritePage(
            isAskedFirst ? QStringLiteral("before.html") : QStringLiteral("after.html"), "<p>next");
        if (isAskedFirst)
            browser.Navigate(address);
        Q_EMIT browser.View()->page()->renderProcessTerminated(
            QWebEnginePage::CrashedTerminationStatus, 1);
        if (!isAskedFirst)
            browser.Navigate(address);
        QTRY_COMPARE_WITH_TIMEOUT(browser.Address(), address, BrowserFixture::WaitTime);
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("next"));
        // Nothing is loaded in its place after it.
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("later.html"), "<p>later")));
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("later"));
    }

    void testPageThatCameBackAfterACrashIsWrittenAndHeard()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("crash.html"), "<p id=p>plain</p>")));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        KillEngine(browser);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        browser.Apply(
            {{QStringLiteral("p"), ElementChange::Property::InnerHtml, QStringLiteral("written")}});
        QCOMPARE(fixture.Text(QStringLiteral("p.innerText")), QStringLiteral("written"));
        QSignalSpy texts(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(QStringLiteral("window.status = 'heard'"));
        QVERIFY(texts.wait(BrowserFixture::WaitTime));
        QCOMPARE(texts.first().first().toString(), QStringLiteral("heard"));
        QCOMPARE(complete.count(), 1);
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestPageRecovery>(argc, argv);
}

#include "TestPageRecovery.moc"
