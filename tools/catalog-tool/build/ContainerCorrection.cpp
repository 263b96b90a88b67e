#include "build/ContainerCorrection.h"

#include <QtEndian>

namespace Tesk {

namespace {

// Places in the file's header and in that of its directory.
constexpr qsizetype timeOffset = 0x10;
constexpr qsizetype directoryOffsetOffset = 0x48;
constexpr qsizetype headerSize = 0x60;
constexpr qsizetype blockSizeOffset = 0x10;
constexpr qsizetype firstBlockOffset = 0x20;
constexpr qsizetype blockCountOffset = 0x2C;
constexpr qsizetype directoryHeaderSize = 0x54;

// In a block of listed members.
constexpr char listingMark[] = "PMGL";
constexpr qsizetype previousBlockOffset = 0x0C;
constexpr qint32 noBlock = -1;

constexpr quint16 timeRecord = 10;
constexpr qsizetype versionSize = 4;
constexpr qsizetype recordHeaderSize = 4;

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
    const auto directory = static_cast<qsizetype>(Get<quint64>(container, directoryOffsetOffset));
    const auto blockSize = Get<qint32>(container, directory + blockSizeOffset);
    const auto blockCount = Get<qint32>(container, directory + blockCountOffset);
    for (qint32 block = 0; block < blockCount; ++block) {
        const qsizetype start =
            directory + directoryHeaderSize + static_cast<qsizetype>(block) * blockSize;
        if (container.mid(start, 4) == listingMark &&
            Get<qint32>(container, start + previousBlockOffset) == noBlock) {
            Put(container, directory + firstBlockOffset, block);
            return;
        }
    }
}

void ClearTimes(QByteArray &container, const QByteArray &systemRecord)
{
    Put(container, timeOffset, 0);
    const qsizetype start = container.indexOf(systemRecord);
    if (start < 0)
        return;
    qsizetype offset = versionSize;
    while (offset + recordHeaderSize <= systemRecord.size()) {
        if (Get<quint16>(systemRecord, offset) == timeRecord)
            Put(container, start + offset + recordHeaderSize, 0);
        offset += recordHeaderSize + Get<quint16>(systemRecord, offset + 2);
    }
}

} // namespace

void CorrectContainer(QByteArray &container, const QByteArray &systemRecord)
{
    if (container.size() < headerSize)
        return;
    CorrectFirstBlock(container);
    ClearTimes(container, systemRecord);
}

} // namespace Tesk
