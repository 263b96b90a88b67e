#include "browser/FailurePage.h"

namespace Tesk {
namespace {

const char *const Html = R"html(<!DOCTYPE html>
<html><head><meta charset="utf-8"><title>%1</title><style>
body { margin: 24px; color: #1f2326; background: #fff; overflow-wrap: anywhere; }
h1 { font-size: 20px; font-weight: 600; }
p { font-size: 13px; }
.address { color: #6b7278; }
</style></head><body>
<h1>%1</h1>
<p>%2</p>
<p class="address">%3</p>
</body></html>)html";

} // namespace

namespace PageError {

CatalogueError Missing()
{
    return CatalogueError(
        QStringLiteral("Its file is missing. Please install the catalogue again."),
        {QStringLiteral("errorPageMissing"), {}});
}

CatalogueError Unreadable(const QString &reason)
{
    return CatalogueError(
        QStringLiteral("Its file cannot be read (%1). Please install the catalogue again.")
            .arg(reason),
        {QStringLiteral("errorPageRead"), {reason}});
}

CatalogueError EngineFailed()
{
    return CatalogueError(QStringLiteral("The part of the program that shows it has failed on it "
                                         "twice. Please install the catalogue again."),
                          {QStringLiteral("errorPageEngine"), {}});
}

CatalogueError Stopped()
{
    return CatalogueError(
        QStringLiteral("It gave no answer any more and was stopped. Go on with another page, or "
                       "open this one once more. If it stops again, please install the catalogue "
                       "again."),
        {QStringLiteral("errorPageStopped"), {}});
}

} // namespace PageError

QString FailurePage(const QString &address, const CatalogueError &error,
                    const std::function<QString(const QString &key)> &getText)
{
    const CatalogueError heading(QStringLiteral("This page cannot be shown"),
                                 {QStringLiteral("errorPage"), {}});
    return QString::fromLatin1(Html).arg(heading.MessageIn(getText).toHtmlEscaped(),
                                         error.MessageIn(getText).toHtmlEscaped(),
                                         address.toHtmlEscaped());
}

} // namespace Tesk
