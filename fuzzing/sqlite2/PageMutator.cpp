#include "sqlite2/Format.h"
#include "support/NumberDamage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

using namespace Sqlite2;
using Tesk::Fuzzing::NumberDamage;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace {

/// The numbers of a page, counted from its start.
constexpr std::array<NumberDamage::Place, 3> pageNumbers{{{Format::rightChildOffset, 4},
                                                          {Format::firstCellOffset, 2},
                                                          {Format::firstFreeBlockOffset, 2}}};

/// Those of a cell. Behind its header stand its key and, in a table, the offsets of its record.
constexpr std::array<NumberDamage::Place, 11> cellNumbers{
    {{Format::cellLeftChild, 4},
     {Format::cellKeySizeLow, 2},
     {Format::cellNext, 2},
     {Format::cellKeySizeHigh, 1},
     {Format::cellDataSizeHigh, 1},
     {Format::cellDataSizeLow, 2},
     {Format::cellHeaderSize, 4},
     {Format::cellHeaderSize + 3, 1},
     {Format::cellHeaderSize + 4, 1},
     {Format::cellHeaderSize + 5, 1},
     {Format::cellHeaderSize + Format::maxLocalPayload, 4}}};

/// How far into a page's chain of cells damage goes; few pages hold more.
constexpr std::size_t cellsInReach = 24;

std::optional<std::size_t> SomeCell(NumberDamage &damage, std::size_t page, bool isBigEndian)
{
    std::optional<std::size_t> cell;
    std::uint64_t next = damage.Number({page + Format::firstCellOffset, 2}, isBigEndian);
    for (std::size_t steps = damage.Below(cellsInReach) + 1;
         steps > 0 && next != 0 && next + Format::cellHeaderSize <= Format::pageSize; --steps) {
        cell = page + next;
        next = damage.Number({*cell + Format::cellNext, 2}, isBigEndian);
    }
    return cell;
}

std::string Damaged(std::string file, unsigned seed)
{
    NumberDamage damage(std::move(file), seed);
    const bool isBigEndian =
        damage.Number({Format::byteOrderMarkOffset, 4}, true) == Format::byteOrderMark;
    const std::size_t pageCount = damage.Bytes().size() / Format::pageSize;
    const std::size_t page = damage.Below(pageCount) * Format::pageSize;
    const std::optional<std::size_t> cell = SomeCell(damage, page, isBigEndian);
    const bool isOfCell = cell && damage.Below(4) != 0;
    NumberDamage::Place place = isOfCell ? cellNumbers[damage.Below(cellNumbers.size())]
                                         : pageNumbers[damage.Below(pageNumbers.size())];
    place.offset += isOfCell ? *cell : page;
    damage.Damage(place, isBigEndian, damage.Below(2) == 0 ? pageCount + 2 : Format::pageSize);
    return std::string(damage.Bytes());
}

} // namespace

/// Damages one number of a page, or now and then whatever the fuzzer itself chooses.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    if (size < 2 * Format::pageSize || seed % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string damaged = Damaged(std::string(data, data + size), seed);
    std::copy(damaged.begin(), damaged.end(), data);
    return size;
}
