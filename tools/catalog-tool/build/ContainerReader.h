#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

struct chmFile;

namespace Tesk {

/// Reads members of a compiled help container.
class ContainerReader final
{
public:
    /// Throws FileError for a file that is no container.
    explicit ContainerReader(const QString &fileName);

    /// The member at `path` ("/Dokumente/a.html"), or nothing when there is none or it is damaged.
    std::optional<QByteArray> Read(const QString &path) const;

    /// The paths of the members that the container lists, its own records left out.
    QStringList Members() const;

private:
    struct Close
    {
        void operator()(chmFile *file) const;
    };

    std::unique_ptr<chmFile, Close> file;
};

} // namespace Tesk
