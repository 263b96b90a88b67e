#include "browser/ChmFile.h"

#include "base/Errors.h"

#include <QFile>

#include <chm_lib.h>

namespace Tesk {
namespace {

/// No page or picture is nearly as large; a damaged directory may claim any length.
constexpr quint64 largestMember = 64U * 1024 * 1024;

/// A damaged directory can lead in circles.
constexpr qsizetype mostMembers = 1'000'000;

} // namespace

void ChmFile::Closer::operator()(chmFile *handle) const
{
    chm_close(handle);
}

ChmFile::ChmFile(const QString &path)
    : file(chm_open(QFile::encodeName(path).constData()))
{
    if (!file) {
        throw FileError(QStringLiteral("The file '%1' is missing or is no compiled help file. "
                                       "Please install the catalogue again.")
                            .arg(path));
    }
    ListMembers();
}

ChmFile::~ChmFile() = default;

// The file's own index is ordered by a rule that not every compiler keeps, so that a search in it
// can miss members: all are listed once instead.
void ChmFile::ListMembers()
{
    using Members = decltype(members);
    const auto note = [](chmFile *, chmUnitInfo *unit, void *context) {
        Members &found = *static_cast<Members *>(context);
        if (found.size() >= mostMembers)
            return CHM_ENUMERATOR_FAILURE;
        if (unit->length <= largestMember) {
            found.insert(QString::fromUtf8(unit->path).toCaseFolded(),
                         {unit->start, unit->length, unit->space});
        }
        return CHM_ENUMERATOR_CONTINUE;
    };
    chm_enumerate(file.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, note, &members);
}

std::optional<QByteArray> ChmFile::Read(const QString &member) const
{
    const auto found = members.constFind(member.toCaseFolded());
    if (found == members.cend())
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
