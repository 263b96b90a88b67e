#include "browser/ChmDirectory.h"

#include "base/Errors.h"

#include <QByteArray>
#include <QFile>
#include <QSet>
#include <QtEndian>

#include <utility>

namespace Tesk {
namespace {

// The file's header, the directory's header and the headers of its blocks, in bytes.
constexpr quint64 FileHeaderSize = 0x60;
constexpr quint64 DirectoryHeaderSize = 0x54;
constexpr quint64 LeafHeaderSize = 0x14;
constexpr quint64 NodeHeaderSize = 0x08;

/// No directory is nearly as large; a damaged header may claim any length.
constexpr quint64 LargestDirectory = Q_UINT64_C(256) * 1024 * 1024;
constexpr quint32 LargestBlock = 0x10000;
constexpr quint32 NoBlock = 0xFFFFFFFF;

const QLatin1String CompressionPath("::DataSpace/Storage/MSCompressed/");

class DirectoryReader final
{
public:
    explicit DirectoryReader(QFile &source)
        : file(source)
    {}

    ChmDirectory Read()
    {
        ReadHeaders();
        CheckIndex();
        ReadLeaves();
        CheckMembers();
        return members;
    }

private:
    [[noreturn]] void Fail() const
    {
        throw FileError(QStringLiteral("The file '%1' is damaged or no compiled help file. Please "
                                       "install the catalogue again.")
                            .arg(file.fileName()));
    }

    void Require(bool condition) const
    {
        if (!condition)
            Fail();
    }

    QByteArray Bytes(quint64 offset, quint64 length)
    {
        const auto size = static_cast<quint64>(file.size());
        Require(offset <= size && length <= size - offset);
        Require(file.seek(static_cast<qint64>(offset)));
        QByteArray bytes = file.read(static_cast<qint64>(length));
        Require(static_cast<quint64>(bytes.size()) == length);
        return bytes;
    }

    template <typename Number>
    Number NumberAt(QByteArrayView bytes, quint64 offset) const
    {
        Require(offset <= static_cast<quint64>(bytes.size()) &&
                sizeof(Number) <= static_cast<quint64>(bytes.size()) - offset);
        return qFromLittleEndian<Number>(bytes.data() + offset);
    }

    void ReadHeaders()
    {
        const QByteArray header = Bytes(0, FileHeaderSize);
        Require(header.startsWith("ITSF"));
        const auto version = NumberAt<quint32>(header, 0x04);
        Require(version == 2 || version == 3);
        const auto offset = NumberAt<quint64>(header, 0x48);
        const auto length = NumberAt<quint64>(header, 0x50);
        Require(length >= DirectoryHeaderSize && length <= LargestDirectory);
        const QByteArray directory = Bytes(offset, length);
        dataOffset = version == 3 ? NumberAt<quint64>(header, 0x58) : offset + length;
        Require(dataOffset <= static_cast<quint64>(file.size()));

        Require(directory.startsWith("ITSP"));
        const auto headerLength = NumberAt<quint32>(directory, 0x08);
        Require(headerLength == DirectoryHeaderSize);
        blockLength = NumberAt<quint32>(directory, 0x10);
        Require(blockLength > LeafHeaderSize && blockLength <= LargestBlock);
        root = NumberAt<quint32>(directory, 0x1C);
        firstLeaf = NumberAt<quint32>(directory, 0x20);
        blocks = directory.mid(headerLength);
    }

    QByteArrayView Block(quint32 number) const
    {
        const quint64 offset = quint64(number) * blockLength;
        Require(offset + blockLength <= static_cast<quint64>(blocks.size()));
        return QByteArrayView(blocks).sliced(static_cast<qsizetype>(offset), blockLength);
    }

    /// A number of seven bits to the byte, the highest first; moves `at` behind it.
    quint64 PackedNumber(QByteArrayView block, qsizetype &at, qsizetype end) const
    {
        quint64 number = 0;
        while (true) {
            Require(at < end && number < (Q_UINT64_C(1) << 56));
            const auto byte = static_cast<quint8>(block[at++]);
            number = number << 7 | (byte & 0x7FU);
            if (byte < 0x80)
                return number;
        }
    }

    QString Path(QByteArrayView block, qsizetype &at, qsizetype end) const
    {
        const quint64 length = PackedNumber(block, at, end);
        Require(length <= static_cast<quint64>(end - at));
        QString path = QString::fromUtf8(block.sliced(at, static_cast<qsizetype>(length)));
        at += static_cast<qsizetype>(length);
        return path;
    }

    qsizetype EndOfEntries(QByteArrayView block, quint64 headerSize) const
    {
        const auto unused = NumberAt<quint32>(block, 0x04);
        Require(unused <= blockLength - headerSize);
        return static_cast<qsizetype>(blockLength - unused);
    }

    // The tree above the leaves must be one: no block is met twice.
    void CheckIndex()
    {
        if (root == NoBlock)
            return;
        QSet<quint32> met = {root};
        QList<quint32> open = {root};
        while (!open.isEmpty()) {
            const QByteArrayView block = Block(open.takeLast());
            if (block.startsWith("PMGL"))
                continue;
            Require(block.startsWith("PMGI"));
            const qsizetype end = EndOfEntries(block, NodeHeaderSize);
            qsizetype at = NodeHeaderSize;
            while (at < end) {
                Path(block, at, end);
                const quint64 child = PackedNumber(block, at, end);
                Require(child < NoBlock && !met.contains(static_cast<quint32>(child)));
                met.insert(static_cast<quint32>(child));
                open.append(static_cast<quint32>(child));
            }
        }
    }

    void ReadLeaves()
    {
        QSet<quint32> met;
        for (quint32 leaf = firstLeaf; leaf != NoBlock;) {
            Require(!met.contains(leaf));
            met.insert(leaf);
            const QByteArrayView block = Block(leaf);
            Require(block.startsWith("PMGL"));
            const qsizetype end = EndOfEntries(block, LeafHeaderSize);
            qsizetype at = LeafHeaderSize;
            while (at < end) {
                const QString path = Path(block, at, end);
                const quint64 space = PackedNumber(block, at, end);
                Require(space <= 1);
                ChmMember member;
                member.space = static_cast<int>(space);
                member.start = PackedNumber(block, at, end);
                member.length = PackedNumber(block, at, end);
                members.insert(path.toCaseFolded(), member);
            }
            leaf = NumberAt<quint32>(block, 0x10);
        }
    }

    /// A member of the compression's own; these are never compressed themselves.
    const ChmMember &CompressionMember(QLatin1String name) const
    {
        const auto member = members.constFind(QString(CompressionPath + name).toCaseFolded());
        Require(member != members.cend() && member->space == 0);
        return *member;
    }

    QByteArray CompressionBytes(QLatin1String name)
    {
        const ChmMember &member = CompressionMember(name);
        Require(member.length <= LargestDirectory);
        return Bytes(dataOffset + member.start, member.length);
    }

    // The numbers of the compression are those that CHMLib divides by.
    void CheckCompression()
    {
        const QByteArray control = CompressionBytes(QLatin1String("ControlData"));
        const quint32 unit = NumberAt<quint32>(control, 0x08) == 2 ? 0x8000 : 1;
        const quint32 interval = NumberAt<quint32>(control, 0x0C) * unit;
        const quint32 window = NumberAt<quint32>(control, 0x10) * unit;
        Require(window >= 0x8000 && window <= 0x200000);
        Require(interval / (window / 2) * NumberAt<quint32>(control, 0x14) > 0);

        const QByteArray table = CompressionBytes(QLatin1String(
            "Transform/{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable"));
        unpackedLength = NumberAt<quint64>(table, 0x10);
        const auto stretch = NumberAt<quint64>(table, 0x20);
        Require(stretch > 0 && stretch <= window);
    }

    void CheckMembers()
    {
        if (members.contains(QString(CompressionPath + QLatin1String("Content")).toCaseFolded()))
            CheckCompression();
        const quint64 plainLength = static_cast<quint64>(file.size()) - dataOffset;
        for (const ChmMember &member : std::as_const(members)) {
            const quint64 space = member.space == 0 ? plainLength : unpackedLength;
            Require(member.start <= space && member.length <= space - member.start);
        }
    }

    QFile &file;
    quint64 dataOffset = 0;
    /// The length of the compressed section once unpacked.
    quint64 unpackedLength = 0;
    quint32 blockLength = 0;
    quint32 root = NoBlock;
    quint32 firstLeaf = NoBlock;
    QByteArray blocks;
    ChmDirectory members;
};

} // namespace

ChmDirectory ReadChmDirectory(QFile &file)
{
    return DirectoryReader(file).Read();
}

} // namespace Tesk
