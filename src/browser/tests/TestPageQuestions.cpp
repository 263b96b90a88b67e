#include "BrowserFixture.h"
#include "base/tests/LogCapture.h"
#include "browser/DialogLimit.h"

#include <QMessageBox>

#include <memory>

using namespace Tesk;

namespace {

const char *const Gate = "tesk.browser.gate";

/// Closes every dialog that opens, and counts them.
class DialogCloser : public QObject
{
public:
    DialogCloser()
    {
        connect(&timer, &QTimer::timeout, this, [this] {
            if (auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                ++count;
                box->accept();
            }
        });
        timer.start(1);
    }

    int count = 0;

private:
    QTimer timer;
};

} // namespace

/// A page's questions come before the user as often as he asks for them, and a few times otherwise.
class TestPageQuestions : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<BrowserFixture> fixture;

    QString Text()
    {
        return fixture->Evaluate(QStringLiteral("document.body.innerText")).toString();
    }

    void PressEnter() { QTest::keyClick(fixture->Browser().View()->focusProxy(), Qt::Key_Return); }

    /// A page whose button has the focus, runs the script, and counts how often it did.
    bool OpenWithButton(const QString &script)
    {
        const bool isOpen = fixture->Open(fixture->WritePage(
            QStringLiteral("button.html"), "<button id=a autofocus style='width: 99px'>0"));
        fixture->Evaluate(
            QStringLiteral("a.focus(); a.onclick = () => { %1; ++a.innerText }; 1").arg(script));
        fixture->Browser().View()->setFocus();
        return isOpen;
    }

private Q_SLOTS:
    void init() { fixture = std::make_unique<BrowserFixture>(); }
    void cleanup() { fixture.reset(); }

    void testFloodOfQuestionsEnds()
    {
        const LogCapture log;
        DialogCloser closer;
        QVERIFY(
            fixture->Open(fixture->WritePage(QStringLiteral("plain.html"), "<body id=b>plain")));
        fixture->Browser().RunScript(
            QStringLiteral("setTimeout(() => {"
                           " for (i = 0; i < 200; ++i) i % 2 ? alert(i) : confirm(i);"
                           " b.innerText = 'over' })"));
        QTRY_COMPARE(Text(), QStringLiteral("over"));
        QCOMPARE(closer.count, DialogLimit::LongestRow);
        QVERIFY(log.Has(Gate, {QStringLiteral("further questions"), QStringLiteral("\"5\"")}));
    }

    // Who deletes lines of a cart by keys is asked often, but asks for it.
    void testQuestionsThatTheUserAsksForAreNoRow_data()
    {
        QTest::addColumn<bool>("isByKey");
        QTest::newRow("key") << true;
        QTest::newRow("mouse") << false;
    }

    void testQuestionsThatTheUserAsksForAreNoRow()
    {
        QFETCH(const bool, isByKey);
        constexpr int often = 3 * DialogLimit::LongestRow;
        const LogCapture log;
        DialogCloser closer;
        QVERIFY(OpenWithButton(QStringLiteral("confirm(1)")));
        for (int count = 1; count <= often; ++count) {
            if (isByKey)
                PressEnter();
            else
                fixture->Click(QStringLiteral("a"));
            QTRY_COMPARE(Text(), QString::number(count));
        }
        QCOMPARE(closer.count, often);
        QCOMPARE(log.Count(Gate), 0);
    }

    void testFloodAfterAPressEnds()
    {
        const LogCapture log;
        DialogCloser closer;
        QVERIFY(OpenWithButton(QStringLiteral("for (i = 0; i < 50; ++i) alert(i)")));
        PressEnter();
        QTRY_COMPARE(Text(), QStringLiteral("1"));
        QCOMPARE(closer.count, 1 + DialogLimit::LongestRow);
        QVERIFY(log.Has(Gate, {QStringLiteral("further questions")}));
    }
};

int main(int argc, char **argv)
{
    return RunBrowserTest<TestPageQuestions>(argc, argv);
}

#include "TestPageQuestions.moc"
