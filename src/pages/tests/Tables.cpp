#include "Tables.h"

namespace Tesk {

ResultTable ProductTable(const std::vector<Product> &products)
{
    ResultTable table(
        {QStringLiteral("p.ID"), QStringLiteral("p.artNr"), QStringLiteral("p.isSet"),
         QStringLiteral("p.sCm"), QStringLiteral("p.sInch"), QStringLiteral("p.groupId"),
         QStringLiteral("p.filePath"), QStringLiteral("p.img1"), QStringLiteral("p.availability"),
         QStringLiteral("l.name"), QStringLiteral("l.form"), QStringLiteral("s.iAmount")});
    for (const Product &product : products) {
        table.AddRow({product.id, product.artNr, product.isSet, QStringLiteral("11,5 cm"),
                      QStringLiteral("4 1/2 in"), product.groupId, QStringLiteral("/sc"),
                      QStringLiteral("sc%1.gif").arg(product.id), product.availability,
                      product.name, QStringLiteral("curved"), product.amount});
    }
    return table;
}

ResultTable ManyProducts(int count)
{
    std::vector<Product> products(static_cast<size_t>(count));
    int id = 1000;
    for (Product &product : products)
        product.id = QString::number(++id);
    return ProductTable(products);
}

CategoryTree MakeTree(const std::vector<std::vector<QString>> &rows)
{
    ResultTable table({QStringLiteral("ID"), QStringLiteral("TREE_ID"), QStringLiteral("parent"),
                       QStringLiteral("title_en")});
    for (const auto &row : rows)
        table.AddRow(row);
    CategoryTree tree;
    tree.Fill(table);
    return tree;
}

} // namespace Tesk
