#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"

#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

#include <vector>

using namespace Tesk;

namespace {

/// A script, and what the gate's line about it holds.
struct Attempt
{
    const char *script;
    const char *refused;
};
using Attempts = std::vector<Attempt>;

const char *const Gate = "tesk.browser.gate";

} // namespace

Q_DECLARE_METATYPE(Attempts)

/// Pages that try everything at once to reach the network and the user's files. Each attempt must
/// leave a line in the gate's log, and servers beside them must hear nothing.
class TestHostilePages : public QObject
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

    bool NothingWasHeard()
    {
        return !server.waitForNewConnection(0) && !server.hasPendingConnections() &&
               !datagrams.waitForReadyRead(0) && !datagrams.hasPendingDatagrams();
    }

    bool OpenPlainPage()
    {
        return fixture.Open(
            fixture.WritePage(QStringLiteral("plain.html"),
                              "<html><head id=h></head><body id=b>plain</body></html>"));
    }

    /// What a script of the page puts into `told` by itself.
    QString Told()
    {
        QString told;
        [&] {
            QTRY_VERIFY(
                !(told = fixture.Evaluate(QStringLiteral("window.told")).toString()).isEmpty());
        }();
        return told;
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(server.listen(QHostAddress::LocalHost));
        QVERIFY(datagrams.bind(QHostAddress::LocalHost));
        QVERIFY(QFile::link(QStringLiteral("/etc/passwd"),
                            fixture.Path(QStringLiteral("content/linked.txt"))));
        QVERIFY(QFile::link(QStringLiteral("/etc"), fixture.Path(QStringLiteral("content/etc"))));
        fixture.Write(QStringLiteral("content/own.txt"), "own");
        QVERIFY(QFile::link(fixture.Path(QStringLiteral("content/own.txt")),
                            fixture.Path(QStringLiteral("content/linked-own.txt"))));
    }

    void cleanup() { QVERIFY(NothingWasHeard()); }

    void testTheServerHearsWhoSpeaksToIt()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, server.serverPort());
        QVERIFY(socket.waitForConnected());
        QVERIFY(!NothingWasHeard());
        delete server.nextPendingConnection();
    }

    void testEverythingIsRefused_data()
    {
        QTest::addColumn<Attempts>("attempts");
        QTest::newRow("markup") << Attempts{
            {"Add(`<link rel=preload as=image href='http://HOST/1'>`)", "http://HOST/1"},
            {"Add(`<link rel=modulepreload href='http://HOST/2'>`)", "http://HOST/2"},
            {"Add(`<embed src='http://HOST/3'>`)", "http://HOST/3"},
            {"Add(`<embed type='application/pdf' src='http://HOST/4.pdf'>`)", "http://HOST/4.pdf"},
            {"Add(`<svg><image href='http://HOST/5'/></svg>`)", "http://HOST/5"},
            {"Add(`<svg><use href='http://HOST/6#x'/></svg>`)", "http://HOST/6"},
            {"Add(`<video poster='http://HOST/7'></video>`)", "http://HOST/7"},
            {"Add(`<img srcset='http://HOST/8 1x'>`)", "http://HOST/8"},
            {"Add(`<input type=image src='http://HOST/9'>`)", "http://HOST/9"},
            {"Add(`<table background='http://HOST/a'>`)", "http://HOST/a"},
            {"Add(`<ul style='list-style-image:url(http://HOST/b)'><li>x</ul>`)", "http://HOST/b"},
            {"Add(`<p style='cursor:url(http://HOST/c),auto'>`)", "http://HOST/c"},
            {"Add(`<p style='-webkit-mask-image:url(http://HOST/d)'>`)", "http://HOST/d"},
            {"Add(`<img src='https://HOST/e'>`)", "https://HOST/e"},
            {"Add(`<img src='ftp://HOST/f'>`)", "ftp://HOST/f"},
            {"Add(`<img src='http://told.example/'>`)", "http://told.example/"},
            {"Add(`<img src='http://2130706433:9/h'>`)", "http://127.0.0.1:9/h"},
            {"Add(`<audio src='http://HOST/i'></audio>`)", "http://HOST/i"},
        };
        QTest::newRow("frames") << Attempts{
            {"Add(`<iframe srcdoc=\"<img src='http://HOST/1'>\"></iframe>`)", "http://HOST/1"},
            {"Add(`<iframe src=\"data:text/html,<img src='http://HOST/2'>\"></iframe>`)",
             "http://HOST/2"},
            {"Add(`<iframe sandbox srcdoc=\"<img src='http://HOST/3'>\"></iframe>`)",
             "http://HOST/3"},
            {"Add(`<iframe src='plain.html' onload=\"this.onload = null;"
             "this.contentWindow.location = 'http://HOST/4'\"></iframe>`)",
             "http://HOST/4"},
            {"Add(`<iframe srcdoc=\"<script>top.location = 'http://HOST/5'</script>\">"
             "</iframe>`)",
             "http://HOST/5"},
            {"Add(`<iframe srcdoc=\"<meta http-equiv=refresh content='0;url=http://HOST/6'>\">"
             "</iframe>`)",
             "http://HOST/6"},
            {"Add(`<iframe src='chrome://gpu'></iframe>`)", "chrome://gpu"},
            {"Add(`<iframe src='qrc:/x'></iframe>`)", "qrc:/x"},
        };
        QTest::newRow("scripts") << Attempts{
            {"import('http://HOST/1').catch(() => 0)", "http://HOST/1"},
            {"new WebSocket('wss://HOST/2')", "wss://HOST/2"},
            {"fetch('http://HOST/3', {method: 'POST', body: 'x', mode: 'no-cors', keepalive: true})"
             ".catch(() => 0)",
             "http://HOST/3"},
            {"Work(`fetch('http://HOST/4')`)", "http://HOST/4"},
            {"Work(`importScripts('http://HOST/5')`)", "http://HOST/5"},
            {"Work(`new WebSocket('ws://HOST/6')`)", "ws://HOST/6"},
            {"Work(`new Worker(URL.createObjectURL(new Blob([\"fetch('http://HOST/7')\"])))`)",
             "http://HOST/7"},
            {"CSS.paintWorklet.addModule('http://HOST/8').catch(() => 0)", "http://HOST/8"},
            {"new AudioContext().audioWorklet.addModule('http://HOST/9').catch(() => 0)",
             "http://HOST/9"},
        };
        QTest::newRow("files") << Attempts{
            {"fetch('file:///etc/1').catch(() => 0)", "file:///etc/1"},
            {"x = new XMLHttpRequest(); x.open('GET', 'file:///etc/2'); x.send()", "file:///etc/2"},
            {"Add(`<link rel=stylesheet href='file:///etc/3.css'>`)", "file:///etc/3.css"},
            {"Add(`<video src='file:///etc/4.mp4'></video>`)", "file:///etc/4.mp4"},
            {"Add(`<object data='file:///etc/5'></object>`)", "file:///etc/5"},
            {"Add(`<embed src='file:///etc/6.pdf'>`)", "file:///etc/6.pdf"},
            {"Add(`<iframe src='file:///etc/passwd'></iframe>`)", "file:///etc/passwd"},
            {"new FontFace('f', 'url(file:///usr/7.ttf)').load().catch(() => 0)",
             "file:///usr/7.ttf"},
            {"Work(`fetch('file:///etc/8')`)", "file:///etc/8"},
            {"Work(`importScripts('file:///etc/9')`)", "file:///etc/9"},
            {"new Worker('file:///etc/a')", "file:///etc/a"},
            {"CSS.paintWorklet.addModule('file:///etc/b').catch(() => 0)", "file:///etc/b"},
            {"b.append(Object.assign(document.createElement('script'),"
             " {type: 'module', src: 'file:///etc/c'}))",
             "file:///etc/c"},
            {"Add(`<iframe src=\"data:text/html,<img src='file:///etc/d'>\"></iframe>`)",
             "file:///etc/d"},
            {"Add(`<iframe src=\"data:text/xml,<?xml-stylesheet type='text/xsl'"
             " href='file:///etc/e'?><a/>\"></iframe>`)",
             "file:///etc/e"},
            {"location = 'view-source:file:///etc/f'", "file:///etc/f"},
        };
        QTest::newRow("spellings") << Attempts{
            {"fetch('%2e%2e/%2E%2E/%2e./.%2e/%2e%2e/%2e%2e/%2e%2e/etc/1').catch(() => 0)",
             "file:///etc/1"},
            {"fetch('..%2F..%2F..%2F..%2F..%2F..%2Fetc%2F2').catch(() => 0)", "%2Fetc%2F2"},
            {"fetch('file:///%252e%252e/etc/3').catch(() => 0)", "%252e/etc/3"},
            {"fetch('..\\\\..\\\\..\\\\..\\\\..\\\\..\\\\etc\\\\4').catch(() => 0)",
             "file:///etc/4"},
            {"fetch('FILE:///x/../etc/5').catch(() => 0)", "file:///etc/5"},
            {"fetch('file:/etc/6').catch(() => 0)", "file:///etc/6"},
            {"fetch('file:\\\\\\\\\\\\etc\\\\7').catch(() => 0)", "file:///etc/7"},
            {"fetch('file://localhost/etc/8').catch(() => 0)", "/etc/8"},
            {"Add(`<img src='file://127.0.0.1/9'>`)", "file://127.0.0.1/9"},
            {"fetch('linked.txt').catch(() => 0)", "content/linked.txt"},
            {"fetch('etc/passwd').catch(() => 0)", "content/etc/passwd"},
            {"Add(`<img src='etc/hostname'>`)", "content/etc/hostname"},
            {"Add(`<iframe src='linked.txt?b'></iframe>`)", "linked.txt?b"},
        };
        QTest::newRow("more than a page") << Attempts{
            {"Click({href: URL.createObjectURL(new Blob(['x'])), download: 'x'})", "download"},
            {"Click({href: 'data:text/plain,told', download: 'x'})", "data:text/plain,told"},
            {"open(URL.createObjectURL(new Blob(['x'])))", "refused: blob:"},
            {"open('about:blank')", "about:blank"},
            {"open('javascript:1')", "refused"},
            {"print()", "to print"},
            {"close()", "to close"},
            {"navigator.geolocation.getCurrentPosition(() => 0, () => 0)", "Geolocation"},
            {"Notification.requestPermission()", "Notifications"},
            {"navigator.webkitPersistentStorage.requestQuota(1e9, () => 0)", "disk"},
        };
    }

    void testEverythingIsRefused()
    {
        QFETCH(const Attempts, attempts);
        QVERIFY(OpenPlainPage());
        browser.RunScript(QStringLiteral(
            "function Add(html) { b.insertAdjacentHTML('beforeend', html) }"
            "function Work(text) { new Worker(URL.createObjectURL(new Blob([text]))) }"
            "function Click(link) { Object.assign(document.createElement('a'), link).click() }"));
        const LogCapture log;
        for (const Attempt &attempt : attempts)
            browser.RunScript(WithHost(QString::fromUtf8(attempt.script)));
        for (const Attempt &attempt : attempts) {
            const QString refused = WithHost(QString::fromUtf8(attempt.refused));
            QTRY_VERIFY2_WITH_TIMEOUT(log.Has(Gate, {refused}), attempt.script,
                                      BrowserFixture::WaitTime);
        }
        QVERIFY(Text().startsWith(QStringLiteral("plain")));
    }

    // A link that stays inside is a file like any other.
    void testLinkInsideTheFolderIsRead()
    {
        QVERIFY(OpenPlainPage());
        browser.RunScript(QStringLiteral("x = new XMLHttpRequest(); x.open('GET',"
                                         " 'linked-own.txt'); x.onload = () => {"
                                         " window.told = x.responseText }; x.send()"));
        QCOMPARE(Told(), QStringLiteral("own"));
    }

    // Whatever these load would pass the gate by.
    void testThereAreNoSharedWorkers()
    {
        QVERIFY(OpenPlainPage());
        QCOMPARE(fixture.Evaluate(QStringLiteral("typeof SharedWorker")),
                 QVariant(QStringLiteral("undefined")));
    }

    void testServiceWorkerIsNotTaken()
    {
        QVERIFY(OpenPlainPage());
        browser.RunScript(
            QStringLiteral("navigator.serviceWorker.register('own.txt')"
                           ".then(() => window.told = 'taken', () => window.told = 'refused')"));
        QCOMPARE(Told(), QStringLiteral("refused"));
    }

    void testTransportOfDatagramsFails()
    {
        QVERIFY(OpenPlainPage());
        browser.RunScript(WithHost(
            QStringLiteral("new WebTransport('https://DATAGRAMS/').ready"
                           ".then(() => window.told = 'open', () => window.told = 'failed')")));
        QCOMPARE(Told(), QStringLiteral("failed"));
    }

    void testClipboardAndScreenAreKept()
    {
        for (const char *request :
             {"navigator.clipboard.readText()", "navigator.clipboard.writeText('x')",
              "document.body.requestFullscreen()",
              "navigator.mediaDevices.getUserMedia({audio: true, video: true})",
              "navigator.mediaDevices.getDisplayMedia({video: true})"}) {
            QVERIFY(OpenPlainPage());
            browser.RunScript(QStringLiteral("%1.then(() => window.told = 'given',"
                                             " () => window.told = 'refused')")
                                  .arg(QLatin1String(request)));
            QCOMPARE(Told(), QStringLiteral("refused"));
        }
    }

    // Addresses of other containers and of files mean members of the catalogue's own.
    void testContainerAddressesStayInTheContainer_data()
    {
        QTest::addColumn<QString>("address");
        for (const char *address :
             {"mk:@MSITStore:/etc/passwd::/", "mk:@MSITStore:/etc/other.chm::/etc/passwd",
              "mk:@MSITStore:/x.chm::/../../../../etc/passwd",
              "mk:@MSITStore:/x.chm::/%2e%2e/%2E%2E%2Fetc/passwd",
              "mk:@MSITStore:/x.chm::/..%5C..%5Cetc%5Cpasswd", "mk:/etc/passwd",
              "mk:@MSITStore:/x.chm::/../resources.chm"})
            QTest::newRow(address) << QString::fromLatin1(address);
    }

    void testContainerAddressesStayInTheContainer()
    {
        QFETCH(const QString, address);
        QVERIFY(OpenPlainPage());
        const LogCapture log;
        browser.RunScript(QStringLiteral("new Image().src = '%1'").arg(address));
        QTRY_VERIFY(log.Has("tesk.browser", {QStringLiteral("resources.chm has no member /")}));
    }

    void testFieldOfAFileOpensNoDialog()
    {
        QVERIFY(OpenPlainPage());
        const LogCapture log;
        fixture.Evaluate(QStringLiteral("b.innerHTML = '<input type=file id=f>'; 1"));
        fixture.Click(QStringLiteral("f"));
        QTRY_VERIFY(log.Has(Gate, {QStringLiteral("choice of a file")}));
    }

private:
    QString Text()
    {
        return fixture.Evaluate(QStringLiteral("document.body.innerText")).toString();
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestHostilePages>(argc, argv);
}

#include "TestHostilePages.moc"
