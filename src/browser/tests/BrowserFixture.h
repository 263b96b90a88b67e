#pragma once

#include "browser/Address.h"
#include "browser/Engine.h"
#include "browser/LocalProfile.h"
#include "browser/WebBrowser.h"
#include "support/Files.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVariant>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <memory>

namespace Tesk {

/// An application directory whose path holds all that addresses trip over, and a browser on it.
class BrowserFixture
{
public:
    BrowserFixture()
    {
        const QString folder = QStringLiteral("Gerät #1 50%41 ? neu");
        if (!QDir(temporary.path()).mkpath(folder + QStringLiteral("/content")))
            qFatal("the application directory cannot be made");
        directory = temporary.filePath(folder);
        if (!QFile::copy(QStringLiteral(TEST_CONTAINER), Path(QStringLiteral("resources.chm"))))
            qFatal("the container cannot be copied");
        profile.reset(
            CreateLocalProfile(Path(QStringLiteral("resources.chm")), directory, nullptr));
        browser = std::make_unique<WebBrowser>(profile.get());
        browser->resize(800, 600);
        browser->show();
    }

    QString Path(const QString &name) const { return directory + u'/' + name; }

    /// The address of a page in the folder `content`, as the program spells it.
    QString Page(const QString &name) const
    {
        return QStringLiteral("file://") + Path(QStringLiteral("content/")) + name;
    }

    /// The address of a member of the container, as the program spells it.
    QString Member(const QString &name) const
    {
        return QStringLiteral("mk:@MSITStore:") + Path(QStringLiteral("resources.chm::")) + name;
    }

    void Write(const QString &name, const QByteArray &content) const
    {
        WriteBytes(Path(name), content);
    }

    /// Writes a page into the folder `content` and gives its address.
    QString WritePage(const QString &name, const QByteArray &html) const
    {
        Write(QStringLiteral("content/") + name, html);
        return Page(name);
    }

    /// Navigates and waits for the page of this address to complete.
    bool Open(const QString &address)
    {
        QSignalSpy complete(browser.get(), &WebBrowser::DocumentComplete);
        browser->Navigate(address);
        return complete.wait(WaitTime) && complete.first().first().toString() == address;
    }

    /// The result of a script in the page; an invalid value when none came.
    QVariant Evaluate(const QString &script)
    {
        // The engine works in small steps: a real event loop takes them at once, a polling wait
        // one every few milliseconds.
        const auto loop = std::make_shared<QEventLoop>();
        const auto result = std::make_shared<QVariant>();
        browser->RunScript(script, [loop, result](const QVariant &value) {
            *result = value;
            loop->quit();
        });
        QTimer timeout;
        QObject::connect(&timeout, &QTimer::timeout, loop.get(), &QEventLoop::quit);
        timeout.start(WaitTime);
        loop->exec();
        return *result;
    }

    QString Text(const QString &script) { return Evaluate(script).toString(); }

    /// Opens a page without anything particular.
    bool OpenPlainPage(const QByteArray &html = "<p id=p>plain</p>")
    {
        return Open(WritePage(QStringLiteral("plain.html"), html));
    }

    /// Clicks into the middle of an element with the left button.
    void Click(const QString &id)
    {
        const QVariantList middle =
            Evaluate(QStringLiteral("(r => [r.x + r.width / 2, r.y + r.height / 2])"
                                    "(document.getElementById('%1').getBoundingClientRect())")
                         .arg(id))
                .toList();
        if (middle.size() != 2)
            qFatal("the page of the test has no element to click");
        QTest::mouseClick(browser->View()->focusProxy(), Qt::LeftButton, {},
                          QPoint(middle.at(0).toInt(), middle.at(1).toInt()));
    }

    WebBrowser &Browser() { return *browser; }
    QWebEngineProfile &Profile() { return *profile; }

    static constexpr int WaitTime = 10'000;

private:
    QTemporaryDir temporary;
    QString directory;
    std::unique_ptr<QWebEngineProfile> profile;
    std::unique_ptr<WebBrowser> browser;
};

/// The main function of a test that needs the engine.
template <typename Test>
int RunBrowserTest(int argc, char **argv)
{
    ConfigureEngine();
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace Tesk
