#include "sources/ContentPlan.h"

#include "sources/CatalogueSources.h"

namespace Tesk {

namespace {

constexpr QLatin1String imageFolder("content/img/");
constexpr QLatin1String drawingEnding(".svg");

} // namespace

QList<ContentFile> PlanContent(const CatalogueSources &sources)
{
    QList<ContentFile> files;
    for (const QString &source : sources.Files(QStringLiteral("content"))) {
        if (source.startsWith(imageFolder) && source.endsWith(drawingEnding))
            files.append(
                {source.chopped(drawingEnding.size()) + QLatin1String(".gif"), source, true});
        else
            files.append({source, source, false});
    }
    return files;
}

} // namespace Tesk
