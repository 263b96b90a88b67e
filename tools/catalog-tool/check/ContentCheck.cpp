#include "check/CatalogueChecker.h"
#include "check/ReferenceCheck.h"
#include "sources/CatalogueSources.h"
#include "sources/ContentPlan.h"
#include "sources/DataSheetPlan.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"
#include "sources/SvgSource.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace Tesk {

namespace {

void CheckPage(const CatalogueSources &sources, const ProgramNeeds::Page &page, Problems &problems)
{
    const QString file = QStringLiteral("content/") + page.name;
    if (!sources.Folder().exists(file)) {
        problems.Add(file, 0, QStringLiteral("the page is missing; the program fills it"));
        return;
    }
    const QString text = QString::fromUtf8(sources.Bytes(file));
    for (const QString &id : page.elementIds) {
        const QRegularExpression element(
            QStringLiteral("\\bid\\s*=\\s*(\"%1\"|'%1'|%1[\\s/>])").arg(id));
        if (!element.match(text).hasMatch())
            problems.Add(file, 0,
                         QStringLiteral("the page has no element with id=\"%1\", so the program "
                                        "could not fill it; add the element")
                             .arg(id));
    }
}

// Pages lie in the folder of the language files, so their references may leave it for the data
// sheets.
QSet<QString> Targets(const CatalogueSources &sources, const QList<ContentFile> &files)
{
    QSet<QString> targets;
    for (const ContentFile &file : files)
        targets.insert(file.path);
    for (const DataSheet &sheet : PlanDataSheets(sources))
        targets.insert(QStringLiteral("PDF/") + sheet.fileName);
    return targets;
}

} // namespace

void CheckContent(const CatalogueSources &sources, Problems &problems)
{
    for (const ProgramNeeds::Page &page : ProgramNeeds::Pages())
        CheckPage(sources, page, problems);

    const QList<ContentFile> files = PlanContent(sources);
    const QSet<QString> targets = Targets(sources, files);
    for (const QString &image : ProgramNeeds::PageImages()) {
        if (!targets.contains(QStringLiteral("content/img/") + image))
            problems.Add(QStringLiteral("content/img/%1.svg").arg(QFileInfo(image).baseName()), 0,
                         QStringLiteral("the picture is missing; the program's pages show it as "
                                        "img/%1")
                             .arg(image));
    }

    QHash<QString, QString> sourcesByPath;
    for (const ContentFile &file : files) {
        if (file.isRendered)
            SvgSource::Parse(sources.Bytes(file.source), file.source, problems);
        CheckReferences(sources, file.source, file.path, targets, problems);
        if (sourcesByPath.contains(file.path))
            problems.Add(file.source, 0,
                         QStringLiteral("\"%1\" makes the same file \"%2\"; remove one of them")
                             .arg(sourcesByPath.value(file.path), file.path));
        sourcesByPath.insert(file.path, file.source);
    }
}

} // namespace Tesk
