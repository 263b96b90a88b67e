#include "sqlite2/Journal.h"

#include "sqlite2/ByteView.h"
#include "sqlite2/Format.h"

#include <algorithm>
#include <vector>

namespace Sqlite2 {

namespace {

constexpr std::string_view JournalMark{"\xd9\xd5\x05\xf9\x20\xa1\x63\xd6", 8};
constexpr std::size_t RecordCountOffset = 8;
constexpr std::size_t ChecksumSeedOffset = 12;
constexpr std::size_t PageCountOffset = 16;
constexpr std::size_t HeaderSize = 20;
constexpr std::size_t RecordSize =
    Format::PageNumberSize + Format::PageSize + sizeof(std::uint32_t);

} // namespace

std::string RollBack(std::string database, std::string_view journal)
{
    if (journal.size() < HeaderSize)
        return database;
    if (!journal.starts_with(JournalMark))
        throw Error(
            "the journal beside the database is of an unknown kind, so the state before the "
            "unfinished write cannot be restored");

    const ByteView view(journal, ByteOrder::Big);
    const std::uint32_t checksumSeed = view.Number32(ChecksumSeedOffset);
    const std::size_t pageCount = view.Number32(PageCountOffset);
    const std::size_t recordsPresent = (journal.size() - HeaderSize) / RecordSize;
    const std::size_t recordCount =
        std::min<std::size_t>(view.Number32(RecordCountOffset), recordsPresent);

    const std::size_t pagesInFile = database.size() / Format::PageSize;
    if (pageCount > pagesInFile + recordCount)
        throw Error("the journal beside the database speaks of more pages than there are");

    database.resize(pageCount * Format::PageSize);
    std::vector<bool> isPresent(pageCount, false);
    std::fill_n(isPresent.begin(), std::min(pagesInFile, pageCount), true);

    for (std::size_t i = 0; i < recordCount; ++i) {
        const std::size_t record = HeaderSize + i * RecordSize;
        const std::uint32_t pageNumber = view.Number32(record);
        const std::uint32_t checksum = view.Number32(record + RecordSize - sizeof(checksum));
        if (checksum != pageNumber + checksumSeed)
            break;
        if (pageNumber == 0)
            throw Error("the journal beside the database saves a page 0, which no file has");
        // Pages behind the old end are not part of the state before the write.
        if (pageNumber > pageCount)
            continue;
        const std::string_view page = view.Slice(record + Format::PageNumberSize, Format::PageSize);
        database.replace((pageNumber - 1) * Format::PageSize, Format::PageSize, page);
        isPresent[pageNumber - 1] = true;
    }

    if (!std::ranges::all_of(isPresent, [](bool present) { return present; }))
        throw Error("the journal beside the database lacks pages that the file has lost");
    return database;
}

} // namespace Sqlite2
