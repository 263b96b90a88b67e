#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"
#include "browser/LocalPage.h"

#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

#include <functional>

using namespace Tesk;

namespace {

/// Waits beside a modal dialog, whose own event loop runs, and hands it on.
class DialogVisitor : public QObject
{
public:
    explicit DialogVisitor(const std::function<void(QWidget *)> &visit)
    {
        connect(&timer, &QTimer::timeout, this, [this, visit] {
            if (QWidget *dialog = QApplication::activeModalWidget()) {
                timer.stop();
                visit(dialog);
            }
        });
        timer.start(10);
    }

private:
    QTimer timer;
};

/// Takes the place of the desktop's mail program.
class MailProgram : public QObject
{
    Q_OBJECT

public:
    MailProgram() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "Open"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }
    MailProgram(const MailProgram &) = delete;
    MailProgram &operator=(const MailProgram &) = delete;

    QList<QUrl> opened;

public Q_SLOTS:
    void Open(const QUrl &url) { opened.append(url); }
};

/// Holds back what the engine reports of a load until the page itself has said that it has loaded:
/// the reports come by the event loop, what the page says comes at once.
class LateReports : public QObject
{
public:
    explicit LateReports(LocalPage *page)
        : page(page)
    {
        qApp->installEventFilter(this);
        connect(page, &LocalPage::DocumentLoaded, this, [this] { hasLoaded = true; });
    }

    bool HaveBeenHeldBack() const { return isHeldBack && hasLoaded; }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (IsEngine(object))
            engine = object;
        if (object == page && event->type() == QEvent::MetaCall && !isHeldBack)
            HoldBack();
        return false;
    }

private:
    // The engine's library tells the sanitizer nothing of its types.
#ifdef __clang__
    [[clang::no_sanitize("vptr")]]
#endif
    static bool
    IsEngine(const QObject *object)
    {
        return qstrcmp(object->metaObject()->className(), "QWebEngineMessagePumpScheduler") == 0;
    }

    void HoldBack()
    {
        isHeldBack = true;
        for (const QDeadlineTimer end(BrowserFixture::WaitTime); !hasLoaded && !end.hasExpired();) {
            QCoreApplication::sendPostedEvents(engine);
            QThread::yieldCurrentThread();
        }
    }

    LocalPage *page;
    QObject *engine = nullptr;
    bool isHeldBack = false;
    bool hasLoaded = false;
};

} // namespace

/// The control's manners: failures, dialogs, windows, data sheets, focus.
class TestWebBrowser : public QObject
{
    Q_OBJECT

private:
    BrowserFixture fixture;
    WebBrowser &browser = fixture.Browser();

    bool WaitForFailureMessage()
    {
        QSignalSpy loaded(browser.View()->page(), &QWebEnginePage::loadFinished);
        while (loaded.isEmpty() || !loaded.last().first().toBool()) {
            if (!loaded.wait(BrowserFixture::WaitTime))
                return false;
        }
        return fixture.Text(QStringLiteral("document.title")) ==
               QLatin1String("This page cannot be shown");
    }

    void MissingPageIsTold(const QString &address)
    {
        QVERIFY(fixture.OpenPlainPage());
        const LogCapture log;
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        browser.Navigate(address);
        QVERIFY(WaitForFailureMessage());
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.first().first().toString(), address);
        QVERIFY(fixture.Text(QStringLiteral("document.body.innerText")).contains(address));
        QVERIFY(fixture.Text(QStringLiteral("document.body.innerText"))
                    .contains(QStringLiteral("Its file is missing.")));
        QVERIFY(log.Has("tesk.browser", {address, QStringLiteral("missing")}));
        QCOMPARE(complete.count(), 0);
        QCOMPARE(browser.Address(), QString());
    }

private Q_SLOTS:
    void testMissingFileIsTold()
    {
        MissingPageIsTold(fixture.Page(QStringLiteral("missing <b> ü.html?id=7")));
    }

    void testMissingMemberIsTold()
    {
        MissingPageIsTold(fixture.Member(QStringLiteral("/Dokumente/missing.html")));
    }

    void testChangesAreKeptFromTheFailureMessage()
    {
        MissingPageIsTold(fixture.Page(QStringLiteral("missing.html")));
        const LogCapture log;
        browser.Apply({{QStringLiteral("p"), ElementChange::Property::InnerHtml, QString()}});
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser", {QStringLiteral("moved on")}),
                                 BrowserFixture::WaitTime);
    }

    // A busy program hears of the begin of a load after all that the page has said.
    void testPageCompletesOnceWhenItsLoadIsReportedLate()
    {
        QVERIFY(fixture.OpenPlainPage());
        const QString next = fixture.WritePage(QStringLiteral("next.html"), "<p>next</p>");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        const QSignalSpy loading(browser.View()->page(), &QWebEnginePage::loadingChanged);
        const LateReports late(static_cast<LocalPage *>(browser.View()->page()));
        browser.Navigate(next);
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QVERIFY(QTest::qWaitFor([&] { return loading.count() == 2; }, BrowserFixture::WaitTime));
        QVERIFY(late.HaveBeenHeldBack());
        // What came after the page has been heard.
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("next"));
        QCOMPARE(complete.count(), 1);
    }

    void testPageAfterAFailureCompletes()
    {
        MissingPageIsTold(fixture.Page(QStringLiteral("missing.html")));
        QVERIFY(fixture.OpenPlainPage());
    }

    void testFailureGivesWayToTheNextPage()
    {
        QVERIFY(fixture.OpenPlainPage());
        const QString address = fixture.WritePage(QStringLiteral("next.html"), "<p>next</p>");
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        connect(
            browser.View()->page(), &QWebEnginePage::loadFinished, this,
            [this, address] { browser.Navigate(address); },
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        browser.Navigate(fixture.Page(QStringLiteral("missing.html")));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(complete.first().first().toString(), address);
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("next"));
        QCOMPARE(failed.count(), 0);
    }

    void testRefusedAddressEndsTheLoad_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("file elsewhere") << QStringLiteral("file:///etc/hostname");
        QTest::newRow("network") << QStringLiteral("https://example.com/");
        QTest::newRow("download") << fixture.Page(QStringLiteral("archive.zip"));
    }

    void testRefusedAddressEndsTheLoad()
    {
        QFETCH(const QString, address);
        fixture.Write(QStringLiteral("content/archive.zip"), "PK\3\4");
        QVERIFY(fixture.OpenPlainPage());
        QSignalSpy failed(&browser, &WebBrowser::LoadFailed);
        browser.Navigate(address);
        QVERIFY(failed.wait(BrowserFixture::WaitTime));
        QCOMPARE(failed.first().first().toString(), address);
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("plain"));
    }

    void testOpeningTheSameAddressCompletesAgain_data()
    {
        QTest::addColumn<QString>("tail");
        QTest::newRow("page") << QString();
        QTest::newRow("query") << QStringLiteral("?id=7");
        QTest::newRow("fragment") << QStringLiteral("#p");
        QTest::newRow("query and fragment") << QStringLiteral("?id=7#p");
    }

    void testOpeningTheSameAddressCompletesAgain()
    {
        QFETCH(const QString, tail);
        QVERIFY(fixture.OpenPlainPage());
        const QString address = fixture.Page(QStringLiteral("plain.html")) + tail;
        QVERIFY(fixture.Open(address));
        QVERIFY(fixture.Open(address));
    }

    // The engine reports no end of a load for a page that takes the place of one whose own load
    // is about to end.
    void testEveryPageInQuickSuccessionCompletes()
    {
        const QByteArray html = "<p id='p'></p>";
        const QString first = fixture.WritePage(QStringLiteral("first.html"), html);
        const QString second = fixture.WritePage(QStringLiteral("second.html"), html);
        WebBrowser &browser = fixture.Browser();
        auto *const page = qobject_cast<LocalPage *>(browser.View()->page());
        QVERIFY(page != nullptr);
        const QMetaObject::Connection fill =
            connect(&browser, &WebBrowser::DocumentComplete, this, [&browser] {
                browser.Apply({{QStringLiteral("p"), ElementChange::Property::InnerHtml,
                                QStringLiteral("filled")}});
            });
        for (int round = 0; round < 20; ++round) {
            QEventLoop created;
            connect(page, &LocalPage::DocumentCreated, &created, &QEventLoop::quit);
            browser.Navigate(first);
            created.exec();
            browser.Navigate(second);
            QTRY_COMPARE_WITH_TIMEOUT(
                fixture.Text(QStringLiteral("location.pathname.split('/').pop() +"
                                            " document.getElementById('p')?.innerText")),
                QStringLiteral("second.htmlfilled"), BrowserFixture::WaitTime);
        }
        disconnect(fill);
    }

    void testDataSheetShowsInside()
    {
        QVERIFY(QFile::copy(QStringLiteral(TEST_DATA_DIR "/sheet.pdf"),
                            fixture.Path(QStringLiteral("A 1 ü.pdf"))));
        const QString address =
            QStringLiteral("file://") + fixture.Path(QStringLiteral("A 1 ü.pdf"));
        QVERIFY(fixture.OpenPlainPage("<a id=a href='../A 1 ü.pdf'>sheet</a>"));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("a"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(complete.first().first().toString(), address);
        // The sheet's page is one red square, shown somewhere on the viewer's grey ground.
        const auto showsRed = [this] {
            const QImage shown = browser.grab().toImage();
            for (int y = 0; y < shown.height(); y += 10) {
                for (int x = 0; x < shown.width(); x += 10) {
                    if (shown.pixelColor(x, y) == QColor(255, 0, 0))
                        return true;
                }
            }
            return false;
        };
        QTRY_VERIFY_WITH_TIMEOUT(showsRed(), BrowserFixture::WaitTime);
    }

    void testQuestionsComeUnderTheWindowsTitle()
    {
        QVERIFY(fixture.OpenPlainPage());
        browser.setWindowTitle(QStringLiteral("The catalogue"));
        QString title;
        QString message;
        QWidget *parent = nullptr;
        const auto answer = [&](QMessageBox::StandardButton button) {
            return [&, button](QWidget *dialog) {
                auto *box = qobject_cast<QMessageBox *>(dialog);
                title = box->windowTitle();
                message = box->text();
                parent = box->parentWidget();
                box->button(button)->click();
            };
        };
        {
            const DialogVisitor visitor(answer(QMessageBox::Cancel));
            QCOMPARE(fixture.Evaluate(QStringLiteral("confirm('Delete <b>1</b>?')")), false);
        }
        QCOMPARE(title, QStringLiteral("The catalogue"));
        QCOMPARE(message, QStringLiteral("Delete <b>1</b>?"));
        QCOMPARE(parent, browser.window());
        {
            const DialogVisitor visitor(answer(QMessageBox::Ok));
            QCOMPARE(fixture.Evaluate(QStringLiteral("confirm('Delete?')")), true);
        }
        {
            const DialogVisitor visitor(answer(QMessageBox::Ok));
            QCOMPARE(fixture.Text(QStringLiteral("alert('Not a number'); 'told'")),
                     QStringLiteral("told"));
        }
        QCOMPARE(message, QStringLiteral("Not a number"));
    }

    void testStatusTextAfterAQuestion()
    {
        QVERIFY(fixture.OpenPlainPage(
            "<a id=a href=\"javascript:if(confirm('Delete?')){ window.status='delItem:0' }\">"
            "delete</a>"));
        QSignalSpy status(&browser, &WebBrowser::StatusTextChange);
        const DialogVisitor visitor([](QWidget *dialog) {
            qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Ok)->click();
        });
        fixture.Click(QStringLiteral("a"));
        QTRY_COMPARE_WITH_TIMEOUT(status.count(), 1, BrowserFixture::WaitTime);
        QCOMPARE(status.first().first().toString(), QStringLiteral("delItem:0"));
    }

    void testPromptAnswers()
    {
        QVERIFY(fixture.OpenPlainPage());
        const DialogVisitor visitor([](QWidget *dialog) {
            auto *input = qobject_cast<QInputDialog *>(dialog);
            input->setTextValue(input->textValue() + u'!');
            input->accept();
        });
        QCOMPARE(fixture.Text(QStringLiteral("prompt('Name', 'preset')")),
                 QStringLiteral("preset!"));
    }

    void testLinkForANewWindowOpensHere()
    {
        const QString target = fixture.WritePage(QStringLiteral("target.html"), "<p>target</p>");
        QVERIFY(fixture.OpenPlainPage("<a id=a target=_blank href=target.html>new</a>"));
        QSignalSpy complete(&browser, &WebBrowser::DocumentComplete);
        fixture.Click(QStringLiteral("a"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QCOMPARE(complete.first().first().toString(), target);
    }

    void testWindowThatNobodyAskedForIsRefused()
    {
        const LogCapture log;
        fixture.WritePage(QStringLiteral("popup.html"), "<p>popup</p>");
        QVERIFY(fixture.OpenPlainPage("<p>plain</p><script>window.open('popup.html')</script>"));
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser.gate", {QStringLiteral("popup.html")}),
                                 BrowserFixture::WaitTime);
        QCOMPARE(fixture.Text(QStringLiteral("document.body.innerText")), QStringLiteral("plain"));
        for (const QWidget *widget : QApplication::topLevelWidgets())
            QVERIFY(!widget->isVisible() || widget == browser.window());
    }

    void testMailAddressGoesToTheDesktopOnAClick()
    {
        const MailProgram mail;
        QVERIFY(
            fixture.OpenPlainPage("<a id=a href='mailto:maker@example.com?subject=x'>mail</a>"));
        fixture.Click(QStringLiteral("a"));
        QTRY_COMPARE_WITH_TIMEOUT(
            mail.opened, QList<QUrl>{QUrl(QStringLiteral("mailto:maker@example.com?subject=x"))},
            BrowserFixture::WaitTime);
        QVERIFY(fixture.OpenPlainPage());
    }

    void testDownloadIsRefused()
    {
        const LogCapture log;
        fixture.Write(QStringLiteral("content/archive.zip"), "PK\3\4");
        QVERIFY(fixture.OpenPlainPage("<a id=a href=archive.zip>archive</a><a id=b download "
                                      "href=plain.html>page</a>"));
        fixture.Click(QStringLiteral("a"));
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser.gate", {QStringLiteral("archive.zip")}),
                                 BrowserFixture::WaitTime);
        fixture.Click(QStringLiteral("b"));
        QTRY_VERIFY_WITH_TIMEOUT(log.Has("tesk.browser.gate", {QStringLiteral("plain.html")}),
                                 BrowserFixture::WaitTime);
        QCOMPARE(fixture.Text(QStringLiteral("a.innerText")), QStringLiteral("archive"));
    }

    // It was shown, and it stays when the other one is refused.
    void testPageCompletesThoughAnotherOneIsAskedForMeanwhile()
    {
        const QString first = fixture.WritePage(QStringLiteral("first.html"), "<p id=p>first</p>");
        const QString second = fixture.WritePage(QStringLiteral("second.html"), "<p>second</p>");
        QStringList complete;
        QObject listener;
        connect(&browser, &WebBrowser::DocumentComplete, &listener,
                [&](const QString &address) { complete.append(address); });
        // The engine tells of the end of the load before the control tells its listeners.
        bool isAsked = false;
        connect(browser.View()->page(), &QWebEnginePage::loadFinished, &listener, [&] {
            if (!std::exchange(isAsked, true))
                browser.Navigate(second);
        });
        browser.Navigate(first);
        QTRY_COMPARE_WITH_TIMEOUT(complete, QStringList({first, second}), BrowserFixture::WaitTime);
    }

    void testPagesTakeTheDesktopsFont()
    {
        QFont font = QApplication::font();
        QVERIFY(fixture.OpenPlainPage("<p id=p>plain</p>"));
        QCOMPARE(fixture.Text(QStringLiteral("getComputedStyle(document.body).fontSize")),
                 QStringLiteral("%1px").arg(QFontInfo(font).pixelSize()));
        QCOMPARE(fixture.Profile().settings()->fontFamily(QWebEngineSettings::SansSerifFont),
                 QFontInfo(font).family());
    }

    void testNavigationLeavesTheFocusAlone()
    {
        QWidget window;
        QLineEdit edit(&window);
        WebBrowser inside(&fixture.Profile(), &window);
        inside.setGeometry(0, 40, 400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit.setFocus();
        QSignalSpy complete(&inside, &WebBrowser::DocumentComplete);
        inside.Navigate(fixture.WritePage(QStringLiteral("focus.html"), "<input autofocus>"));
        QVERIFY(complete.wait(BrowserFixture::WaitTime));
        QVERIFY(edit.hasFocus());
        inside.setFocus();
        QVERIFY(inside.View()->hasFocus());
    }

    void testMenuOffersWhatCanBeDone()
    {
        QVERIFY(fixture.OpenPlainPage("<p id=p>plain</p><input id=i value=text>"));
        const auto entriesAt = [this](const QString &id) {
            const QVariantList middle =
                fixture
                    .Evaluate(QStringLiteral("(r => [r.x + 8, r.y + 8])(document.getElementById("
                                             "'%1').getBoundingClientRect())")
                                  .arg(id))
                    .toList();
            const QPoint at(middle.at(0).toInt(), middle.at(1).toInt());
            QSignalSpy requested(browser.View(), &QWidget::customContextMenuRequested);
            QTest::mouseClick(browser.View()->focusProxy(), Qt::RightButton, {}, at);
            QStringList entries;
            if (!QTest::qWaitFor([&requested] { return requested.count() > 0; }))
                entries.append(QStringLiteral("no request"));
            if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
                for (const QAction *action : menu->actions())
                    entries.append(action->text());
                menu->close();
            }
            return entries;
        };
        QCOMPARE(entriesAt(QStringLiteral("p")), QStringList());
        fixture.Evaluate(QStringLiteral("getSelection().selectAllChildren(p)"));
        QCOMPARE(entriesAt(QStringLiteral("p")), QStringList{QStringLiteral("Copy")});
        fixture.Evaluate(QStringLiteral("i.focus(); i.select()"));
        QVERIFY(entriesAt(QStringLiteral("i")).contains(QStringLiteral("Cut")));
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestWebBrowser>(argc, argv);
}

#include "TestWebBrowser.moc"
