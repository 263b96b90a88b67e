#pragma once

#include <QString>

namespace Tesk {

class CategoryNode;
class PageContext;

/// The table row that leads to a category's page; `n` numbers the row in the page, from 0.
QString CategoryLinkRow(const PageContext &context, const CategoryNode &node, qint16 n);

} // namespace Tesk
