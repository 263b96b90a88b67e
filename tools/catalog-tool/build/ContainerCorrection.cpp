#include "build/ContainerCorrection.h"

#include <QtEndian>

namespace Tesk {

namespace {

// Places in the file's header and in that of its directory.
constexpr qsizetype TimeOffset = 0x10;
constexpr qsizetype DirectoryOffsetOffset = 0x48;
constexpr qsizetype HeaderSize = 0x60;
constexpr qsizetype BlockSizeOffset = 0x10;
constexpr qsizetype FirstBlockOffset = 0x20;
constexpr qsizetype BlockCountOffset = 0x2C;
constexpr qsizetype DirectoryHeaderSize = 0x54;

// In a block of listed members.
constexpr char ListingMark[] = "PMGL";
constexpr qsizetype PreviousBlockOffset = 0x0C;
constexpr qint32 NoBlock = -1;

constexpr quint16 TimeRecord = 10;
constexpr qsizetype VersionSize = 4;
constexpr qsizetype RecordHeaderSize = 4;

template <typename Number>
Number Get(const QByteArray &bytes, qsizetype offset)
{
    if (offset < 0 || offset + static_cast<qsizetype>(sizeof(Number)) > bytes.size())
        return 0;
    return qFromLittleEndian<Number>(bytes.constData() + offset);
}

void Put(QByteArray &bytes, qsizetype offset, qint32 number)
{
    if (offset >= 0 && offset + static_cast<qsizetype>(sizeof(number)) <= bytes.size())
        qToLittleEndian(number, bytes.data() + offset);
}

/// The listing block that no other one comes before.
void CorrectFirstBlock(QByteArray &container)
{
    const auto directory = static_cast<qsizetype>(Get<quint64>(container, DirectoryOffsetOffset));
    const auto blockSize = Get<qint32>(container, directory + BlockSizeOffset);
    const auto blockCount = Get<qint32>(container, directory + BlockCountOffset);
    for (qint32 block = 0; block < blockCount; ++block) {
        const qsizetype start =
            directory + DirectoryHeaderSize + static_cast<qsizetype>(block) * blockSize;
        if (container.mid(start, 4) == ListingMark &&
            Get<qint32>(container, start + PreviousBlockOffset) == NoBlock) {
            Put(container, directory + FirstBlockOffset, block);
            return;
        }
    }
}

void ClearTimes(QByteArray &container, const QByteArray &systemRecord)
{
    Put(container, TimeOffset, 0);
    const qsizetype start = container.indexOf(systemRecord);
    if (start < 0)
        return;
    qsizetype offset = VersionSize;
    while (offset + RecordHeaderSize <= systemRecord.size()) {
        if (Get<quint16>(systemRecord, offset) == TimeRecord)
            Put(container, start + offset + RecordHeaderSize, 0);
        offset += RecordHeaderSize + Get<quint16>(systemRecord, offset + 2);
    }
}

} // namespace

void CorrectContainer(QByteArray &container, const QByteArray &systemRecord)
{
    if (container.size() < HeaderSize)
        return;
    CorrectFirstBlock(container);
    ClearTimes(container, systemRecord);
}

} // namespace Tesk
