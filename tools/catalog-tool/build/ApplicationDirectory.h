#pragma once

#include <QByteArray>
#include <QDir>
#include <QLockFile>
#include <QString>

namespace Tesk {

/// The folder that the program runs from, while a catalogue is built into it. Everything is made
/// in a hidden folder inside it and takes its place at the end, whole file by whole file: a build
/// that is interrupted leaves the catalogue of before. What belongs to others there, the program
/// itself above all, stays untouched.
class ApplicationDirectory final
{
public:
    /// Makes the folder if need be. Throws FileError when it cannot be written, or while another
    /// build is at work in it.
    explicit ApplicationDirectory(const QString &path);
    ~ApplicationDirectory();

    ApplicationDirectory(const ApplicationDirectory &) = delete;
    ApplicationDirectory &operator=(const ApplicationDirectory &) = delete;

    /// Where to make a file that is to take its place at `path` below the folder. The folders on
    /// the way exist then.
    QString NewFile(const QString &path);

    /// Writes a file that is to take its place at `path`. Throws FileError.
    void Write(const QString &path, const QByteArray &bytes);

    /// Puts everything made into its place and removes what this catalogue no longer has. Throws
    /// FileError.
    void Finish();

private:
    void Replace(const QString &part);

    QDir folder;
    QLockFile lock;
    QDir stage;
};

} // namespace Tesk
