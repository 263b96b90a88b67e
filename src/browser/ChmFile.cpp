#include "browser/ChmFile.h"

#include "base/Errors.h"

#include <QFile>

#include <chm_lib.h>

namespace Tesk {
namespace {

/// No page or picture is nearly as large; a damaged directory may claim any length.
constexpr quint64 LargestMember = Q_UINT64_C(64) * 1024 * 1024;

FileError Unreadable(const QString &path)
{
    return FileError(QStringLiteral("The file '%1' is missing or cannot be read. Please install "
                                    "the catalogue again.")
                         .arg(path));
}

} // namespace

void ChmFile::Closer::operator()(chmFile *handle) const
{
    chm_close(handle);
}

ChmFile::ChmFile(const QString &path)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        throw Unreadable(path);
    members = ReadChmDirectory(source);
    file.reset(chm_open(QFile::encodeName(path).constData()));
    if (!file)
        throw Unreadable(path);
}

ChmFile::~ChmFile() = default;

std::optional<QByteArray> ChmFile::Read(const QString &member) const
{
    const auto found = members.constFind(member.toCaseFolded());
    if (found == members.cend() || !member.startsWith(u'/') || member.endsWith(u'/') ||
        found->length > LargestMember)
        return std::nullopt;
    chmUnitInfo unit = {};
    unit.start = found->start;
    unit.length = found->length;
    unit.space = found->space;
    QByteArray content(static_cast<qsizetype>(found->length), Qt::Uninitialized);
    const LONGINT64 count = chm_retrieve_object(
        file.get(), &unit, reinterpret_cast<unsigned char *>(content.data()), 0, content.size());
    if (count != content.size())
        return std::nullopt;
    return content;
}

} // namespace Tesk
