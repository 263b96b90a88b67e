#pragma once

#include <filesystem>
#include <optional>

namespace Tesk {

/// How large a generated catalogue is to be.
struct GeneratorOptions
{
    /// Products with the ids 1 to this number, sets included; 1 to 32,767.
    int products = 1000;
    /// Equal options with an equal seed give an equal file.
    unsigned seed = 1;
    /// Categories in all; without a number one for each 80 products, at least 12 and at most 400.
    std::optional<int> categories;
    /// Reference numbers in all; without a number two a product.
    std::optional<int> referenceNumbers;
    /// Products in the first leaf category, exactly; without a number about one in 65.
    std::optional<int> firstLeafProducts = {};
};

/// Writes a made-up catalogue as a version 2 file: a tree of up to four levels, products in five
/// languages, one set in fifty products, lengths with their size texts, reference numbers. The
/// first leaf category holds more products than others. Throws CatalogueError for options out of
/// range or a file that cannot be written.
void GenerateCatalogue(const std::filesystem::path &file, const GeneratorOptions &options);

} // namespace Tesk
