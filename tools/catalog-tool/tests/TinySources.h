#pragma once

#include <QDir>
#include <QString>
#include <QTemporaryDir>

namespace Tesk {

/// A catalogue of three products as a test's own folder of sources. What is tedious and the same
/// everywhere (language files, page templates, the pages' pictures, the documents of every
/// language) is made here; the rest is copied from data/tiny.
class TinySources final
{
public:
    TinySources();

    QString Path() const { return folder.path(); }
    QString Path(const QString &file) const { return folder.filePath(file); }

    QByteArray Read(const QString &file) const;
    void Write(const QString &file, const QByteArray &bytes) const;
    /// Replaces the first occurrence of a text that has to be there.
    void Replace(const QString &file, const QByteArray &from, const QByteArray &to) const;
    void Remove(const QString &file) const;

private:
    void CopyData() const;
    void MakeLanguages() const;
    void MakePages() const;
    void MakeDocuments() const;

    QTemporaryDir folder;
};

} // namespace Tesk
