#include "sqlite2/TreeBuilder.h"

#include <utility>

namespace Sqlite2 {

TreeBuilder::TreeBuilder(FileBuilder &fileBuilder, std::uint32_t treeRoot)
    : file(fileBuilder)
    , rootPage(treeRoot)
    , levels(1)
{}

void TreeBuilder::Add(std::string_view key, std::string_view data)
{
    AddToLevel(0, MakeCell(file, key, data));
}

void TreeBuilder::AddToLevel(std::size_t number, NewCell cell)
{
    if (levels[number].separator)
        WriteFullPage(number);

    Level &level = levels[number];
    const std::size_t size = cell.Size();
    if (level.lastSize + size <= CellSpace()) {
        level.lastSize += size;
        level.last.push_back(std::move(cell));
        return;
    }
    level.full = std::exchange(level.last, {});
    level.lastSize = 0;
    level.separator = std::move(cell);
}

void TreeBuilder::WriteFullPage(std::size_t number)
{
    if (number + 1 == levels.size())
        levels.emplace_back();
    Level &level = levels[number];
    NewCell separator = std::move(*level.separator);
    level.separator.reset();

    // What lay left of the separator is the rest of the page before it.
    const std::uint32_t page = file.AddPage();
    file.SetPage(page, BuildPage(level.full, separator.leftChild, file.Order()));
    level.full.clear();
    separator.leftChild = page;
    AddToLevel(number + 1, std::move(separator));
}

void TreeBuilder::Finish()
{
    std::uint32_t child = 0;
    for (std::size_t number = 0; number < levels.size(); ++number) {
        if (levels[number].separator) {
            // No entry came behind the separator: it takes the new page, and the one before it
            // separates.
            levels[number].last.push_back(std::move(*levels[number].separator));
            levels[number].separator = std::move(levels[number].full.back());
            levels[number].full.pop_back();
            WriteFullPage(number);
        }
        const bool isRoot = number + 1 == levels.size();
        const std::uint32_t page = isRoot ? rootPage : file.AddPage();
        file.SetPage(page, BuildPage(levels[number].last, child, file.Order()));
        child = page;
    }
}

} // namespace Sqlite2
