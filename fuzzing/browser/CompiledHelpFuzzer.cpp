#include "base/Errors.h"
#include "browser/ChmDirectory.h"
#include "browser/ChmFile.h"
#include "support/MemoryFile.h"
#include "support/Require.h"

#include <QFile>

#include <optional>

using namespace Tesk;
using Fuzzing::Require;

namespace {

ChmDirectory DirectoryOf(const QString &path)
{
    QFile file(path);
    Require(file.open(QIODevice::ReadOnly), "the input is a file");
    return ReadChmDirectory(file);
}

} // namespace

/// Takes the input for a compiled help file and reads all of its members.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Fuzzing::MemoryFile memory;
    memory.Write(data, size);
    try {
        const ChmDirectory members = DirectoryOf(memory.Path());
        const ChmFile file(memory.Path());
        for (auto member = members.cbegin(); member != members.cend(); ++member) {
            const std::optional<QByteArray> content = file.Read(member.key());
            Require(!content || static_cast<quint64>(content->size()) == member->length,
                    "a member is as long as the directory says");
        }
        Require(!file.Read(QStringLiteral("/")), "a folder has no content");
    } catch (const FileError &) {
        return 0;
    }
    return 0;
}
