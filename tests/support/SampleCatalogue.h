#pragma once

#include "core/ResultTable.h"
#include "support/CatalogueWindow.h"

#include <QString>

#include <functional>

namespace Tesk {

class CategoryNode;

/// The application directory that the build makes from the sample catalogue.
inline const QString SampleCatalogue = QStringLiteral(APPLICATION_DIR);

/// The first leaf of the tree whose products satisfy the condition; nullptr without one.
const CategoryNode *FindLeaf(CatalogueWindow &catalogue,
                             const std::function<bool(const ResultTable &rows)> &condition);
/// One with more than three pages of products.
const CategoryNode *FindLongLeaf(CatalogueWindow &catalogue);
/// The row number of the first set in the rows, or 0.
int FirstSet(const ResultTable &rows);

} // namespace Tesk
