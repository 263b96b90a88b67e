#include "support/CatalogueWindow.h"

#include "browser/LocalProfile.h"
#include "browser/WebBrowser.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>

#include <optional>

namespace Tesk {

namespace {

constexpr int PollLimit = 300; // milliseconds

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
    return Evaluate(expression, WaitLimit);
}

// A page that is just being left takes its answer along, so a question asked again and again must
// not wait long for any one answer.
QVariant CatalogueWindow::Evaluate(const QString &expression, int limit)
{
    const auto answer = std::make_shared<std::optional<QVariant>>();
    window->wbMain->RunScript(expression, [answer](const QVariant &value) { *answer = value; });
    if (!WaitUntil([&] { return answer->has_value(); }, limit))
        return {};
    return **answer;
}

bool CatalogueWindow::WaitFor(const QString &addressPart, const QString &expression)
{
    return WaitUntil([&] {
        return window->wbMain->Address().contains(addressPart) &&
               Evaluate(QStringLiteral("Boolean(%1)").arg(expression), PollLimit).toBool();
    });
}

bool CatalogueWindow::WaitForFilledPage(const QString &addressPart)
{
    return WaitFor(addressPart, QStringLiteral("['list', 'productDetails'].some(id => {"
                                               " const e = document.getElementById(id);"
                                               " return e && e.innerHTML.trim() !== '' })"));
}

std::optional<QPoint> CatalogueWindow::PlaceOf(const QString &selector)
{
    const QString quoted = QString::fromUtf8(QJsonDocument(QJsonArray{selector}).toJson());
    const QVariantList place =
        Evaluate(QStringLiteral("(() => { const e = document.querySelector(%1[0]);"
                                " if (!e) return [];"
                                " e.scrollIntoView({ block: 'nearest' });"
                                " const r = e.getBoundingClientRect();"
                                " return [r.left + r.width / 2, r.top + r.height / 2] })()")
                     .arg(quoted))
            .toList();
    if (place.size() != 2)
        return std::nullopt;
    return QPoint(qRound(place[0].toDouble()), qRound(place[1].toDouble()));
}

bool CatalogueWindow::Click(const QString &selector)
{
    const std::optional<QPoint> place = PlaceOf(selector);
    if (!place)
        return false;
    QWidget *const target = window->wbMain->View()->focusProxy();
    QTest::mouseMove(target, *place);
    QTest::mouseClick(target, Qt::LeftButton, {}, *place);
    return true;
}

bool CatalogueWindow::Hover(const QString &selector)
{
    const std::optional<QPoint> place = PlaceOf(selector);
    // Through the window: where nothing is displayed, the cursor itself goes astray at a scale
    // of 2.
    if (place)
        QTest::mouseMove(window->windowHandle(),
                         window->wbMain->View()->focusProxy()->mapTo(window.get(), *place));
    return place.has_value();
}

void CatalogueWindow::WaitForPaint()
{
    Evaluate(QStringLiteral("void(window.teskPainted = false,"
                            " requestAnimationFrame(() => requestAnimationFrame("
                            " () => { window.teskPainted = true })))"));
    const bool isPainted =
        WaitUntil([this] { return Evaluate(QStringLiteral("window.teskPainted")).toBool(); });
    if (!isPainted)
        qWarning("The page was not painted within %d ms.", WaitLimit);
}

bool CatalogueWindow::AnswerDialogs(const std::function<void()> &action,
                                    const std::vector<DialogAnswer> &answers)
{
    size_t answered = 0;
    QPointer<QWidget> last;
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
        [&] { return answered == answers.size() && QApplication::activeModalWidget() == nullptr; });
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
