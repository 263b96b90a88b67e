#include "support/SampleCatalogue.h"

namespace Tesk {

const CategoryNode *FindLeaf(CatalogueWindow &catalogue,
                             const std::function<bool(const ResultTable &rows)> &condition)
{
    for (const auto &node : catalogue.Window().Tree().Nodes()) {
        if (node->HasChildren())
            continue;
        if (condition(catalogue.GetController().Queries().QueryProductsOfCategory(node->tag)))
            return node.get();
    }
    return nullptr;
}

const CategoryNode *FindLongLeaf(CatalogueWindow &catalogue)
{
    return FindLeaf(catalogue, [](const ResultTable &rows) { return rows.UpperRow() > 60; });
}

int FirstSet(const ResultTable &rows)
{
    for (int row = 1; row <= rows.UpperRow(); ++row) {
        if (GetField(QStringLiteral("p.isSet"), rows, row) == QLatin1String("True"))
            return row;
    }
    return 0;
}

} // namespace Tesk
