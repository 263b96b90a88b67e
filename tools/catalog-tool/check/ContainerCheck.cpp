#include "check/CatalogueChecker.h"
#include "check/ReferenceCheck.h"
#include "sources/CatalogueSources.h"
#include "sources/ContainerPlan.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"
#include "sources/SvgSource.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace Tesk {

namespace {

QString WelcomeDocument(const QString &languageCode)
{
    return QStringLiteral("documents/welcome_%1.html").arg(languageCode);
}

void CheckWelcomeDocuments(const CatalogueSources &sources, Problems &problems)
{
    for (const QString &code : ProgramNeeds::LanguageCodes()) {
        const QString file = WelcomeDocument(code);
        if (!sources.Folder().exists(file))
            problems.Add(file, 0,
                         QStringLiteral("the file is missing; the program opens it as its first "
                                        "page in this language"));
        else if (!sources.Bytes(file).contains("welcome.html"))
            problems.Add(file, 0,
                         QStringLiteral("the document does not lead on to content/welcome.html, "
                                        "the page that the program fills; add the step"));
    }
}

void CheckDrawings(const CatalogueSources &sources, Problems &problems)
{
    for (const QString &file : sources.Files(QStringLiteral("drawings"))) {
        if (file.endsWith(QLatin1String(".svg")))
            SvgSource::Parse(sources.Bytes(file), file, problems);
        else
            problems.Add(file, 0,
                         QStringLiteral("only SVG drawings stand here; put a ready picture into "
                                        "pictures/klein and pictures/gross"));
    }
    for (const QString &file : sources.Files(QStringLiteral("pictures"))) {
        if (!file.startsWith(QLatin1String("pictures/klein/")) &&
            !file.startsWith(QLatin1String("pictures/gross/")))
            problems.Add(file, 0,
                         QStringLiteral("the picture would be left out; move it into "
                                        "pictures/klein or pictures/gross"));
    }
}

// Names inside the container are found without regard to case, and addresses reach the program
// percent-encoded: plain names alone are safe everywhere.
void CheckNames(const QList<ContainerMember> &members, Problems &problems)
{
    static const QRegularExpression plainName(QStringLiteral("^[A-Za-z0-9._/-]+$"));
    QHash<QString, QString> sourcesByName;
    for (const ContainerMember &member : members) {
        if (!plainName.match(member.path).hasMatch())
            problems.Add(member.source, 0,
                         QStringLiteral("the file's path has characters that addresses do not "
                                        "carry safely; use A-Z, a-z, 0-9, \".\", \"_\" and \"-\" "
                                        "only"));
        const QString name = member.path.toLower();
        if (sourcesByName.contains(name))
            problems.Add(member.source, 0,
                         QStringLiteral("\"%1\" takes the same place in the container (upper and "
                                        "lower case are one there); rename one of them")
                             .arg(sourcesByName.value(name)));
        sourcesByName.insert(name, member.source);
    }
}

} // namespace

void CheckHelpPages(const CatalogueSources &sources, Problems &problems)
{
    QSet<QString> checkedIds;
    for (const TableRow &row : sources.Table(QStringLiteral("products_global")).Rows()) {
        const QString helpId = row.Text(QLatin1String("helpId"));
        if (helpId.isEmpty() || checkedIds.contains(helpId))
            continue;
        checkedIds.insert(helpId);
        for (const QString &code : ProgramNeeds::LanguageCodes()) {
            // The first character of a help id tells its kind and is no part of the name.
            const QString file =
                QStringLiteral("documents/info_%1_%2.html").arg(code, helpId.mid(1));
            if (!sources.Folder().exists(file))
                problems.Add(row.Source().File(), row.Line(),
                             QStringLiteral("the help page %1 of helpId \"%2\" is missing; add it "
                                            "or empty helpId")
                                 .arg(file, helpId));
        }
    }
}

void CheckContainer(const CatalogueSources &sources, Problems &problems)
{
    const QList<ContainerMember> members = PlanContainer(sources);
    CheckWelcomeDocuments(sources, problems);
    CheckDrawings(sources, problems);
    CheckNames(members, problems);

    QSet<QString> paths;
    for (const ContainerMember &member : members)
        paths.insert(member.path);
    for (const ContainerMember &member : members)
        CheckReferences(sources, member.source, member.path, paths, problems);
}

} // namespace Tesk
