#include "sqlite2/PageCover.h"

#include "sqlite2/Error.h"

#include <string>

namespace Sqlite2 {

PageCover::PageCover()
{
    for (std::size_t offset = 0; offset < Format::PageHeaderSize; offset += Format::Alignment)
        isTaken.set(offset / Format::Alignment);
}

void PageCover::Take(std::size_t offset, std::size_t size)
{
    if (offset % Format::Alignment != 0 || size % Format::Alignment != 0 || size == 0 ||
        offset > Format::PageSize || size > Format::PageSize - offset)
        throw Error("it has a cell or free block of " + std::to_string(size) + " bytes at offset " +
                    std::to_string(offset) + ", where none can stand");
    for (std::size_t at = offset; at < offset + size; at += Format::Alignment) {
        if (isTaken[at / Format::Alignment])
            throw Error("its cells and free blocks overlap at offset " + std::to_string(at));
        isTaken.set(at / Format::Alignment);
    }
}

void PageCover::RequireAll() const
{
    if (!isTaken.all())
        throw Error("its cells and free blocks leave bytes out");
}

} // namespace Sqlite2
