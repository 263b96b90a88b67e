#include "ui/main/CatalogApplication.h"

#include "base/Errors.h"

#include <QLoggingCategory>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QTimer>

namespace Tesk {

namespace {

Q_LOGGING_CATEGORY(applicationLog, "tesk.application")

} // namespace

CatalogApplication::CatalogApplication(int &argc, char **argv)
    : QApplication(argc, argv)
{
    setApplicationName(QStringLiteral("tesk-catalog"));
}

bool CatalogApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const CatalogueError &error) {
        ShowError(error.Message());
    } catch (const std::exception &error) {
        ShowError(QString::fromUtf8(error.what()));
    }
    return true;
}

void CatalogApplication::ShowError(const QString &message)
{
    qCWarning(applicationLog).noquote() << message;
    if (isShowingError)
        return;
    // The box runs an event loop of its own; it opens once the failed event has been left.
    QTimer::singleShot(0, this, [this, message] {
        const QScopedValueRollback guard(isShowingError, true);
        QMessageBox::critical(activeWindow(), QString(), message);
    });
}

} // namespace Tesk
