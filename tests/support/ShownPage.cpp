#include "support/ShownPage.h"

#include "support/WaitUntil.h"
#include "ui/main/PageProtocol.h"

#include <QSignalSpy>

namespace Tesk {

QString InnerText(CatalogueWindow &catalogue, const QString &elementId)
{
    return catalogue
        .Evaluate(QStringLiteral("document.getElementById('%1')?.innerText").arg(elementId))
        .toString();
}

QString ShownCaption(CatalogueWindow &catalogue)
{
    return InnerText(catalogue, QStringLiteral("caption")).trimmed();
}

int RowCount(CatalogueWindow &catalogue)
{
    return catalogue.Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length"))
        .toInt();
}

QStringList ShownArtNrs(CatalogueWindow &catalogue)
{
    return catalogue
        .Evaluate(QStringLiteral("[...document.querySelectorAll('tr.contListRow')]"
                                 ".map(row => row.querySelector('td.prodItem').innerText.trim())"))
        .toStringList();
}

bool WaitForFillAfter(CatalogueWindow &catalogue, const std::function<void()> &action)
{
    const QSignalSpy fills(&catalogue.Window().Protocol(), &PageProtocol::PageFilled);
    action();
    return WaitUntil([&] { return !fills.isEmpty(); });
}

} // namespace Tesk
