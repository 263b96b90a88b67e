#include "sources/CatalogueSources.h"

#include "base/Errors.h"
#include "sources/FileTree.h"
#include "sources/Problems.h"
#include "sources/ProgramNeeds.h"
#include "sources/TextFile.h"

#include <QFile>
#include <QFileInfo>

namespace Tesk {

namespace {

QMap<QString, TableSource> ReadTables(const QDir &folder, Problems &problems)
{
    QMap<QString, TableSource> tables;
    for (const QString &file : ListFiles(folder, QStringLiteral("tables"))) {
        const QFileInfo info(file);
        if (info.suffix() == QLatin1String("tsv"))
            tables.insert(info.completeBaseName(), TableSource(folder, file, problems));
    }
    return tables;
}

std::vector<LanguageSource> ReadLanguages(const QDir &folder, Problems &problems)
{
    std::vector<LanguageSource> languages;
    for (const QString &code : ProgramNeeds::LanguageCodes())
        languages.emplace_back(folder, code, problems);
    return languages;
}

QString ReadVersion(const QDir &folder, Problems &problems)
{
    const QString file = QStringLiteral("version");
    const QStringList lines = ReadSourceLines(folder, file, problems);
    QString version = lines.value(0);
    if (folder.exists(file) && (lines.size() != 1 || version.trimmed().isEmpty()))
        problems.Add(file, 0,
                     QStringLiteral("the file has %1 lines; write the version in one line")
                         .arg(lines.size()));
    CheckCodePage(version, file, 1, problems);
    return version;
}

} // namespace

CatalogueSources::CatalogueSources(const QString &folderName, Problems &problems)
    : folder(QDir(folderName).absolutePath())
    , schema(folder, problems)
    , tables(ReadTables(folder, problems))
    , languages(ReadLanguages(folder, problems))
    , priceList(folder, problems)
    , version(ReadVersion(folder, problems))
{}

const TableSource &CatalogueSources::Table(const QString &name) const
{
    static const TableSource none;
    const auto found = tables.constFind(name);
    return found == tables.constEnd() ? none : *found;
}

QStringList CatalogueSources::Files(const QString &subfolder) const
{
    return ListFiles(folder, subfolder);
}

QByteArray CatalogueSources::Bytes(const QString &file) const
{
    QFile source(folder.filePath(file));
    if (!source.open(QIODevice::ReadOnly))
        throw FileError(QStringLiteral("The file \"%1\" cannot be read (%2). Check that it exists "
                                       "and that you may read it.")
                            .arg(source.fileName(), source.errorString()));
    return source.readAll();
}

} // namespace Tesk
