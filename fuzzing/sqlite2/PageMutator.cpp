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
constexpr std::array<NumberDamage::Place, 3> PageNumbers{{{Format::RightChildOffset, 4},
                                                          {Format::FirstCellOffset, 2},
                                                          {Format::FirstFreeBlockOffset, 2}}};

/// Those of a cell. Behind its header stand its key and, in a table, the offsets of its record.
constexpr std::array<NumberDamage::Place, 11> CellNumbers{
    {{Format::CellLeftChild, 4},
     {Format::CellKeySizeLow, 2},
     {Format::CellNext, 2},
     {Format::CellKeySizeHigh, 1},
     {Format::CellDataSizeHigh, 1},
     {Format::CellDataSizeLow, 2},
     {Format::CellHeaderSize, 4},
     {Format::CellHeaderSize + 3, 1},
     {Format::CellHeaderSize + 4, 1},
     {Format::CellHeaderSize + 5, 1},
     {Format::CellHeaderSize + Format::MaxLocalPayload, 4}}};

/// How far into a page's chain of cells damage goes; few pages hold more.
constexpr std::size_t CellsInReach = 24;

std::optional<std::size_t> SomeCell(NumberDamage &damage, std::size_t page, bool isBigEndian)
{
    std::optional<std::size_t> cell;
    std::uint64_t next = damage.Number({page + Format::FirstCellOffset, 2}, isBigEndian);
    for (std::size_t steps = damage.Below(CellsInReach) + 1;
         steps > 0 && next != 0 && next + Format::CellHeaderSize <= Format::PageSize; --steps) {
        cell = page + next;
        next = damage.Number({*cell + Format::CellNext, 2}, isBigEndian);
    }
    return cell;
}

std::string Damaged(std::string file, unsigned seed)
{
    NumberDamage damage(std::move(file), seed);
    const bool isBigEndian =
        damage.Number({Format::ByteOrderMarkOffset, 4}, true) == Format::ByteOrderMark;
    const std::size_t pageCount = damage.Bytes().size() / Format::PageSize;
    const std::size_t page = damage.Below(pageCount) * Format::PageSize;
    const std::optional<std::size_t> cell = SomeCell(damage, page, isBigEndian);
    const bool isOfCell = cell && damage.Below(4) != 0;
    NumberDamage::Place place = isOfCell ? CellNumbers[damage.Below(CellNumbers.size())]
                                         : PageNumbers[damage.Below(PageNumbers.size())];
    place.offset += isOfCell ? *cell : page;
    damage.Damage(place, isBigEndian, damage.Below(2) == 0 ? pageCount + 2 : Format::PageSize);
    return std::string(damage.Bytes());
}

} // namespace

/// Damages one number of a page, or now and then whatever the fuzzer itself chooses.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    if (size < 2 * Format::PageSize || seed % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string damaged = Damaged(std::string(data, data + size), seed);
    std::copy(damaged.begin(), damaged.end(), data);
    return size;
}
