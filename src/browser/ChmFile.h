#pragma once

#include "browser/ChmDirectory.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct chmFile;

namespace Tesk {

/// A compiled help file opened for reading. Not thread-safe.
class ChmFile final
{
public:
    /// Throws FileError for a file that is missing, damaged or no compiled help file.
    explicit ChmFile(const QString &path);
    ~ChmFile();

    ChmFile(const ChmFile &) = delete;
    ChmFile &operator=(const ChmFile &) = delete;

    /// The content of a member, named by its path with `/` in front and throughout; case does not
    /// matter. Nothing for a member that is missing, damaged or beyond 64 MB.
    std::optional<QByteArray> Read(const QString &member) const;

private:
    struct Closer
    {
        void operator()(chmFile *file) const;
    };

    // The file's own index is ordered by a rule that not every compiler keeps, so that CHMLib's
    // search in it can miss members; we keep a list of our own.
    ChmDirectory members;
    std::unique_ptr<chmFile, Closer> file;
};

} // namespace Tesk
