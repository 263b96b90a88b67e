#include "sources/DataSheetPlan.h"

#include "core/ContentAddresses.h"
#include "sources/CatalogueSources.h"

namespace Tesk {

QString DataSheet::ArticleNumber() const
{
    return ContentAddresses::PdfKey(fileName);
}

QList<DataSheet> PlanDataSheets(const CatalogueSources &sources)
{
    QList<DataSheet> sheets;
    const QDir folder(sources.Folder().filePath(QStringLiteral("datasheets")));
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files, QDir::Name)) {
        const bool isPage = file.suffix() == QLatin1String("html");
        if (isPage || file.suffix() == QLatin1String("pdf"))
            sheets.append({file.completeBaseName() + QLatin1String(".pdf"),
                           QStringLiteral("datasheets/") + file.fileName(), isPage});
    }
    return sheets;
}

} // namespace Tesk
