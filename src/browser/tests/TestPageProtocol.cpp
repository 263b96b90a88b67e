#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"

#include <QEventLoop>

using namespace Tesk;

namespace {

constexpr auto InnerHtml = ElementChange::Property::InnerHtml;
constexpr auto Visibility = ElementChange::Property::Visibility;

} // namespace

/// What the pages tell the program and the program tells the pages.
class TestPageProtocol : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();

    QString Text(const QString &script) { return fixture.Evaluate(script).toString(); }

    static QStringList Arguments(const QSignalSpy &spy)
    {
        QStringList texts;
        for (const QList<QVariant> &call : spy)
            texts.append(call.first().toString());
        return texts;
    }

private Q_SLOTS:
    void testPageCompletesUnderTheAddressAsSpelled()
    {
        const QString address =
            fixture.WritePage(QStringLiteral("schöne liste.html"), "<p>plain</p>") +
            QStringLiteral("?firstItem=1&id=7");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(address);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete), QStringList{address});
        QCOMPARE(browser.Address(), address);
        QCOMPARE(Text(QStringLiteral("location.search")), QStringLiteral("?firstItem=1&id=7"));
    }

    void testContainerPageCompletes()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QCOMPARE(Text(QStringLiteral("document.title")), QStringLiteral("Plain"));
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/schöne Seite.html"))));
        QCOMPARE(Text(QStringLiteral("document.title")), QStringLiteral("Umlaut"));
    }

    void testContainerMembersAreFoundInAnyCase()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/DOKUMENTE/plain.HTML"))));
        QCOMPARE(Text(QStringLiteral("document.title")), QStringLiteral("Plain"));
    }

    void testBackslashesCompleteAsSlashes()
    {
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(fixture.Member(QStringLiteral("\\Dokumente\\plain.html?x=1")));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete),
                 QStringList{fixture.Member(QStringLiteral("/Dokumente/plain.html?x=1"))});
        QCOMPARE(fixture.Evaluate(QStringLiteral("relative.naturalWidth")), 1);
    }

    void testContainerPagesNameTheirOwnEncoding()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/utf8.html"))));
        QCOMPARE(Text(QStringLiteral("document.body.innerText.trim()")), QStringLiteral("Größe €"));
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/latin1.html"))));
        QCOMPARE(Text(QStringLiteral("document.body.innerText.trim()")), QStringLiteral("Größe"));
    }

    void testContainerPageFindsItsParts()
    {
        const LogCapture log;
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QCOMPARE(
            Text(QStringLiteral("['relative', 'rooted', 'drawing', 'missing']"
                                ".map(id => document.getElementById(id).naturalWidth).join()")),
            QStringLiteral("1,1,40,0"));
        QCOMPARE(Text(QStringLiteral("getComputedStyle(document.getElementById('text')).color")),
                 QStringLiteral("rgb(1, 2, 3)"));
        QCOMPARE(Text(QStringLiteral("String(window.scriptRan)")), QStringLiteral("true"));
        QVERIFY(log.Has("tesk.browser", {QStringLiteral("/Grafiken/klein/missing.gif"),
                                         QStringLiteral("resources.chm")}));
        QCOMPARE(log.Count("tesk.browser"), 1);
    }

    void testDoubledContainerAddressIsOnePart()
    {
        const QByteArray page =
            Address::ToUrl(fixture.Member(QStringLiteral("/Dokumente/"))).toEncoded();
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.View()->load(QUrl::fromEncoded(page + page.mid(qstrlen("mk:")) + "next.html"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Text(QStringLiteral("document.title")), QStringLiteral("Next"));
    }

    void testOnlyTheInstalledContainerIsOpened()
    {
        QVERIFY(
            fixture.Open(QStringLiteral("mk:@MSITStore:/nowhere/other.chm::/Dokumente/next.html")));
        QCOMPARE(Text(QStringLiteral("document.title")), QStringLiteral("Next"));
    }

    void testFilePageShowsPicturesOfTheContainer()
    {
        const QString picture = QString::fromLatin1(
            Address::ToUrl(fixture.Member(QStringLiteral("/Grafiken/klein/arzt/dot.gif")))
                .toEncoded());
        QVERIFY(fixture.Open(
            fixture.WritePage(QStringLiteral("pictures.html"),
                              QStringLiteral("<img id=p src=\"%1\">").arg(picture).toUtf8())));
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.getElementById('p').naturalWidth")), 1);
    }

    void testLinkInsideTheContainer()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("next"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete),
                 QStringList{fixture.Member(QStringLiteral("/Dokumente/next.html?x=1#there"))});
        QVERIFY(fixture.Evaluate(QStringLiteral("window.scrollY")).toInt() > 1000);
    }

    void testLinkFromTheContainersRootCompletesUnderItsWholeAddress()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("rootedNext"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete),
                 QStringList{fixture.Member(QStringLiteral("/Dokumente/next.html?y=2#there"))});
    }

    void testPageThatMovesOnNeverCompletes()
    {
        const QString welcome = fixture.WritePage(QStringLiteral("welcome.html"), "<p>welcome</p>");
        QVERIFY(fixture.Open(welcome + QStringLiteral("?first")));
        for (int round = 0; round < 5; ++round) {
            QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
            browser.Navigate(fixture.Member(QStringLiteral("/Dokumente/welcome_ge.html")));
            QVERIFY(complete.wait(BrowserFixture::WaitTime));
            QCOMPARE(Text(QStringLiteral("document.body.innerText")), QStringLiteral("welcome"));
            QCOMPARE(Arguments(complete), QStringList{welcome});
        }
    }

    void testFramesDoNotComplete()
    {
        fixture.WritePage(QStringLiteral("frame.html"), "<p>frame</p>");
        const QString address = fixture.WritePage(
            QStringLiteral("frames.html"), "<iframe id=f src='frame.html'></iframe><p>page</p>");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(address);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        fixture.Evaluate(QStringLiteral("window.framed = false;"
                                        "f.onload = () => { framed = true; };"
                                        "f.src = 'frame.html?again'"));
        QTRY_VERIFY_WITH_TIMEOUT(fixture.Evaluate(QStringLiteral("framed")).toBool(),
                                 BrowserFixture::WaitTime);
        QCOMPARE(Arguments(complete), QStringList{address});
    }

    void testFragmentJumpCompletes()
    {
        const QString address = fixture.WritePage(
            QStringLiteral("jump.html"), "<a id=a href='#ziel'>jump</a><p id=ziel>here</p>");
        QVERIFY(fixture.Open(address + QStringLiteral("?id=1")));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("a"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        browser.Navigate(address + QStringLiteral("?id=1#anders"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete), (QStringList{address + QStringLiteral("?id=1#ziel"),
                                                   address + QStringLiteral("?id=1#anders")}));
        // The document is still the one that was loaded.
        browser.Apply({{QStringLiteral("ziel"), InnerHtml, QStringLiteral("filled")}});
        QCOMPARE(Text(QStringLiteral("ziel.innerHTML")), QStringLiteral("filled"));
    }

    void testFragmentJumpDuringALoadCompletes()
    {
        const QString address =
            fixture.WritePage(QStringLiteral("jump.html"), "<p id=ziel>here</p>");
        const QString other = fixture.WritePage(QStringLiteral("other.html"), "<p>other</p>");
        QVERIFY(fixture.Open(address));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(other);
        browser.Navigate(address + QStringLiteral("#ziel"));
        QTRY_VERIFY_WITH_TIMEOUT(!complete.isEmpty() &&
                                     complete.last().first() == address + QStringLiteral("#ziel"),
                                 BrowserFixture::WaitTime);
        QCOMPARE(Text(QStringLiteral("location.hash")), QStringLiteral("#ziel"));
    }

    void testFragmentSetDuringTheLoadCompletesOnce()
    {
        const QString address = fixture.WritePage(
            QStringLiteral("hash.html"), "<script>location.hash = 'early'</script><p>page</p>");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(address);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Text(QStringLiteral("location.hash")), QStringLiteral("#early"));
        QCOMPARE(Arguments(complete), QStringList{address + QStringLiteral("#early")});
    }

    void testSamePageAgainCompletesAgain()
    {
        const QString address = fixture.WritePage(QStringLiteral("again.html"), "<p id=p>x</p>");
        for (const QString &tail : {QStringLiteral("?id=1"), QStringLiteral("?id=1#p")}) {
            QVERIFY(fixture.Open(address + tail));
            QVERIFY(fixture.Open(address + tail));
        }
    }

    void testScriptNavigationCompletes()
    {
        const QString target = fixture.WritePage(QStringLiteral("target.html"), "<p>target</p>");
        const QByteArray encoded = Address::ToUrl(target).toEncoded();
        QVERIFY(fixture.Open(
            fixture.WritePage(QStringLiteral("row.html"), "<p id=row onclick=\"window.location='" +
                                                              encoded + "?id=12';\">row</p>")));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("row"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(Arguments(complete), QStringList{target + QStringLiteral("?id=12")});
    }

    void testStatusTextsArriveInOrder()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>")));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(
            QStringLiteral("window.status = 'a:1'; status = 'a:1'; window.status = '';"
                           "self.status = '100%% %s %c ü\\n😀'; window.status = 5"));
        QTRY_COMPARE_WITH_TIMEOUT(status.count(), 5, BrowserFixture::WaitTime);
        QCOMPARE(Arguments(status),
                 (QStringList{QStringLiteral("a:1"), QStringLiteral("a:1"), QString(),
                              QStringLiteral("100%% %s %c ü\n😀"), QStringLiteral("5")}));
        QCOMPARE(Text(QStringLiteral("window.status")), QStringLiteral("5"));
    }

    void testLongStatusTextIsWhole()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>")));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(QStringLiteral("window.status = 'x'.repeat(200000)"));
        QTRY_COMPARE_WITH_TIMEOUT(status.count(), 1, BrowserFixture::WaitTime);
        QCOMPARE(status.first().first().toString(), QString(200'000, u'x'));
    }

    void testStatusTextComesBeforeTheNavigationThatFollows()
    {
        const QString target = fixture.WritePage(QStringLiteral("target.html"), "<p>target</p>");
        const QString page = fixture.WritePage(
            QStringLiteral("order.html"),
            "<script>window.status = 'load'; function go() { window.status = 'leave';"
            " location = 'target.html'; window.status = 'gone'; }</script>");
        QStringList events;
        const QObject receiver;
        connect(&browser, &WebBrowser::StatusTextChange, &receiver,
                [&events](const QString &text) { events.append(text); });
        connect(&browser, &WebBrowser::DocumentComplete, &receiver,
                [&events](const QString &address) { events.append(address); });
        browser.Navigate(page);
        QTRY_COMPARE_WITH_TIMEOUT(events.size(), 2, BrowserFixture::WaitTime);
        browser.RunScript(QStringLiteral("go()"));
        QTRY_COMPARE_WITH_TIMEOUT(events.size(), 5, BrowserFixture::WaitTime);
        QCOMPARE(events, (QStringList{QStringLiteral("load"), page, QStringLiteral("leave"),
                                      QStringLiteral("gone"), target}));
    }

    void testStatusTextsOfContainerPages()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(QStringLiteral("window.status = 'shoppingCart:17'"));
        QTRY_COMPARE_WITH_TIMEOUT(Arguments(status), QStringList{QStringLiteral("shoppingCart:17")},
                                  BrowserFixture::WaitTime);
    }

    void testScriptLinkSetsTheStatusText()
    {
        QVERIFY(fixture.Open(fixture.WritePage(
            QStringLiteral("cart.html"),
            "<script>function setStatusbar(id) { window.status = 'shoppingCart 1:' + id; }</script>"
            "<a id=a href='javascript:setStatusbar(17)'>cart</a>")));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("a"));
        QTRY_COMPARE_WITH_TIMEOUT(status.count(), 1, BrowserFixture::WaitTime);
        fixture.Click(QStringLiteral("a"));
        QTRY_COMPARE_WITH_TIMEOUT(status.count(), 2, BrowserFixture::WaitTime);
        QCOMPARE(Arguments(status), (QStringList{QStringLiteral("shoppingCart 1:17"),
                                                 QStringLiteral("shoppingCart 1:17")}));
        QCOMPARE(complete.count(), 0);
    }

    void testConsoleOutputIsNoStatusText()
    {
        const LogCapture log;
        QVERIFY(fixture.Open(fixture.WritePage(
            QStringLiteral("console.html"),
            "<script>console.log('status:no'); console.error('broken'); window.status = 'yes';"
            "</script>")));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(QStringLiteral("console.log = () => {}; console.log('x');"
                                         "window.status = 'after'"));
        QTRY_COMPARE_WITH_TIMEOUT(Arguments(status), QStringList{QStringLiteral("after")},
                                  BrowserFixture::WaitTime);
        QVERIFY(log.Has("tesk.browser.page", {QStringLiteral("broken")}));
    }

    void testStatusTextsWhileAListenerIsBusyAreDropped()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>")));
        QStringList texts;
        const QObject receiver;
        connect(&browser, &WebBrowser::StatusTextChange, &receiver, [&](const QString &text) {
            texts.append(text);
            if (text == QLatin1String("dialog")) {
                // Stands for a modal dialog; the page goes on working behind it.
                Text(QStringLiteral("window.status = 'during'; 'done'"));
            }
        });
        browser.RunScript(QStringLiteral("window.status = 'dialog'"));
        QTRY_COMPARE_WITH_TIMEOUT(texts.size(), 1, BrowserFixture::WaitTime);
        browser.RunScript(QStringLiteral("window.status = 'after'"));
        QTRY_COMPARE_WITH_TIMEOUT(texts.size(), 2, BrowserFixture::WaitTime);
        QCOMPARE(texts, (QStringList{QStringLiteral("dialog"), QStringLiteral("after")}));
    }

    void testListenersRunOutsideTheEngine()
    {
        const QString address = fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>");
        QStringList answers;
        const QObject receiver;
        // The page can only answer here when no callback of the engine is on the way out.
        connect(&browser, &WebBrowser::DocumentComplete, &receiver,
                [&] { answers.append(Text(QStringLiteral("document.body.innerText"))); });
        connect(&browser, &WebBrowser::StatusTextChange, &receiver,
                [&] { answers.append(Text(QStringLiteral("document.body.innerText"))); });
        browser.Navigate(address);
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 1, BrowserFixture::WaitTime);
        browser.RunScript(QStringLiteral("window.status = 'x'"));
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 2, BrowserFixture::WaitTime);
        QCOMPARE(answers, (QStringList{QStringLiteral("plain"), QStringLiteral("plain")}));
    }

    void testChangesLandInThePage()
    {
        QVERIFY(fixture.Open(
            fixture.WritePage(QStringLiteral("fill.html"), "<div id=a></div><div id=b></div>")));
        browser.Apply({{QStringLiteral("a"), InnerHtml,
                        QStringLiteral("<b title=\"x'y\">ü \u2028 \\n %1 </script></b>")},
                       {QStringLiteral("b"), Visibility, QStringLiteral("hidden")}});
        QCOMPARE(Text(QStringLiteral("document.all.item('a').innerHTML")),
                 QStringLiteral("<b title=\"x'y\">ü \u2028 \\n %1 </b>"));
        QCOMPARE(Text(QStringLiteral("document.all.item('b').style.visibility")),
                 QStringLiteral("hidden"));
        browser.Apply({{QStringLiteral("b"), Visibility, QStringLiteral("visible")}});
        QCOMPARE(Text(QStringLiteral("document.all.item('b').style.visibility")),
                 QStringLiteral("visible"));
    }

    void testFilledElementsWork()
    {
        QVERIFY(
            fixture.Open(fixture.WritePage(QStringLiteral("fill.html"), "<div id=list></div>")));
        browser.Apply({{QStringLiteral("list"), InnerHtml,
                        QStringLiteral("<p id=row onclick=\"window.status='row'\">row</p>")}});
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        fixture.Click(QStringLiteral("row"));
        QTRY_COMPARE_WITH_TIMEOUT(Arguments(status), QStringList{QStringLiteral("row")},
                                  BrowserFixture::WaitTime);
    }

    void testLargeChangeLands()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("fill.html"), "<div id=a></div>")));
        browser.Apply({{QStringLiteral("a"), InnerHtml, QString(4'000'000, u'x')}});
        QCOMPARE(fixture.Evaluate(QStringLiteral("a.innerHTML.length")), 4'000'000);
    }

    void testMissingElementEndsTheChanges()
    {
        const LogCapture log;
        const QString address = fixture.WritePage(QStringLiteral("fill.html"),
                                                  "<div id=a>old</div><div id=c>old</div>");
        QVERIFY(fixture.Open(address));
        browser.Apply({{QStringLiteral("a"), InnerHtml, QStringLiteral("new")},
                       {QStringLiteral("b"), InnerHtml, QStringLiteral("new")},
                       {QStringLiteral("c"), InnerHtml, QStringLiteral("new")}});
        QCOMPARE(Text(QStringLiteral("a.innerHTML + ' ' + c.innerHTML")),
                 QStringLiteral("new old"));
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser", {QStringLiteral("\"b\""), address}),
                                 BrowserFixture::WaitTime);
    }

    void testChangesAreKeptFromAnotherPage()
    {
        const LogCapture log;
        const QString address =
            fixture.WritePage(QStringLiteral("fill.html"), "<div id=a>old</div>");
        QVERIFY(fixture.Open(address));
        // A reload is another document under the same address. Its completion has not been told
        // yet when the changes go out.
        QSignalSpy loaded(browser.View()->page(), &QWebEnginePage::loadFinished);
        connect(
            browser.View()->page(), &QWebEnginePage::loadFinished, this,
            [this] {
                browser.Apply({{QStringLiteral("a"), InnerHtml, QStringLiteral("new")}});
            },
            Qt::SingleShotConnection);
        browser.Navigate(address);
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser", {QStringLiteral("moved on"), address}),
                                 BrowserFixture::WaitTime);
        QCOMPARE(Text(QStringLiteral("a.innerHTML")), QStringLiteral("old"));
    }

    void testScriptResultComesFromTheEventLoop()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>")));
        QString inner;
        bool done = false;
        browser.RunScript(QStringLiteral("1"), [&](const QVariant &) {
            inner = Text(QStringLiteral("document.body.innerText"));
            done = true;
        });
        QTRY_VERIFY_WITH_TIMEOUT(done, BrowserFixture::WaitTime);
        QCOMPARE(inner, QStringLiteral("plain"));
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestPageProtocol>(argc, argv);
}

#include "TestPageProtocol.moc"
