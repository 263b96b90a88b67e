#include "build/ContainerBuilder.h"

#include "base/Errors.h"
#include "build/ContainerCorrection.h"
#include "build/ContainerReader.h"
#include "sources/CatalogueSources.h"
#include "sources/ContainerPlan.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

#include <chrono>

namespace Tesk {

namespace {

constexpr QLatin1String ProjectName("resources.hhp");
constexpr QLatin1String ContainerName("resources.chm");
constexpr std::chrono::milliseconds CompileTimeLimit = std::chrono::minutes(10);

void WriteFile(const QDir &folder, const QString &name, const QByteArray &bytes)
{
    QFile file(folder.filePath(name));
    if (!QDir().mkpath(QFileInfo(file).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size() || !file.flush())
        throw FileError(
            QStringLiteral("\"%1\" cannot be written (%2). Check the permissions and the "
                           "free space.")
                .arg(file.fileName(), file.errorString()));
}

QByteArray Project(const QList<ContainerMember> &members)
{
    QByteArray text = "[OPTIONS]\nCompatibility=1.1 or later\nFull-text search=No\n";
    text += "Compiled file=" + QByteArray(ContainerName.data()) + "\n\n[FILES]\n";
    for (const ContainerMember &member : members)
        text += member.path.toLatin1() + '\n';
    return text;
}

/// What the compiler said beside its greeting.
QString Complaint(const QByteArray &output)
{
    QStringList lines;
    for (const QString &line : QString::fromLocal8Bit(output).split(QLatin1Char('\n'))) {
        const QString said = line.trimmed();
        if (!said.isEmpty() && !said.startsWith(QLatin1String("chmcmd,")) &&
            !said.startsWith(QLatin1String("Writing CHM")))
            lines.append(said);
    }
    return lines.join(QLatin1String("; "));
}

void Compile(const QDir &folder)
{
    QProcess compiler;
    compiler.setWorkingDirectory(folder.path());
    compiler.setProcessChannelMode(QProcess::MergedChannels);
    compiler.start(QStringLiteral("chmcmd"),
                   {QStringLiteral("--no-html-scan"), QStringLiteral("--verbosity"),
                    QStringLiteral("0"), ProjectName});
    if (!compiler.waitForStarted())
        throw CatalogueError(QStringLiteral("chmcmd is missing: install fp-utils"));
    compiler.closeWriteChannel();
    const bool isFinished = compiler.waitForFinished(static_cast<int>(CompileTimeLimit.count()));
    if (!isFinished)
        compiler.kill();
    const bool isGood = isFinished && compiler.exitStatus() == QProcess::NormalExit &&
                        compiler.exitCode() == 0 && folder.exists(ContainerName);
    if (!isGood)
        throw CatalogueError(QStringLiteral("chmcmd could not compile the container: %1")
                                 .arg(isFinished ? Complaint(compiler.readAll())
                                                 : QStringLiteral("it did not come to an end")));
}

void CorrectContainerFile(const QString &compiled, const QString &corrected)
{
    QFile file(compiled);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(QStringLiteral("\"%1\" cannot be read (%2). Build again.")
                            .arg(compiled, file.errorString()));
    QByteArray bytes = file.readAll();
    CorrectContainer(bytes,
                     ContainerReader(compiled).Read(QStringLiteral("/#SYSTEM")).value_or("?"));
    const QFileInfo target(corrected);
    WriteFile(target.dir(), target.fileName(), bytes);
}

void CheckMembers(const QString &container, const CatalogueSources &sources,
                  const QList<ContainerMember> &members)
{
    const ContainerReader reader(container);
    const QStringList listed = reader.Members();
    const QSet<QString> paths(listed.begin(), listed.end());
    for (const ContainerMember &member : members) {
        const QString path = QLatin1Char('/') + member.path;
        if (!paths.contains(path) || reader.Read(path) != member.Bytes(sources))
            throw CatalogueError(QStringLiteral("%1: the file came out of the container in another "
                                                "form than it went in; rename it and build again")
                                     .arg(member.source));
    }
}

} // namespace

void BuildContainer(const CatalogueSources &sources, const QString &fileName)
{
    const QTemporaryDir workFolder;
    const QDir folder(workFolder.path());
    const QList<ContainerMember> members = PlanContainer(sources);
    for (const ContainerMember &member : members)
        WriteFile(folder, member.path, member.Bytes(sources));
    WriteFile(folder, ProjectName, Project(members));

    Compile(folder);
    CorrectContainerFile(folder.filePath(ContainerName), fileName);
    CheckMembers(fileName, sources, members);
}

} // namespace Tesk
