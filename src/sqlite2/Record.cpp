#include "sqlite2/Record.h"

#include "sqlite2/ByteView.h"
#include "sqlite2/Format.h"

namespace Sqlite2 {

namespace {

/// Record offsets are little-endian in files of either byte order.
constexpr ByteOrder RecordByteOrder = ByteOrder::Little;

std::size_t OffsetWidth(std::size_t recordSize)
{
    if (recordSize < 0x100)
        return 1;
    return recordSize < 0x10000 ? 2 : 3;
}

void AppendOffset(std::string &record, std::size_t offset, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i)
        record.push_back(static_cast<char>(offset >> 8 * i & 0xff));
}

/// The stored length of a value: 0 for NULL, else its text and the closing NUL.
std::size_t StoredSize(const Value &value)
{
    return value ? value->size() + 1 : 0;
}

void DecodeValue(std::string_view stored, Value &value)
{
    if (stored.empty()) {
        value.reset();
        return;
    }
    if (stored.find('\0') != stored.size() - 1)
        throw Error("a value is not one text with a NUL at its end");
    stored.remove_suffix(1);
    if (value)
        value->assign(stored);
    else
        value.emplace(stored);
}

} // namespace

void DecodeRecord(std::string_view record, std::size_t valueCount, Row &row)
{
    const ByteView view(record, RecordByteOrder);
    const std::size_t width = OffsetWidth(record.size());
    std::size_t begin = view.Number(0, width);
    if (begin != (valueCount + 1) * width)
        throw Error("a record does not hold " + std::to_string(valueCount) + " values");

    row.resize(valueCount);
    for (std::size_t i = 0; i < valueCount; ++i) {
        const std::size_t end = view.Number((i + 1) * width, width);
        if (end < begin)
            throw Error("the values of a record overlap");
        DecodeValue(view.Slice(begin, end - begin), row[i]);
        begin = end;
    }
    if (begin != record.size())
        throw Error("the values of a record do not fill it");
}

std::string EncodeRecord(const Row &row)
{
    std::size_t valueBytes = 0;
    for (const Value &value : row) {
        if (value && value->find('\0') != std::string::npos)
            throw Error("a text with a NUL in it cannot be stored");
        valueBytes += StoredSize(value);
    }

    const std::size_t offsetCount = row.size() + 1;
    std::size_t width = 1;
    while (width < 3 && OffsetWidth(offsetCount * width + valueBytes) > width)
        ++width;
    if (offsetCount * width + valueBytes > Format::MaxDataSize)
        throw Error("a row is too large for the file format");

    std::string record;
    record.reserve(offsetCount * width + valueBytes);
    std::size_t offset = offsetCount * width;
    AppendOffset(record, offset, width);
    for (const Value &value : row) {
        offset += StoredSize(value);
        AppendOffset(record, offset, width);
    }
    for (const Value &value : row) {
        if (value)
            record.append(*value).push_back('\0');
    }
    return record;
}

} // namespace Sqlite2
