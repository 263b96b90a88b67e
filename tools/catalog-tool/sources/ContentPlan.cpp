#include "sources/ContentPlan.h"

#include "sources/CatalogueSources.h"

namespace Tesk {

namespace {

constexpr QLatin1String ImageFolder("content/img/");
constexpr QLatin1String DrawingEnding(".svg");

} // namespace

QList<ContentFile> PlanContent(const CatalogueSources &sources)
{
    QList<ContentFile> files;
    for (const QString &source : sources.Files(QStringLiteral("content"))) {
        if (source.startsWith(ImageFolder) && source.endsWith(DrawingEnding))
            files.append(
                {source.chopped(DrawingEnding.size()) + QLatin1String(".gif"), source, true});
        else
            files.append({source, source, false});
    }
    return files;
}

} // namespace Tesk
