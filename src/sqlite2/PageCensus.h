#pragma once

#include "sqlite2/PageFile.h"

#include <cstdint>
#include <vector>

namespace Sqlite2 {

/// Finds what each page of a file is part of: one tree, with its overflow chains, or the free list.
///
/// A sound file uses every page once and accounts for every byte of a tree's page. So a damaged
/// link cannot hide rows, show a page that was given up, or lead in a circle, without that some
/// page or byte is used twice or not at all. The contents of entries are not looked at.
class PageCensus final
{
public:
    /// The file must outlive the census.
    explicit PageCensus(const PageFile &file);

    /// Takes the pages of a tree. Throws Error for a page that cannot be one of a tree, or that is
    /// part of something else.
    void AddTree(std::uint32_t rootPage);

    /// Takes the free pages. Throws Error when they are not as many as the header says.
    void AddFreeList();

    /// Throws Error when there is a page that nothing has taken.
    void RequireAllPages() const;

private:
    void Take(std::uint32_t page);
    void TakeTreePage(std::uint32_t page, int depth);
    void TakeOverflow(std::uint32_t firstPage, std::size_t size);

    const PageFile &file;
    std::vector<bool> isTaken;
};

} // namespace Sqlite2
