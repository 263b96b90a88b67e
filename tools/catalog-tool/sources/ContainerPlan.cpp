#include "sources/ContainerPlan.h"

#include "base/Errors.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"
#include "sources/SvgSource.h"

namespace Tesk {

namespace {

constexpr double SmallWidth = 160;
constexpr double LargeWidth = 480;

void PlanFolder(const CatalogueSources &sources, const QString &folder, const QString &target,
                double width, QList<ContainerMember> &members)
{
    for (const QString &file : sources.Files(folder))
        members.append({target + file.mid(folder.size()), file, width});
}

} // namespace

QByteArray ContainerMember::Bytes(const CatalogueSources &sources) const
{
    QByteArray bytes = sources.Bytes(source);
    if (width <= 0)
        return bytes;
    Problems problems;
    const std::optional<SvgSource> drawing = SvgSource::Parse(bytes, source, problems);
    if (!drawing)
        throw FileError(problems.ToText(sources.Folder().path()).trimmed());
    return drawing->WithWidth(width);
}

QList<ContainerMember> PlanContainer(const CatalogueSources &sources)
{
    const QString smallTarget = QStringLiteral("Grafiken/klein");
    const QString largeTarget = QStringLiteral("Grafiken/gross");
    QList<ContainerMember> members;
    PlanFolder(sources, QStringLiteral("documents"), QStringLiteral("Dokumente"), 0, members);
    PlanFolder(sources, QStringLiteral("drawings"), smallTarget, SmallWidth, members);
    PlanFolder(sources, QStringLiteral("drawings"), largeTarget, LargeWidth, members);
    PlanFolder(sources, QStringLiteral("pictures/klein"), smallTarget, 0, members);
    PlanFolder(sources, QStringLiteral("pictures/gross"), largeTarget, 0, members);
    return members;
}

} // namespace Tesk
