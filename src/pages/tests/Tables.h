#pragma once

#include "core/CategoryTree.h"
#include "core/ResultTable.h"

#include <vector>

namespace Tesk {

/// One product of a list, as the test wants it.
struct Product
{
    QString id = QStringLiteral("101");
    QString artNr = QStringLiteral("AB 12/115");
    QString isSet = QStringLiteral("False");
    QString groupId = QStringLiteral("7");
    QString availability = QStringLiteral("1");
    QString name = QStringLiteral("Scissors");
    QString amount = QStringLiteral("1"); ///< within a set
};

/// Every product lies in the picture folder /sc, has the picture sc<id>.gif, the form "curved" and
/// the sizes "11,5 cm" and "4 1/2 in".
ResultTable ProductTable(const std::vector<Product> &products);

/// `count` products of one group with the ids 1001, 1002 and so on.
ResultTable ManyProducts(int count);

/// A tree of categories; a row holds ID, TREE_ID, the parent's TREE_ID and the title.
CategoryTree MakeTree(const std::vector<std::vector<QString>> &rows);

} // namespace Tesk
