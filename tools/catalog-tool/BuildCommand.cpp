#include "BuildCommand.h"

#include "UsageError.h"
#include "base/Errors.h"
#include "build/CatalogueBuilder.h"
#include "check/CatalogueChecker.h"
#include "sources/CatalogueSources.h"
#include "sources/Problems.h"

#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace Tesk {

namespace {

/// The sources in this folder, or nothing when they have problems, which are then printed.
std::optional<CatalogueSources> CheckedSources(const QString &folder)
{
    if (!QFileInfo(folder).isDir())
        throw FileError(
            QStringLiteral("There is no folder \"%1\". Name the folder of a catalogue's sources.")
                .arg(folder));
    Problems problems;
    CatalogueSources sources(folder, problems);
    CheckCatalogue(sources, problems);
    if (problems.IsEmpty())
        return sources;

    const QString summary =
        QStringLiteral("%1 problem(s) in the catalogue's sources\n").arg(problems.Count());
    std::fputs(qPrintable(problems.ToText(folder) + summary), stderr);
    return std::nullopt;
}

} // namespace

int RunBuild(const QStringList &arguments)
{
    if (arguments.size() != 2)
        throw UsageError(QStringLiteral("build takes two folders, SOURCES and APPDIR"));
    const std::optional<CatalogueSources> sources = CheckedSources(arguments[0]);
    if (!sources)
        return EXIT_FAILURE;
    BuildCatalogue(*sources, arguments[1]);
    return EXIT_SUCCESS;
}

int RunCheck(const QStringList &arguments)
{
    if (arguments.size() != 1)
        throw UsageError(QStringLiteral("check takes one folder, SOURCES"));
    return CheckedSources(arguments[0]) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace Tesk
