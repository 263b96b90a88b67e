#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"
#include "browser/RequestGate.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

using namespace Tesk;

/// Pages that reach for the network or for foreign files; a server beside them must hear nothing.
class TestRequestGate : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();
    QTcpServer server;
    QUdpSocket datagrams;

    QString WithHost(QString text) const
    {
        text.replace(QLatin1String("HOST"),
                     QStringLiteral("127.0.0.1:%1").arg(server.serverPort()));
        text.replace(QLatin1String("DATAGRAMS"),
                     QStringLiteral("127.0.0.1:%1").arg(datagrams.localPort()));
        return text;
    }

    /// A page that is still there afterwards can tell its mark.
    bool OpenMarkedPage()
    {
        return fixture.Open(fixture.WritePage(QStringLiteral("gate.html"),
                                              "<html><body id=b>still here</body></html>"));
    }

    bool MarkedPageIsStillThere()
    {
        return fixture.Evaluate(QStringLiteral("b.firstChild.data")) ==
               QStringLiteral("still here");
    }

    bool NothingWasHeard()
    {
        return !server.waitForNewConnection(0) && !server.hasPendingConnections() &&
               !datagrams.waitForReadyRead(0) && !datagrams.hasPendingDatagrams();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(server.listen(QHostAddress::LocalHost));
        QVERIFY(datagrams.bind(QHostAddress::LocalHost));
    }

    void testTheServerHearsWhoSpeaksToIt()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, server.serverPort());
        QVERIFY(socket.waitForConnected());
        QVERIFY(!NothingWasHeard());
        delete server.nextPendingConnection();
        QUdpSocket sender;
        QCOMPARE(sender.writeDatagram("x", QHostAddress::LocalHost, datagrams.localPort()), 1);
        QTRY_VERIFY_WITH_TIMEOUT(datagrams.hasPendingDatagrams(), BrowserFixture::WaitTime);
        datagrams.readDatagram(nullptr, 0);
        QVERIFY(NothingWasHeard());
    }

    void testRequestsAreRefused_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("refused");
        const auto row = [](const char *name, const char *refused, const char *script) {
            QTest::newRow(name) << QString::fromUtf8(script) << QString::fromUtf8(refused);
        };
        row("picture", "http://HOST/p", "new Image().src = 'http://HOST/p'");
        row("secure picture", "https://HOST/p", "new Image().src = 'https://HOST/p'");
        row("style sheet", "http://HOST/s",
            "document.head.innerHTML += `<link rel=stylesheet href='http://HOST/s'>`");
        row("imported style sheet", "http://HOST/i",
            "document.head.innerHTML += `<style>@import 'http://HOST/i'</style>`");
        row("background", "http://HOST/b", "b.style.background = 'url(http://HOST/b)'");
        row("font", "http://HOST/f",
            "b.style.fontFamily = 'f'; new FontFace('f', 'url(http://HOST/f)').load()");
        row("script", "http://HOST/j",
            "b.append(Object.assign(document.createElement('script'), {src: 'http://HOST/j'}))");
        row("frame", "http://HOST/f", "b.innerHTML += `<iframe src='http://HOST/f'></iframe>`");
        row("object", "http://HOST/o", "b.innerHTML += `<object data='http://HOST/o'></object>`");
        row("film", "http://HOST/v", "b.innerHTML += `<video src='http://HOST/v'></video>`");
        row("prefetch", "http://HOST/p",
            "document.head.innerHTML += `<link rel=preconnect href='http://HOST/'>"
            "<link rel=dns-prefetch href='http://HOST/'><link rel=prefetch href='http://HOST/p'>`");
        row("fetch", "http://HOST/f", "fetch('http://HOST/f', {mode: 'no-cors'})");
        row("request", "http://HOST/x",
            "x = new XMLHttpRequest(); x.open('POST', 'http://HOST/x'); x.send('y')");
        row("beacon", "http://HOST/b", "navigator.sendBeacon('http://HOST/b', 'x')");
        row("events", "http://HOST/e", "new EventSource('http://HOST/e')");
        row("web socket", "ws://HOST/w", "new WebSocket('ws://HOST/w')");
        row("worker", "http://HOST/k",
            "new Worker(URL.createObjectURL(new Blob([`fetch('http://HOST/k')`])))");
        row("script navigation", "http://HOST/n", "location = 'http://HOST/n'");
        row("replacement", "http://HOST/r", "location.replace('http://HOST/r')");
        row("refresh", "http://HOST/m",
            "document.head.innerHTML += `<meta http-equiv=refresh content='0;url=http://HOST/m'>`");
        row("form", "http://HOST/g",
            "b.innerHTML += `<form id=f action='http://HOST/g'></form>`; f.submit()");
        row("posted form", "http://HOST/p",
            "b.innerHTML += `<form id=f method=post action='http://HOST/p'></form>`; f.submit()");
        row("window", "http://HOST/w", "open('http://HOST/w')");
        row("other protocol", "ftp://HOST/f", "location = 'ftp://HOST/f'");
        row("mail without a click", "mailto:a@example.com", "location = 'mailto:a@example.com'");
        row("foreign file in a frame", "file:///etc/passwd",
            "b.innerHTML += `<iframe src='file:///etc/passwd'></iframe>`");
        row("foreign file as a picture", "file:///etc/x.png",
            "new Image().src = 'file:///etc/x.png'");
        row("foreign file fetched", "file:///etc/passwd", "fetch('file:///etc/passwd')");
        row("foreign file as a page", "file:///etc/passwd", "location = 'file:///etc/passwd'");
        row("steps out of the folder", "/etc/passwd",
            "location = '../../../../../../../../etc/passwd'");
        row("encoded steps out of the folder", "%2Fetc/passwd",
            "location = '..%2F..%2F..%2F..%2F..%2Fetc/passwd'");
    }

    void testRequestsAreRefused()
    {
        QFETCH(QString, script);
        QFETCH(QString, refused);
        QVERIFY(OpenMarkedPage());
        const LogCapture log;
        browser.RunScript(WithHost(script));
        QTRY_VERIFY_WITH_TIMEOUT(
            log.Has("tesk.browser.gate", {QStringLiteral("refused"), WithHost(refused)}),
            BrowserFixture::WaitTime);
        QVERIFY(MarkedPageIsStillThere());
        QVERIFY(NothingWasHeard());
    }

    void testLinksAreRefused_data()
    {
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("refused");
        QTest::newRow("link") << QStringLiteral("href='http://HOST/a' ping='http://HOST/ping'")
                              << QStringLiteral("http://HOST/a");
        QTest::newRow("new window") << QStringLiteral("target=_blank href='http://HOST/a'")
                                    << QStringLiteral("http://HOST/a");
        QTest::newRow("telephone") << QStringLiteral("href='tel:123'") << QStringLiteral("tel:123");
        QTest::newRow("file") << QStringLiteral("href='file:///etc/passwd'")
                              << QStringLiteral("file:///etc/passwd");
    }

    void testLinksAreRefused()
    {
        QFETCH(QString, link);
        QFETCH(QString, refused);
        QVERIFY(OpenMarkedPage());
        const LogCapture log;
        fixture.Evaluate(
            WithHost(QStringLiteral("b.innerHTML += `<p><a id=a %1>link</a>`; 1").arg(link)));
        fixture.Click(QStringLiteral("a"));
        QTRY_VERIFY_WITH_TIMEOUT(
            log.Has("tesk.browser.gate", {QStringLiteral("refused"), WithHost(refused)}),
            BrowserFixture::WaitTime);
        QVERIFY(MarkedPageIsStillThere());
        QVERIFY(NothingWasHeard());
    }

    void testContainerPagesAreHeldToo()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/next.html"))));
        const LogCapture log;
        browser.RunScript(WithHost(QStringLiteral("new Image().src = 'http://HOST/p';"
                                                  "fetch('file:///etc/passwd')")));
        QTRY_VERIFY_WITH_TIMEOUT(
            log.Has("tesk.browser.gate", {WithHost(QStringLiteral("http://HOST/p"))}),
            BrowserFixture::WaitTime);
        QTRY_VERIFY_WITH_TIMEOUT(
            log.Has("tesk.browser.gate", {QStringLiteral("file:///etc/passwd")}),
            BrowserFixture::WaitTime);
        QVERIFY(NothingWasHeard());
    }

    // Such calls pass no gate of ours; the engine's switches stop them.
    void testCallsBetweenBrowsersSendNothing()
    {
        for (const char *peer :
             {"urls: 'stun:DATAGRAMS'",
              "urls: 'turn:HOST?transport=tcp', username: 'a', credential: 'b'"}) {
            QVERIFY(OpenMarkedPage());
            browser.RunScript(WithHost(
                QStringLiteral("gathered = false;"
                               "peer = new RTCPeerConnection({iceServers: [{%1}]});"
                               "peer.createDataChannel('x');"
                               "peer.onicegatheringstatechange = () => {"
                               "    gathered = peer.iceGatheringState == 'complete';"
                               "};"
                               "peer.createOffer().then(o => peer.setLocalDescription(o)); 1")
                    .arg(QLatin1String(peer))));
            QTRY_VERIFY_WITH_TIMEOUT(fixture.Evaluate(QStringLiteral("gathered")).toBool(),
                                     BrowserFixture::WaitTime);
            QVERIFY(NothingWasHeard());
        }
    }

    void testGateLetsTheInstallationThrough_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("allowed");
        const auto row = [](const char *url, bool allowed) {
            QTest::newRow(url) << QString::fromUtf8(url) << allowed;
        };
        row("file:///opt/tesk/content/a.html", true);
        row("file:///opt/tesk/PDF/a%20b.pdf", true);
        row("file:///opt/tesk/content/../PDF/a.pdf", true);
        row("mk:@MSITStore:/opt/tesk/resources.chm::/a.html", true);
        row("data:image/gif;base64,R0lGODdh", true);
        row("about:blank", true);
        row("chrome-extension://mhjfbmdgcfjbbpaeojofohoefgiehjai/index.html", true);
        row("chrome://resources/js/util.m.js", true);
        row("file:///opt/tesk", false);
        row("file:///opt/tesk2/a.html", false);
        row("file:///opt/tesk/../other/a.html", false);
        row("file:///opt/tesk/..%2Fother/a.html", false);
        row("file:///opt/tesk/content/a%00.html", false);
        row("file:///opt/tesk/content/%E4.html", false);
        row("file://host/opt/tesk/content/a.html", false);
        row("file:///etc/passwd", false);
        row("chrome-extension://other/index.html", false);
        row("chrome://version/", false);
        row("http://127.0.0.1/", false);
        row("https://example.com/", false);
        row("ws://example.com/", false);
        row("qrc:/a.html", false);
    }

    void testGateLetsTheInstallationThrough()
    {
        QFETCH(QString, url);
        QFETCH(bool, allowed);
        for (const char *root : {"/opt/tesk", "/opt/tesk/"})
            QCOMPARE(RequestGate(QLatin1String(root)).Allows(QUrl(url)), allowed);
    }

    void testLinkLeadsNowhereElseInAnySpelling_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("allowed");
        QTest::newRow("inside") << QByteArray("100%25%20in") << true;
        QTest::newRow("inside, no code") << QByteArray("100%%20in") << true;
        QTest::newRow("outside") << QByteArray("100%25%20out") << false;
        QTest::newRow("outside, no code") << QByteArray("100%%20out") << false;
        QTest::newRow("step from inside") << QByteArray("100%25%20up/../own") << true;
        QTest::newRow("coded step from outside") << QByteArray("100%25%20up%2F..%2Fout") << false;
    }

    // "own" lies in the installation's folder, and beside the folder to which "100% up" leads
    // "out".
    void testLinkLeadsNowhereElseInAnySpelling()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const bool, allowed);
        const QTemporaryDir folder;
        const QDir root(folder.filePath(QStringLiteral("app")));
        QVERIFY(root.mkpath(QStringLiteral("../other/folder")) && root.mkpath(root.path()));
        for (const char *file : {"own", "../other/out"}) {
            QFile written(root.filePath(QLatin1String(file)));
            QVERIFY(written.open(QIODevice::WriteOnly));
        }
        QVERIFY(QFile::link(QStringLiteral("own"), root.filePath(QStringLiteral("100% in"))));
        QVERIFY(
            QFile::link(QStringLiteral("../other/out"), root.filePath(QStringLiteral("100% out"))));
        QVERIFY(QFile::link(QStringLiteral("../other/folder"),
                            root.filePath(QStringLiteral("100% up"))));
        const QByteArray address = QUrl::fromLocalFile(root.path()).toEncoded() + '/' + name;
        QCOMPARE(RequestGate(root.path()).Allows(QUrl::fromEncoded(address)), allowed);
    }

    void cleanupTestCase() { QVERIFY(NothingWasHeard()); }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestRequestGate>(argc, argv);
}

#include "TestRequestGate.moc"
