#include "browser/PagePermissions.h"

#include "browser/Log.h"

#include <QMetaEnum>
#include <QWebEngineFileSystemAccessRequest>
#include <QWebEnginePage>
#include <QWebEngineQuotaRequest>
#include <QWebEngineRegisterProtocolHandlerRequest>

namespace Tesk {
namespace {

void LogRefusal(const char *what)
{
    qCWarning(gateLog, "refused to a page: %s", what);
}

} // namespace

void RefusePermissions(QWebEnginePage &page)
{
    using Page = QWebEnginePage;
    // The engine lets a request wait for ever that nobody answers.
    QObject::connect(&page, &Page::featurePermissionRequested, &page,
                     [&page](const QUrl &origin, Page::Feature feature) {
                         LogRefusal(QMetaEnum::fromType<Page::Feature>().valueToKey(feature));
                         page.setFeaturePermission(origin, feature, Page::PermissionDeniedByUser);
                     });
    QObject::connect(&page, &Page::fileSystemAccessRequested, &page,
                     [](QWebEngineFileSystemAccessRequest request) {
                         LogRefusal("access to files");
                         request.reject();
                     });
    QObject::connect(&page, &Page::quotaRequested, &page, [](QWebEngineQuotaRequest request) {
        LogRefusal("room on the disk");
        request.reject();
    });
    QObject::connect(&page, &Page::registerProtocolHandlerRequested, &page,
                     [](QWebEngineRegisterProtocolHandlerRequest request) {
                         LogRefusal("to take over a kind of address");
                         request.reject();
                     });
    QObject::connect(&page, &Page::printRequested, &page, [] { LogRefusal("to print"); });
    QObject::connect(&page, &Page::windowCloseRequested, &page,
                     [] { LogRefusal("to close the window"); });
    QObject::connect(&page, &Page::geometryChangeRequested, &page,
                     [] { LogRefusal("to move the window"); });
}

} // namespace Tesk
