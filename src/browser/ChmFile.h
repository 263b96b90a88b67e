#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>

struct chmFile;

namespace Tesk {

/// A compiled help file opened for reading. Not thread-safe.
class ChmFile final
{
public:
    /// Throws FileError for a file that is missing or no compiled help file.
    explicit ChmFile(const QString &path);
    ~ChmFile();

    ChmFile(const ChmFile &) = delete;
    ChmFile &operator=(const ChmFile &) = delete;

    /// The content of a member, named by its path with `/` in front and throughout; case does not
    /// matter. Nothing for a member that is missing, damaged or beyond 64 MB.
    std::optional<QByteArray> Read(const QString &member) const;

    /// The number of members that can be read.
    qsizetype Count() const { return members.size(); }

private:
    struct Member
    {
        quint64 start = 0;
        quint64 length = 0;
        int space = 0;
    };
    struct Closer
    {
        void operator()(chmFile *file) const;
    };

    void ListMembers();

    std::unique_ptr<chmFile, Closer> file;
    QHash<QString, Member> members;
};

} // namespace Tesk
