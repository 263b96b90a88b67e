#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"
#include "browser/PageHold.h"
#include "browser/PageWatch.h"
#include "support/WaitUntil.h"

#include <QMessageBox>
#include <QPainter>
#include <QPdfWriter>

#include <chrono>
#include <memory>

using namespace Tesk;

namespace {

const char *const Gate = "tesk.browser.gate";

/// Keeps a watch short of patience until it has ended a process.
class Impatience : public QObject
{
public:
    Impatience(PageWatch &watch, const PageWatch::Patience &patience)
        : watch(watch)
    {
        watch.SetPatience(patience);
        connect(&watch, &PageWatch::ProcessEnds, this, [this] {
            ++ended;
            this->watch.SetPatience({});
        });
    }
    ~Impatience() override { watch.SetPatience({}); }

    int ended = 0;

private:
    PageWatch &watch;
};

constexpr int Ever = 1'000'000;
constexpr std::chrono::milliseconds Tick{10};

} // namespace

/// Pages whose scripts never let go: the user still gets away from them.
class TestHostileScripts : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();
    PageWatch &watch = PageWatch::Of(&fixture.Profile());

    QString Text()
    {
        return fixture.Evaluate(QStringLiteral("document.body?.innerText")).toString().trimmed();
    }

    QString WriteWithScript(const QByteArray &script)
    {
        return fixture.WritePage(QStringLiteral("hostile.html"),
                                 "<html><body id=b>hostile</body><script>" + script + "</script>");
    }

    QString WritePlain()
    {
        return fixture.WritePage(QStringLiteral("plain.html"), "<html><body>plain</body></html>");
    }

    /// Starts a script in a page that has completed, and waits until it runs.
    bool Start(const QString &script)
    {
        if (!fixture.Open(WriteWithScript({})))
            return false;
        const LogCapture log;
        browser.RunScript(
            QStringLiteral("setTimeout(() => { console.error('begun'); %1 })").arg(script));
        return WaitUntil(
            [&log] { return log.Has("tesk.browser.page", {QStringLiteral("begun")}); });
    }

    /// Asks for a plain page and waits until it is there.
    bool GetsAway()
    {
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        const QString plain = WritePlain();
        browser.Navigate(plain);
        return WaitUntil([&] {
                   return !complete.isEmpty() && complete.last().first().toString() == plain;
               }) &&
               WaitUntil([&] { return Text() == QLatin1String("plain"); });
    }

private Q_SLOTS:
    void testAnotherPageTakesThePlaceOfOneThatHangs()
    {
        QVERIFY(Start(QStringLiteral("for (;;);")));
        const LogCapture log;
        const Impatience impatience(watch, {.interval = Tick, .usual = Ever, .leaving = 5});
        QVERIFY(GetsAway());
        QCOMPARE(impatience.ended, 1);
        QVERIFY(log.Has(Gate, {QStringLiteral("runs without end")}));
    }

    void testPageThatHangsGivesWayToAMessage()
    {
        browser.SetTextLookup([](const QString &key) {
            return key == QLatin1String("errorPageStopped") ? QStringLiteral("Angehalten.")
                                                            : QString();
        });
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        QVERIFY(Start(QStringLiteral("for (;;);")));
        const Impatience impatience(watch, {.interval = Tick, .usual = 5, .leaving = Ever});
        QTRY_COMPARE(failed.count(), 1);
        QTRY_VERIFY(Text().startsWith(QStringLiteral("This page cannot be shown")));
        QVERIFY(Text().contains(QStringLiteral("Angehalten.")));
        QVERIFY(Text().contains(fixture.Page(QStringLiteral("hostile.html"))));
        QCOMPARE(impatience.ended, 1);
        QVERIFY(GetsAway());
    }

    // Its process may never have answered at all.
    void testPageThatHangsFromItsBeginningIsLeft()
    {
        QVERIFY(fixture.Open(WritePlain()));
        const LogCapture log;
        browser.Navigate(WriteWithScript("console.error('begun'); for (;;);"));
        QTRY_VERIFY(log.Has("tesk.browser.page", {QStringLiteral("begun")}));
        const Impatience impatience(watch, {.interval = Tick, .usual = Ever, .leaving = 5});
        QVERIFY(GetsAway());
        QCOMPARE(impatience.ended, 1);
    }

    // The two share the engine's process.
    void testPageBesideOneThatHangsComesBackWhenItIsSeen()
    {
        QVERIFY(Start(QStringLiteral("for (;;);")));
        WebBrowser beside(&fixture.Profile());
        QSignalSpy complete(&beside, &WebBrowser::DocumentComplete);
        const QString plain = WritePlain();
        browser.hide();
        beside.show();
        for (int round = 1; round <= 2; ++round) {
            complete.clear();
            Impatience impatience(watch, {.interval = Tick, .usual = Ever, .leaving = 5});
            beside.Navigate(plain);
            QTRY_COMPARE(complete.count(), 1);
            QCOMPARE(complete.last().first().toString(), plain);
            // The one that hung does not hang again unseen.
            if (round == 2) {
                QCOMPARE(impatience.ended, 0);
                break;
            }
            QCOMPARE(impatience.ended, 1);
        }
        const QSignalSpy reloaded(&browser, &WebBrowser::DocumentComplete);
        browser.show();
        QTRY_COMPARE(reloaded.count(), 1);
        QCOMPARE(Text(), QStringLiteral("hostile"));
    }

    void testPatience_data()
    {
        QTest::addColumn<QString>("circumstance");
        for (const char *circumstance :
             {"slow", "held", "beside one that is held", "unseen", "behind a dialog", "asking"})
            QTest::newRow(circumstance) << QString::fromLatin1(circumstance);
    }

    // The page works for many times as long as a page may that is seen and none of these.
    void testPatience()
    {
        QFETCH(const QString, circumstance);
        const bool isAsking = circumstance == QLatin1String("asking");
        WebBrowser beside(&fixture.Profile());
        QVERIFY(fixture.Open(WriteWithScript({})));
        std::shared_ptr<PageHold> hold;
        if (circumstance == QLatin1String("held"))
            hold = browser.HoldPage();
        else if (circumstance == QLatin1String("beside one that is held"))
            hold = beside.HoldPage();
        else if (circumstance == QLatin1String("unseen"))
            browser.hide();
        QMessageBox box(&browser);
        if (circumstance == QLatin1String("behind a dialog"))
            box.open();
        const Impatience impatience(watch,
                                    {.interval = Tick,
                                     .usual = circumstance == QLatin1String("slow") ? Ever : 5,
                                     .leaving = 5,
                                     .holding = Ever});
        const QSignalSpy texts(&browser, &WebBrowser::StatusTextChange);
        browser.RunScript(isAsking
                              ? QStringLiteral("setTimeout(() => { alert(1); status = 1 })")
                              : QStringLiteral("for (end = Date.now() + 500; Date.now() < end;);"
                                               " status = 1"));
        int seen = 0;
        QTimer patientUser;
        connect(&patientUser, &QTimer::timeout, &patientUser, [&seen] {
            auto *const question = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (question != nullptr && ++seen == 50)
                question->accept();
        });
        if (isAsking)
            patientUser.start(Tick);
        QTRY_COMPARE(texts.count(), 1);
        box.close();
        browser.show();
        QCOMPARE(impatience.ended, 0);
        QCOMPARE(Text(), QStringLiteral("hostile"));
    }

    void testContentOfEveryKindAnswers_data()
    {
        QTest::addColumn<QString>("address");
        fixture.Write(QStringLiteral("content/plain.txt"), "plain");
        fixture.Write(QStringLiteral("content/plain.svg"),
                      "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
        QPdfWriter sheet(fixture.Path(QStringLiteral("content/plain.pdf")));
        QPainter(&sheet).drawText(99, 99, QStringLiteral("plain"));
        for (const char *name : {"plain.html", "plain.txt", "plain.svg", "plain.pdf", "none.html"})
            QTest::newRow(name) << fixture.Page(QLatin1String(name));
        QTest::newRow("member") << fixture.Member(QStringLiteral("/Dokumente/next.html"));
    }

    void testContentOfEveryKindAnswers()
    {
        QFETCH(const QString, address);
        WritePlain();
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        browser.Navigate(address);
        QTRY_COMPARE(complete.count() + failed.count(), 1);
        QSignalSpy answers(&watch, &PageWatch::Answered);
        const Impatience impatience(watch, {.interval = Tick, .usual = Ever, .leaving = Ever});
        QTRY_VERIFY(answers.count() > 1);
    }

    void testUserGetsAwayFrom_data()
    {
        QTest::addColumn<QString>("script");
        const auto row = [](const char *name, const char *script) {
            QTest::newRow(name) << QString::fromLatin1(script);
        };
        row("reloading", "location.reload()");
        row("reloading itself", "setInterval(() => location.reload())");
        row("moving to itself",
            "setInterval(() => { location = 'hostile.html?' + Math.random() })");
        row("stopping loads", "setInterval(() => stop())");
        row("a long history", "for (i = 0; i < 1e4; ++i) history.pushState(i, '')");
        row("steps in the history", "setInterval(() => { history.back(); history.forward() })");
        row("jumps", "setInterval(() => { location.hash = Math.random() })");
        row("holding on",
            "onbeforeunload = e => { e.preventDefault(); return e.returnValue = 'x' }");
        row("questions on leaving", "onbeforeunload = onunload = () => { alert(1) }");
        row("frames in frames", "b.innerHTML = '<iframe src=hostile.html></iframe>'.repeat(20)");
        row("status texts", "setInterval(() => { for (i = 0; i < 99; ++i) status = i })");
        row("a huge page", "b.innerHTML = '<p>x<b>y'.repeat(5e3)");
        row("workers without end", "for (i = 0; i < 4; ++i)"
                                   " new Worker(URL.createObjectURL(new Blob(['for (;;);'])))");
    }

    void testUserGetsAwayFrom()
    {
        QFETCH(const QString, script);
        QVERIFY(Start(script));
        QVERIFY(GetsAway());
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestHostileScripts>(argc, argv);
}

#include "TestHostileScripts.moc"
