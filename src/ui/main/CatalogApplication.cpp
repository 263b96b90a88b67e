#include "ui/main/CatalogApplication.h"

#include "base/Errors.h"

#include <QLoggingCategory>
#include <QMessageBox>
#include <QScopeGuard>
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
    isShowingError = true;
    // The box runs an event loop of its own; it opens once the failed event has been left.
    QTimer::singleShot(0, this, [this, message] {
        const QScopeGuard guard([this] { isShowingError = false; });
        QMessageBox box(QMessageBox::Critical, QString(), message, QMessageBox::Ok, activeWindow());
        box.setTextFormat(Qt::PlainText);
        box.exec();
    });
}

} // namespace Tesk
