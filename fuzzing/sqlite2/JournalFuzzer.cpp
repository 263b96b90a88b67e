#include "sqlite2/Error.h"
#include "sqlite2/Format.h"
#include "sqlite2/Journal.h"
#include "support/Require.h"

#include <cstdint>

using namespace Sqlite2;
using Tesk::Fuzzing::Require;

/// Lays the input as a journal over a file of three pages.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string filePage(Format::PageSize, 'x');
    const std::string journal(data, data + size);
    try {
        const std::string before = RollBack(filePage + filePage + filePage, journal);
        Require(before.size() % Format::PageSize == 0, "the file has whole pages");
        for (std::size_t at = 0; at < before.size(); at += Format::PageSize) {
            const std::string page = before.substr(at, Format::PageSize);
            Require(page == filePage || journal.find(page) != std::string::npos,
                    "a page comes from the file or the journal");
        }
    } catch (const Error &) {
        return 0;
    }
    return 0;
}
