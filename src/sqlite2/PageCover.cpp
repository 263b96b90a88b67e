#include "sqlite2/PageCover.h"

#include "sqlite2/Error.h"

#include <string>

namespace Sqlite2 {

PageCover::PageCover()
{
    for (std::size_t offset = 0; offset < Format::pageHeaderSize; offset += Format::alignment)
        isTaken.set(offset / Format::alignment);
}

void PageCover::Take(std::size_t offset, std::size_t size)
{
    if (offset % Format::alignment != 0 || size % Format::alignment != 0 || size == 0 ||
        offset > Format::pageSize || size > Format::pageSize - offset)
        throw Error("it has a cell or free block of " + std::to_string(size) + " bytes at offset " +
                    std::to_string(offset) + ", where none can stand");
    for (std::size_t at = offset; at < offset + size; at += Format::alignment) {
        if (isTaken[at / Format::alignment])
            throw Error("its cells and free blocks overlap at offset " + std::to_string(at));
        isTaken.set(at / Format::alignment);
    }
}

void PageCover::RequireAll() const
{
    if (!isTaken.all())
        throw Error("its cells and free blocks leave bytes out");
}

} // namespace Sqlite2
