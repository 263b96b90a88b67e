#include "core/database/SourceIdentity.h"

#include "base/CodePage.h"
#include "base/Errors.h"
#include "core/database/CatalogueImport.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QHashFunctions>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace Tesk::Database {

namespace {

constexpr qint64 ChunkSize = 1 << 20;

struct ContentHash
{
    qint64 size = -1; ///< −1 for a file that does not exist
    quint64 hash = 0;
};

ContentHash HashOfFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw FileError(file.errorString());
    const qint64 size = file.size();
    return {size, HashOfContent(file, size)};
}

quint64 CodePageHash()
{
    std::array<char, 256> bytes{};
    std::iota(bytes.begin(), bytes.end(), '\0');
    return HashOf(CodePage::FromBytes(QByteArrayView(bytes.data(), bytes.size())).toUtf8());
}

} // namespace

QByteArray ImportRules()
{
    QByteArray rules;
    QDataStream stream(&rules, QIODevice::WriteOnly);
    stream << ImportFormat << CodePageHash();
    return rules;
}

QString JournalOf(const QString &fileName)
{
    return fileName + QStringLiteral("-journal");
}

QByteArray IdentityOf(const QString &fileName)
{
    const QString journalName = JournalOf(fileName);
    const ContentHash content = HashOfFile(fileName);
    const ContentHash journal =
        QFile::exists(journalName) ? HashOfFile(journalName) : ContentHash();
    QByteArray identity = ImportRules();
    QDataStream stream(&identity, QIODevice::WriteOnly | QIODevice::Append);
    stream << content.size << content.hash << journal.size << journal.hash;
    return identity;
}

quint64 HashOfContent(QIODevice &device, qint64 size)
{
    // Seeded with 0 throughout: with any other seed Qt adds one of its own that every process draws
    // anew, and no program would know what another had kept.
    constexpr size_t seed = 0;
    std::vector<size_t> hashes;
    QByteArray chunk(std::min(size, ChunkSize), Qt::Uninitialized);
    while (size > 0) {
        const qint64 count = device.read(chunk.data(), std::min<qint64>(size, chunk.size()));
        if (count < 0)
            throw FileError(device.errorString());
        if (count == 0)
            break;
        hashes.push_back(qHashBits(chunk.constData(), static_cast<size_t>(count), seed));
        size -= count;
    }
    return qHashBits(hashes.data(), hashes.size() * sizeof(size_t), seed);
}

quint64 HashOf(QByteArrayView bytes)
{
    QByteArray content = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return HashOfContent(buffer, content.size());
}

} // namespace Tesk::Database
