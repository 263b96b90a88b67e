#include "sqlite2/PageCensus.h"

#include "sqlite2/Cell.h"
#include "sqlite2/Error.h"
#include "sqlite2/Format.h"
#include "sqlite2/PageCover.h"

#include <algorithm>
#include <string>

namespace Sqlite2 {

namespace {

/// All leaves lie equally deep under pages of two children or more, and page numbers have 32 bits.
constexpr int DeepestPage = 32;

/// An engine that was stopped early leaves a table's first page as it was given out.
bool IsUnwritten(const ByteView &page)
{
    return page.Slice(0, Format::PageSize).find_first_not_of('\0') == std::string_view::npos;
}

void TakeFreeBlocks(const ByteView &page, PageCover &cover)
{
    std::size_t block = page.Number16(Format::FirstFreeBlockOffset);
    while (block != 0) {
        cover.Take(block, page.Number16(block + Format::FreeBlockSize));
        block = page.Number16(block + Format::FreeBlockNext);
    }
}

/// Runs the step so that what it finds wrong is reported with the number of the page.
template <typename Step>
void NamingPage(std::uint32_t page, Step step)
{
    try {
        step();
    } catch (const Error &error) {
        throw Error("page " + std::to_string(page) + " is damaged: " + error.what());
    }
}

} // namespace

PageCensus::PageCensus(const PageFile &pageFile)
    : file(pageFile)
    , isTaken(pageFile.PageCount() + std::size_t{1}, false)
{
    Take(Format::HeaderPage);
}

void PageCensus::AddTree(std::uint32_t rootPage)
{
    TakeTreePage(rootPage, 0);
}

void PageCensus::AddFreeList()
{
    const ByteView header = file.Page(Format::HeaderPage);
    const std::uint32_t expected = header.Number32(Format::FreePageCountOffset);
    std::uint32_t count = 0;
    std::uint32_t trunk = header.Number32(Format::FirstFreePageOffset);
    while (trunk != 0) {
        Take(trunk);
        const ByteView page = file.Page(trunk);
        const std::uint32_t listed = page.Number32(Format::FreeListCount);
        for (std::uint32_t i = 0; i < listed; ++i)
            Take(page.Number32(Format::FreeListPages + i * Format::PageNumberSize));
        count += 1 + listed;
        trunk = page.Number32(Format::FreeListNext);
    }
    if (count != expected)
        throw Error("the list of free pages has " + std::to_string(count) +
                    " pages, but the header counts " + std::to_string(expected));
}

void PageCensus::RequireAllPages() const
{
    const auto missing = std::find(isTaken.begin() + Format::HeaderPage, isTaken.end(), false);
    if (missing != isTaken.end())
        throw Error("page " + std::to_string(missing - isTaken.begin()) +
                    " is part of nothing: a link to it is damaged");
}

void PageCensus::Take(std::uint32_t page)
{
    file.Page(page);
    if (isTaken[page])
        throw Error("two links lead to page " + std::to_string(page));
    isTaken[page] = true;
}

void PageCensus::TakeTreePage(std::uint32_t number, int depth)
{
    if (depth > DeepestPage)
        throw Error("page " + std::to_string(number) + " lies deeper than a tree can be");
    Take(number);
    const ByteView page = file.Page(number);
    const bool isRoot = depth == 0;
    if (isRoot && IsUnwritten(page))
        return;

    const std::uint32_t rightChild = page.Number32(Format::RightChildOffset);
    const bool isLeaf = rightChild == 0;
    PageCover cover;
    std::size_t offset = page.Number16(Format::FirstCellOffset);
    if (!isRoot && offset == 0)
        throw Error("page " + std::to_string(number) + " is damaged: it has no entries");
    while (offset != 0) {
        Cell cell;
        NamingPage(number, [&] {
            cell = DecodeCell(page, offset);
            cover.Take(offset, CellSize(cell.PayloadSize()));
            if ((cell.leftChild == 0) != isLeaf)
                throw Error("it is neither a leaf nor an inner page");
        });
        TakeOverflow(cell.overflowPage, cell.PayloadSize() - cell.localPayload.size());
        if (!isLeaf)
            TakeTreePage(cell.leftChild, depth + 1);
        offset = cell.next;
    }
    NamingPage(number, [&] {
        TakeFreeBlocks(page, cover);
        cover.RequireAll();
    });
    if (!isLeaf)
        TakeTreePage(rightChild, depth + 1);
}

void PageCensus::TakeOverflow(std::uint32_t firstPage, std::size_t size)
{
    std::uint32_t page = firstPage;
    for (std::size_t left = size; left > 0; left -= std::min(left, Format::OverflowPayload)) {
        if (page == 0)
            throw Error("an overflow chain ends before its entry is complete");
        Take(page);
        page = file.Page(page).Number32(Format::NextOverflowPage);
    }
    if (page != 0)
        throw Error("an overflow chain goes on behind the end of its entry");
}

} // namespace Sqlite2
