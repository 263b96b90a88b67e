#include "core/database/CatalogueCache.h"

#include "base/WholeFile.h"
#include "core/database/FileStamp.h"
#include "core/database/Log.h"
#include "core/database/SourceIdentity.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Tesk::Database {

namespace {

constexpr auto SealMark = "TeskSeal";

QByteArray SealStart(const QByteArray &identity)
{
    return SealMark + identity;
}

/// The bytes that stand behind an image: mark, source, size and hash of the image, and a hash of
/// these themselves. Their number depends on the identity's length alone.
QByteArray SealOf(const QByteArray &identity, qint64 imageSize, quint64 imageHash)
{
    QByteArray seal = SealStart(identity);
    QDataStream stream(&seal, QIODevice::WriteOnly | QIODevice::Append);
    stream << imageSize << imageHash;
    stream << HashOf(seal);
    return seal;
}

} // namespace

QString CatalogueCache::FileNameOf(const QString &sourceName) const
{
    const QFileInfo source(sourceName);
    const QString path = source.canonicalFilePath();
    const QByteArray key =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha1).toHex().first(16);
    return QDir(folder).filePath(QStringLiteral("catalog-%1.db").arg(QLatin1String(key)));
}

QString CatalogueCache::Find(const QString &sourceName, const QByteArray &identity) const
{
    if (folder.isEmpty())
        return {};
    QFile file(FileNameOf(sourceName));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    const qint64 imageSize = file.size() - SealOf(identity, 0, 0).size();
    if (imageSize <= 0 || !file.seek(imageSize))
        return {};
    const QByteArray seal = file.readAll();
    // Another source is told without reading the whole file.
    if (!seal.startsWith(SealStart(identity)) || !file.seek(0))
        return {};
    const bool isWhole = seal == SealOf(identity, imageSize, HashOfContent(file, imageSize));
    return isWhole ? file.fileName() : QString();
}

QString CatalogueCache::NoteNameOf(const QString &sourceName) const
{
    return FileNameOf(sourceName) + QStringLiteral(".checked");
}

QByteArray CatalogueCache::StampsOf(const QString &sourceName,
                                    std::chrono::system_clock::time_point now) const
{
    if (folder.isEmpty())
        return {};
    const auto source = StampOf(sourceName, now);
    const auto journal = StampOf(JournalOf(sourceName), now);
    const auto kept = StampOf(FileNameOf(sourceName), now);
    if (!source || source->isEmpty() || !journal || !kept || kept->isEmpty())
        return {};
    QByteArray stamps = ImportRules();
    QDataStream stream(&stamps, QIODevice::WriteOnly | QIODevice::Append);
    stream << *source << *journal << *kept;
    return stamps;
}

QString CatalogueCache::FindChecked(const QString &sourceName, const QByteArray &stamps) const
{
    QFile note(NoteNameOf(sourceName));
    const bool isNoted = !stamps.isEmpty() && note.open(QIODevice::ReadOnly) &&
                         note.read(stamps.size() + 1) == stamps;
    return isNoted ? FileNameOf(sourceName) : QString();
}

void CatalogueCache::NoteChecked(const QString &sourceName, const QByteArray &stamps) const
{
    if (stamps.isEmpty())
        return;
    QString reason;
    if (!WholeFile::Replace(NoteNameOf(sourceName), {stamps}, &reason))
        qCInfo(databaseLog).noquote()
            << QStringLiteral("%1 cannot be written (%2).")
                   .arg(QDir::toNativeSeparators(NoteNameOf(sourceName)), reason);
    WholeFile::RemoveLeftovers(NoteNameOf(sourceName));
}

QString CatalogueCache::Store(const QString &sourceName, const QByteArray &identity,
                              QByteArrayView image) const
{
    if (folder.isEmpty())
        return {};
    QString fileName = FileNameOf(sourceName);
    const QByteArray seal = SealOf(identity, image.size(), HashOf(image));
    QString reason = QStringLiteral("the folder cannot be made");
    if (QDir().mkpath(folder) && WholeFile::Replace(fileName, {image, seal}, &reason)) {
        WholeFile::RemoveLeftovers(fileName);
        return fileName;
    }
    qCWarning(databaseLog).noquote()
        << QStringLiteral("The catalogue cannot be kept in %1 (%2); it is read"
                          " anew at each start.")
               .arg(QDir::toNativeSeparators(folder), reason);
    return {};
}

} // namespace Tesk::Database
