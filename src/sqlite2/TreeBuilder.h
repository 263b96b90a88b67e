#pragma once

#include "sqlite2/PageBuilder.h"

#include <optional>
#include <string_view>
#include <vector>

namespace Sqlite2 {

/// Builds a b-tree from entries that come in key order: pages are filled one behind the other, and
/// the entry between two of them becomes an entry of the level above. All leaves are equally deep.
class TreeBuilder final
{
public:
    TreeBuilder(FileBuilder &fileBuilder, std::uint32_t treeRoot);

    /// The key must be greater than all before. Throws Error for an entry that the format cannot
    /// hold.
    void Add(std::string_view key, std::string_view data);

    /// Writes what is left; the root page exists already. Nothing may be added afterwards.
    void Finish();

private:
    /// The unwritten end of one level, 0 being the leaves. The last full page waits with the entry
    /// behind it until the page after that has an entry, so that no page stays empty.
    struct Level
    {
        std::vector<NewCell> full;
        std::optional<NewCell> separator;
        std::vector<NewCell> last;
        std::size_t lastSize = 0;
    };

    void AddToLevel(std::size_t number, NewCell cell);
    void WriteFullPage(std::size_t number);

    FileBuilder &file;
    std::uint32_t rootPage;
    std::vector<Level> levels;
};

} // namespace Sqlite2
