#include "sqlite2/TreeWalk.h"

#include "sqlite2/Format.h"

#include <algorithm>

namespace Sqlite2 {

TreeWalk::TreeWalk(const PageFile &pageFile, PageClaims &pageClaims, std::uint32_t treeRoot)
    : file(pageFile)
    , claims(pageClaims)
    , rootPage(treeRoot)
    , isUsed(pageFile.PageCount() + std::size_t{1}, false)
{
    EnterLeftmost(rootPage);
}

bool TreeWalk::Next()
{
    while (!path.empty()) {
        const Position position = path.back();
        const ByteView page = file.Page(position.page);
        if (position.cell == 0) {
            path.pop_back();
            if (const std::uint32_t child = page.Number32(Format::rightChildOffset); child != 0)
                EnterLeftmost(child);
            continue;
        }

        const Cell cell = DecodeCell(page, position.cell);
        if (position.cellsSeen == Format::maxCellsPerPage)
            throw Error("page " + std::to_string(position.page) + " links its cells in a loop");
        path.back() = {position.page, cell.next, position.cellsSeen + 1};
        ReadPayload(cell);
        RequireAscendingKeys();
        if (cell.next != 0) {
            if (const auto child = DecodeCell(page, cell.next).leftChild; child != 0)
                EnterLeftmost(child);
        }
        return true;
    }
    return false;
}

void TreeWalk::Enter(std::uint32_t pageNumber)
{
    TakeUse(pageNumber);
    path.push_back({pageNumber, file.Page(pageNumber).Number16(Format::firstCellOffset), 0});
}

void TreeWalk::EnterLeftmost(std::uint32_t pageNumber)
{
    while (pageNumber != 0) {
        Enter(pageNumber);
        const std::uint32_t firstCell = path.back().cell;
        if (firstCell == 0)
            return;
        pageNumber = DecodeCell(file.Page(pageNumber), firstCell).leftChild;
    }
}

void TreeWalk::TakeUse(std::uint32_t pageNumber)
{
    claims.Claim(pageNumber, rootPage);
    if (isUsed[pageNumber])
        throw Error("the tree of page " + std::to_string(rootPage) + " reaches page " +
                    std::to_string(pageNumber) + " twice");
    isUsed[pageNumber] = true;
}

void TreeWalk::ReadPayload(const Cell &cell)
{
    keySize = cell.keySize;
    payload = cell.localPayload;
    if (cell.overflowPage == 0)
        return;

    // The text grows page by page, so a size that the file cannot hold reserves no memory.
    assembled.assign(cell.localPayload);
    std::uint32_t pageNumber = cell.overflowPage;
    while (assembled.size() < cell.PayloadSize()) {
        if (pageNumber == 0)
            throw Error("an overflow chain ends before its entry is complete");
        TakeUse(pageNumber);
        const ByteView page = file.Page(pageNumber);
        const std::size_t missing = cell.PayloadSize() - assembled.size();
        assembled.append(
            page.Slice(Format::pageNumberSize, std::min(missing, Format::overflowPayload)));
        pageNumber = page.Number32(0);
    }
    if (pageNumber != 0)
        throw Error("an overflow chain goes on behind the end of its entry");
    payload = assembled;
}

void TreeWalk::RequireAscendingKeys()
{
    if (!isFirst && Key() <= previousKey)
        throw Error("the keys in the tree of page " + std::to_string(rootPage) +
                    " are out of order");
    previousKey.assign(Key());
    isFirst = false;
}

} // namespace Sqlite2
