#pragma once

#include "core/ResultTable.h"

#include <QDate>
#include <QString>

#include <functional>

namespace Tesk {

class CategoryNode;
class CategoryTree;
class Controller;
class HtmlDocument;

/// Writes the HTML of catalogue pages into the elements of the loaded page templates.
class HtmlBuilder
{
public:
    static constexpr int ProductsPerPage = 20;

    /// `today` gives the date whose year stands in the print footer.
    explicit HtmlBuilder(const Controller &controller,
                         std::function<QDate()> today = &QDate::currentDate);

    /// `firstItem` is the 1-based number of the page's first product. `node` may be nullptr.
    void WriteProductList(HtmlDocument &browser, const QString &caption, const ResultTable &table,
                          qint16 firstItem, const QString &categoryId, bool hasSingleProducts,
                          const CategoryNode *node) const;
    QString BuildPager(qint16 firstItem, qint16 count, const QString &pageUrl,
                       const QString &paramName, const QString &extraQuery) const;
    void WriteSetList(HtmlDocument &browser, const QString &title, const ResultTable &table,
                      const CategoryNode *node) const;
    void WriteCategoryList(HtmlDocument &browser, const QString &caption, const CategoryTree &tree,
                           const CategoryNode *node) const;
    QString BuildPrintHeader(const CategoryNode *node, const QString &pageKey) const;
    QString BuildPrintFooter() const;

    void WriteProductDetails(HtmlDocument &browser, const ResultTable &table,
                             const ResultTable &productRows, const CategoryNode *node) const;
    /// `scale` is the picture's size relative to the instrument; 0 or less prints no scale.
    QString BuildImageCell(const QString &filePath, const QString &imageName, double scale) const;

    void WriteStartPage(HtmlDocument &browser, const CategoryTree &tree) const;

private:
    const Controller &controller;
    std::function<QDate()> today;
};

/// The first data row (from 1) whose first column equals `key`; 0 without one.
qint16 FindRowById(const ResultTable &table, const QString &key);

} // namespace Tesk
