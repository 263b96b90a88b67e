#include "sqlite2/Error.h"
#include "sqlite2/Format.h"
#include "sqlite2/Journal.h"

#include <cstddef>
#include <cstdint>

/// Lays the input as a journal over a file of three pages.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string database(3 * Sqlite2::Format::pageSize, 'x');
    const std::string journal(data, data + size);
    try {
        const std::string before = Sqlite2::RollBack(database, journal);
        if (before.size() % Sqlite2::Format::pageSize != 0 ||
            before.size() > database.size() + size)
            __builtin_trap();
    } catch (const Sqlite2::Error &) {
        return 0;
    }
    return 0;
}
