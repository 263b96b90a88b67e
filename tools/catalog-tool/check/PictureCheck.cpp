#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/ContainerPlan.h"
#include "sources/Problems.h"

#include <QSet>

namespace Tesk {

namespace {

QSet<QString> MemberPaths(const CatalogueSources &sources)
{
    QSet<QString> paths;
    for (const ContainerMember &member : PlanContainer(sources))
        paths.insert(member.path);
    return paths;
}

/// Reports each picture that the container lacks where it is named first.
class PictureFinder final
{
public:
    PictureFinder(const QSet<QString> &memberPaths, Problems &foundProblems)
        : members(memberPaths)
        , problems(foundProblems)
    {}

    /// `size` is the folder of the small or of the large pictures.
    void Check(const TableRow &row, QLatin1String column, const QString &size)
    {
        if (row.Text(column).isEmpty())
            return;
        const QString picture =
            row.Text(QLatin1String("filePath")) + QLatin1Char('/') + row.Text(column);
        const QString path = QStringLiteral("Grafiken/%1%2").arg(size, picture);
        if (members.contains(path) || missing.contains(path))
            return;
        missing.insert(path);
        problems.Add(row.Source().File(), row.Line(),
                     QStringLiteral("the picture \"%1\" of %2 exists neither as drawings%1 nor as "
                                    "pictures/%3%1; add it or correct filePath and %2")
                         .arg(picture, column, size));
    }

private:
    QSet<QString> members;
    QSet<QString> missing;
    Problems &problems;
};

} // namespace

void CheckProductPictures(const CatalogueSources &sources, Problems &problems)
{
    PictureFinder finder(MemberPaths(sources), problems);
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows()) {
        const QString folder = row.Text(QLatin1String("filePath"));
        if (!folder.isEmpty() &&
            (!folder.startsWith(QLatin1Char('/')) || folder.endsWith(QLatin1Char('/')))) {
            problems.Add(row.Source().File(), row.Line(),
                         QStringLiteral("filePath is \"%1\"; write \"/folder\", with a slash "
                                        "before it and none behind it")
                             .arg(folder));
            continue;
        }
        // Lists show the first picture small; the details show all of them large.
        finder.Check(row, QLatin1String("img1"), QStringLiteral("klein"));
        for (const char *column : {"img1", "img2", "img3"})
            finder.Check(row, QLatin1String(column), QStringLiteral("gross"));
    }
}

} // namespace Tesk
