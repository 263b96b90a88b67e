#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace Tesk::Fuzzing {

/// Damages single numbers of a file: damage anywhere hits texts and free bytes mostly.
class NumberDamage final
{
public:
    /// Where a number stands, and how many bytes it takes, 1 to 8.
    struct Place
    {
        std::size_t offset;
        std::size_t size;
    };

    /// `bytes` are not empty. The same seed makes the same damage.
    NumberDamage(std::string fileBytes, unsigned seed)
        : bytes(std::move(fileBytes))
        , random(seed)
    {}

    std::string_view Bytes() const { return bytes; }

    /// Any number from 0 up to, and without, the limit.
    std::size_t Below(std::size_t limit) { return random() % limit; }

    std::uint64_t Number(Place place, bool isBigEndian) const
    {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < place.size; ++i) {
            const std::size_t byte = isBigEndian ? i : place.size - 1 - i;
            number = number << 8 | static_cast<unsigned char>(bytes[place.offset + byte]);
        }
        return number;
    }

    /// Exchanges the number for a small one, a neighbour, one below the limit, one of all bits, or
    /// any. A place outside the file is left alone.
    void Damage(Place place, bool isBigEndian, std::size_t limit)
    {
        if (place.offset + place.size > bytes.size())
            return;
        const std::uint64_t old = Number(place, isBigEndian);
        const std::uint64_t small = Below(8);
        const std::array<std::uint64_t, 7> values{
            small,        old + small, old - small, old ^ std::uint64_t{1} << Below(8 * place.size),
            Below(limit), ~small,      random()};
        Put(place, isBigEndian, values[Below(values.size())]);
    }

private:
    void Put(Place place, bool isBigEndian, std::uint64_t number)
    {
        for (std::size_t i = 0; i < place.size; ++i) {
            const std::size_t byte = isBigEndian ? place.size - 1 - i : i;
            bytes[place.offset + byte] = static_cast<char>(number >> 8 * i & 0xff);
        }
    }

    std::string bytes;
    std::minstd_rand random;
};

} // namespace Tesk::Fuzzing
