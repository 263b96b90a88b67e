#include "BrowserFixture.h"

using namespace Tesk;

class TestWebBrowser : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();

private Q_SLOTS:
    void testPageCompletesUnderTheAddressAsSpelled()
    {
        const QString address =
            fixture.WritePage(QStringLiteral("plain.html"), "<p id=x>plain</p>");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        browser.Navigate(address + QStringLiteral("?firstItem=1&id=7"));
        QVERIFY(complete.wait());
        QCOMPARE(complete.first().first().toString(),
                 address + QStringLiteral("?firstItem=1&id=7"));
        QCOMPARE(browser.Address(), address + QStringLiteral("?firstItem=1&id=7"));
        QCOMPARE(fixture.Evaluate(QStringLiteral("location.search")).toString(),
                 QStringLiteral("?firstItem=1&id=7"));
    }

    void testContainerPageCompletes()
    {
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/plain.html"))));
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.title")).toString(),
                 QStringLiteral("Plain"));
        QVERIFY(fixture.Open(fixture.Member(QStringLiteral("/Dokumente/schöne Seite.html"))));
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.title")).toString(),
                 QStringLiteral("Umlaut"));
    }

    void testStatusTextsArriveInOrder()
    {
        QVERIFY(fixture.Open(fixture.WritePage(QStringLiteral("plain.html"), "<p>plain</p>")));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(QStringLiteral("window.status='a:1'; status='a:1'; window.status=''; "
                                         "self.status='100%% %s %c ü\\n😀'"));
        QTRY_COMPARE(status.count(), 4);
        QCOMPARE(status.at(0).first().toString(), QStringLiteral("a:1"));
        QCOMPARE(status.at(1).first().toString(), QStringLiteral("a:1"));
        QCOMPARE(status.at(2).first().toString(), QString());
        QCOMPARE(status.at(3).first().toString(), QStringLiteral("100%% %s %c ü\n😀"));
    }

    void testChangesLandInThePage()
    {
        QVERIFY(fixture.Open(
            fixture.WritePage(QStringLiteral("fill.html"), "<div id=a></div><div id=b></div>")));
        const QString html = QStringLiteral("<b title=\"x'y\">ü \u2028 %1 </script></b>");
        browser.Apply(
            {{QStringLiteral("a"), ElementChange::Property::InnerHtml, html},
             {QStringLiteral("b"), ElementChange::Property::Visibility, QStringLiteral("hidden")}});
        QCOMPARE(fixture.Evaluate(QStringLiteral("document.all.item('a').innerHTML")).toString(),
                 QStringLiteral("<b title=\"x'y\">ü \u2028 %1 </b>"));
        QCOMPARE(
            fixture.Evaluate(QStringLiteral("document.all.item('b').style.visibility")).toString(),
            QStringLiteral("hidden"));
    }
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestWebBrowser>(argc, argv);
}

#include "TestWebBrowser.moc"
