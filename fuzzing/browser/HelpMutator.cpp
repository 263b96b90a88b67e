#include "support/NumberDamage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using Tesk::Fuzzing::NumberDamage;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);

namespace {

/// The marks with which the parts of a compiled help file begin, and how far behind them numbers
/// stand: the headers of file and directory, the directory's leaves and nodes, whose entries hold
/// numbers too, the settings of the compression.
struct Part
{
    std::string_view mark;
    std::size_t reach;
};
constexpr std::array<Part, 5> Parts{
    {{"ITSF", 0x60}, {"ITSP", 0x54}, {"PMGL", 0x400}, {"PMGI", 0x100}, {"LZXC", 0x40}}};

constexpr std::array<std::size_t, 5> Sizes{1, 2, 4, 4, 8};

std::vector<NumberDamage::Place> PartsOf(std::string_view file)
{
    std::vector<NumberDamage::Place> found;
    for (const Part &part : Parts) {
        for (std::size_t at = file.find(part.mark); at != std::string_view::npos;
             at = file.find(part.mark, at + 1))
            found.push_back({at, part.reach});
    }
    return found;
}

std::string Damaged(std::string file, unsigned seed)
{
    NumberDamage damage(std::move(file), seed);
    const std::vector<NumberDamage::Place> found = PartsOf(damage.Bytes());
    if (found.empty())
        return std::string(damage.Bytes());
    const NumberDamage::Place part = found[damage.Below(found.size())];
    const std::size_t size = Sizes[damage.Below(Sizes.size())];
    // All but the numbers of entries stand at multiples of four, and most near the mark.
    const std::size_t step = size < 4 ? 1 : 4;
    const std::size_t offset = damage.Below(damage.Below(part.size / step) + 1) * step;
    damage.Damage({part.offset + offset, size}, false, damage.Bytes().size() + 1);
    return std::string(damage.Bytes());
}

} // namespace

/// Damages one number of a part, or now and then whatever the fuzzer itself chooses.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    if (size == 0 || seed % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string damaged = Damaged(std::string(data, data + size), seed);
    std::copy(damaged.begin(), damaged.end(), data);
    return size;
}
