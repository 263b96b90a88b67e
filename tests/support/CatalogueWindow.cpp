#include "support/CatalogueWindow.h"

#include "browser/LocalProfile.h"
#include "support/PageUser.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

namespace Tesk {

namespace {

/// Closes a dialog that got no answer, or did not take it, and says which.
void CloseUnanswered(QWidget *dialog)
{
    const auto *const box = qobject_cast<const QMessageBox *>(dialog);
    qWarning().noquote() << "The dialog" << dialog->metaObject()->className()
                         << dialog->windowTitle() << (box ? box->text() : QString())
                         << "stays open and is closed.";
    if (auto *const modal = qobject_cast<QDialog *>(dialog))
        modal->reject();
    else
        dialog->close();
}

} // namespace

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
    QPointer<QWidget> seen = before;
    QDeadlineTimer patience;
    bool isLate = false;
    QTimer poll;
    poll.setInterval(5);
    // A dialog runs an event loop of its own, inside of which the next one cannot open yet: so each
    // is met by a tick of this timer, and the answer only acts and returns.
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget *const dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == before)
            return;
        if (dialog != seen) {
            seen = dialog;
            patience.setRemainingTime(WaitLimit);
        }
        // What waits for a dialog to close waits inside of its loop, without an end of its own.
        if (isLate || patience.hasExpired()) {
            isLate = true;
            CloseUnanswered(dialog);
            return;
        }
        if (dialog == last || answered == answers.size())
            return;
        // Keys go to the widget with the focus, which is the page's until the dialog is active.
        const QWidget *const focus = QApplication::focusWidget();
        if (focus == nullptr || !dialog->isAncestorOf(focus))
            return;
        last = dialog;
        answers[answered++](dialog);
        patience.setRemainingTime(WaitLimit);
    });
    poll.start();
    action();
    const bool isDone = WaitUntil([&] {
        return isLate ||
               (answered == answers.size() && QApplication::activeModalWidget() == before);
    });
    if (!isDone)
        qWarning("%zu of %zu dialogs were answered.", answered, answers.size());
    return isDone && !isLate;
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
