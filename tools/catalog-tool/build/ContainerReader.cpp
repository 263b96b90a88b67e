#include "build/ContainerReader.h"

#include "base/Errors.h"

#include <QDir>
#include <QFile>

#include <chm_lib.h>

namespace Tesk {

void ContainerReader::Close::operator()(chmFile *openFile) const
{
    chm_close(openFile);
}

ContainerReader::ContainerReader(const QString &fileName)
    : file(chm_open(QFile::encodeName(fileName).constData()))
{
    if (!file)
        throw FileError(QStringLiteral("\"%1\" is no compiled help container. Build it again.")
                            .arg(QDir::toNativeSeparators(fileName)));
}

std::optional<QByteArray> ContainerReader::Read(const QString &path) const
{
    chmUnitInfo unit{};
    if (chm_resolve_object(file.get(), path.toUtf8().constData(), &unit) != CHM_RESOLVE_SUCCESS)
        return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(unit.length), Qt::Uninitialized);
    const LONGINT64 count =
        chm_retrieve_object(file.get(), &unit, reinterpret_cast<unsigned char *>(bytes.data()), 0,
                            static_cast<LONGINT64>(unit.length));
    if (count != static_cast<LONGINT64>(unit.length))
        return std::nullopt;
    return bytes;
}

QStringList ContainerReader::Members() const
{
    QStringList paths;
    const auto note = [](chmFile *, chmUnitInfo *unit, void *found) -> int {
        static_cast<QStringList *>(found)->append(QString::fromUtf8(unit->path));
        return CHM_ENUMERATOR_CONTINUE;
    };
    chm_enumerate(file.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, note, &paths);
    return paths;
}

} // namespace Tesk
