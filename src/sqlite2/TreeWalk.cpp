#include "sqlite2/TreeWalk.h"

#include "sqlite2/Format.h"

#include <algorithm>

namespace Sqlite2 {

TreeWalk::TreeWalk(const PageFile &pageFile, std::uint32_t treeRoot)
    : file(pageFile)
    , rootPage(treeRoot)
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
            if (const std::uint32_t child = page.Number32(Format::RightChildOffset); child != 0)
                EnterLeftmost(child);
            continue;
        }

        const Cell cell = DecodeCell(page, position.cell);
        path.back().cell = cell.next;
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

void TreeWalk::EnterLeftmost(std::uint32_t pageNumber)
{
    while (pageNumber != 0) {
        const ByteView page = file.Page(pageNumber);
        const std::uint32_t firstCell = page.Number16(Format::FirstCellOffset);
        path.push_back({pageNumber, firstCell});
        if (firstCell == 0)
            return;
        pageNumber = DecodeCell(page, firstCell).leftChild;
    }
}

void TreeWalk::ReadPayload(const Cell &cell)
{
    keySize = cell.keySize;
    payload = cell.localPayload;
    if (cell.overflowPage == 0)
        return;

    assembled.assign(cell.localPayload);
    std::uint32_t pageNumber = cell.overflowPage;
    while (assembled.size() < cell.PayloadSize()) {
        const ByteView page = file.Page(pageNumber);
        const std::size_t missing = cell.PayloadSize() - assembled.size();
        assembled.append(
            page.Slice(Format::PageNumberSize, std::min(missing, Format::OverflowPayload)));
        pageNumber = page.Number32(Format::NextOverflowPage);
    }
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
