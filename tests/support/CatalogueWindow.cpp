#include "support/CatalogueWindow.h"

#include "browser/LocalProfile.h"
#include "support/PageUser.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPointer>
#include <QTimer>

namespace Tesk {

CatalogueWindow::CatalogueWindow(const QString &applicationDirectory, const QString &language,
                                 const QLocale &userLocale)
    : registry(settingsFolder.filePath(QStringLiteral("settings.json")))
    , contactServices{[this](const QString &key) { return controller->GetText(key); }, registry,
                      mailSender, lastContact}
{
    registry.RegSetString(SettingsKey, QStringLiteral("Location"), language);
    controller =
        std::make_unique<Controller>(applicationDirectory, registry,
                                     settingsFolder.filePath(QStringLiteral("cache")), userLocale);
    QWebEngineProfile *const profile =
        CreateLocalProfile(applicationDirectory + QLatin1String("/resources.chm"),
                           applicationDirectory, &profileOwner);
    window = std::make_unique<frmCatalog>(*controller, contactServices, profile);
    window->Load();
    window->show();
}

CatalogueWindow::~CatalogueWindow() = default;

QVariant CatalogueWindow::Evaluate(const QString &expression)
{
    return Page().Evaluate(expression);
}

bool CatalogueWindow::WaitFor(const QString &addressPart, const QString &expression)
{
    return Page().WaitFor(addressPart, expression);
}

bool CatalogueWindow::WaitForFilledPage(const QString &addressPart)
{
    return WaitFor(addressPart, QStringLiteral("['list', 'productDetails'].some(id => {"
                                               " const e = document.getElementById(id);"
                                               " return e && e.innerHTML.trim() !== '' })"));
}

bool CatalogueWindow::Click(const QString &selector)
{
    return Page().Click(selector);
}

bool CatalogueWindow::Hover(const QString &selector)
{
    return Page().Hover(selector);
}

void CatalogueWindow::WaitForPaint()
{
    Page().WaitForPaint();
}

PageUser CatalogueWindow::Page()
{
    return PageUser(*window->wbMain);
}

bool CatalogueWindow::AnswerDialogs(const std::function<void()> &action,
                                    const std::vector<DialogAnswer> &answers)
{
    size_t answered = 0;
    QWidget *const before = QApplication::activeModalWidget();
    QPointer<QWidget> last = before;
    QTimer poll;
    poll.setInterval(5);
    // A dialog runs an event loop of its own, inside of which the next one cannot open yet: so each
    // is met by a tick of this timer, and the answer only acts and returns.
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget *const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == last || answered == answers.size())
            return;
        // Keys go to the widget with the focus, which is the page's until the dialog is active.
        const QWidget *const focus = QApplication::focusWidget();
        if (focus == nullptr || !dialog->isAncestorOf(focus))
            return;
        last = dialog;
        answers[answered++](dialog);
    });
    poll.start();
    action();
    return WaitUntil(
        [&] { return answered == answers.size() && QApplication::activeModalWidget() == before; });
}

bool CopyApplicationDirectory(const QString &source, const QString &target)
{
    QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString relative = QDir(source).relativeFilePath(file);
        if (relative == QLatin1String("tesk-catalog"))
            continue;
        const QString copy = target + u'/' + relative;
        QDir().mkpath(QFileInfo(copy).path());
        if (!QFile::copy(file, copy))
            return false;
    }
    return true;
}

bool CopyWithDatabase(const QString &source, const QString &target, const QString &databaseFile)
{
    const QString database = target + QLatin1String("/catalog.db");
    return CopyApplicationDirectory(source, target) && QFile::remove(database) &&
           QFile::copy(databaseFile, database);
}

} // namespace Tesk
