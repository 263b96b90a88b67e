#include "sqlite2/Database.h"
#include "sqlite2/Error.h"
#include "sqlite2/FileBuilder.h"
#include "sqlite2/Format.h"
#include "sqlite2/Record.h"
#include "sqlite2/RowKey.h"
#include "sqlite2/TreeBuilder.h"
#include "support/Require.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace Sqlite2;
using Tesk::Fuzzing::Require;

namespace {

struct Entry
{
    std::string key;
    std::string data;
};

/// What an input says. Its first byte: bit 0 the byte order, bit 1 whether the first column is the
/// row id, the rest the number of columns less one. Then the entries: a byte with the size of the
/// key, two bytes with that of the data, the lower first, the key, the data. The last may be cut.
struct TableInput
{
    explicit TableInput(std::string_view input);

    ByteOrder order = ByteOrder::Little;
    bool hasRowIdColumn = false;
    std::size_t columnCount = 1;
    std::vector<Entry> entries;
};

std::string Take(std::string_view &input, std::size_t size)
{
    const std::string_view part = input.substr(0, size);
    input.remove_prefix(part.size());
    return std::string(part);
}

std::size_t TakeByte(std::string_view &input)
{
    const std::string byte = Take(input, 1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
}

TableInput::TableInput(std::string_view input)
{
    const std::size_t shape = TakeByte(input);
    order = shape % 2 == 0 ? ByteOrder::Little : ByteOrder::Big;
    hasRowIdColumn = shape / 2 % 2 != 0;
    columnCount = shape / 4 + 1;
    while (!input.empty()) {
        const std::size_t keySize = TakeByte(input);
        const std::size_t low = TakeByte(input);
        const std::size_t dataSize = low + 256 * TakeByte(input);
        std::string key = Take(input, keySize);
        entries.push_back({std::move(key), Take(input, dataSize)});
    }
}

void BuildTree(FileBuilder &file, std::uint32_t rootPage, const std::vector<Entry> &entries)
{
    TreeBuilder tree(file, rootPage);
    for (const Entry &entry : entries)
        tree.Add(entry.key, entry.data);
    tree.Finish();
}

/// A file whose one table holds the entries, whatever they are.
std::string FileWith(const TableInput &input)
{
    std::string columns = input.hasRowIdColumn ? "c0 INTEGER PRIMARY KEY" : "c0";
    for (std::size_t i = 1; i < input.columnCount; ++i)
        columns += ", c" + std::to_string(i);
    FileBuilder file(input.order);
    const std::uint32_t rootPage = file.AddPage();
    const Row declaration{"table", "t", "t", std::to_string(rootPage),
                          "CREATE TABLE t(" + columns + ')'};
    BuildTree(file, Format::MasterRootPage, {{EncodeRowKey(1), EncodeRecord(declaration)}});
    BuildTree(file, rootPage, input.entries);
    return file.Bytes();
}

/// The entry's row by itself; nothing for one that is none.
std::optional<std::pair<std::int32_t, Row>> RowOf(const Entry &entry, const TableInput &input)
{
    Row row;
    try {
        const std::int32_t rowId = DecodeRowKey(entry.key);
        DecodeRecord(entry.data, input.columnCount, row);
        if (input.hasRowIdColumn)
            row.front() = std::to_string(rowId);
        return std::pair(rowId, row);
    } catch (const Error &) {
        return std::nullopt;
    }
}

void CheckRecord(const Row &row)
{
    Row again;
    DecodeRecord(EncodeRecord(row), row.size(), again);
    Require(again == row, "a record holds what it was made of");
}

} // namespace

/// Puts entries of any bytes into a file that is well formed otherwise. The table must give the
/// rows up to the first entry that is none or is out of order, then an error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(data, data + size);
    const TableInput input(bytes);
    Database database(FileWith(input));
    std::size_t read = 0;
    try {
        for (TableRows rows = database.Rows(database.Tables().front()); rows.Next(); ++read) {
            Require(read < input.entries.size(), "there are no more rows than entries");
            const auto expected = RowOf(input.entries[read], input);
            Require(expected && expected->first == rows.RowId() &&
                        expected->second == rows.Values(),
                    "a row is what its entry says");
            CheckRecord(rows.Values());
        }
        Require(read == input.entries.size(), "every entry gives a row");
    } catch (const Error &) {
        Require(read < input.entries.size(), "rows without a fault are read without an error");
        const Entry &faulty = input.entries[read];
        const bool isOutOfOrder = read > 0 && faulty.key <= input.entries[read - 1].key;
        Require(isOutOfOrder || !RowOf(faulty, input), "an error has a faulty entry");
    }
    return 0;
}
