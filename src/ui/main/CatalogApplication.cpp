#include "ui/main/CatalogApplication.h"

#include "about/ProgramInfo.h"
#include "base/Errors.h"
#include "ui/main/Log.h"
#include "widgets/PlainMessageBox.h"

#include <QScopeGuard>
#include <QTimer>

#include <utility>

namespace Tesk {

CatalogApplication::CatalogApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    // The name stands in for missing titles; no lasting path is made of it.
    setApplicationName(ProgramInfo::Title);
}

void CatalogApplication::SetTextLookup(std::function<QString(const QString &key)> getText)
{
    textLookup = std::move(getText);
}

bool CatalogApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const CatalogueError &error) {
        ShowError(error);
    } catch (const std::exception &error) {
        ShowError(CatalogueError(QString::fromUtf8(error.what())));
    }
    return true;
}

void CatalogApplication::ShowError(const CatalogueError &error)
{
    qCWarning(applicationLog).noquote() << error.Message();
    if (isShowingError)
        return;
    isShowingError = true;
    const QString message = textLookup ? error.MessageIn(textLookup) : error.Message();
    // The box runs an event loop of its own; it opens once the failed event has been left.
    QTimer::singleShot(0, this, [this, message] {
        const QScopeGuard guard([this] { isShowingError = false; });
        PlainMessageBox(QMessageBox::Critical, QString(), message, QMessageBox::Ok, activeWindow())
            .exec();
    });
}

} // namespace Tesk
