#pragma once

#include <QDate>
#include <QString>

#include <functional>
#include <memory>

namespace Tesk {

class CategoryNode;
class CategoryTree;
class Controller;
class HtmlDocument;
class PageContext;
class ResultTable;

/// Writes the HTML of catalogue pages into the elements of the loaded page templates. It keeps
/// nothing between two calls.
///
/// The Write operations change the page only when everything before the change could be built; an
/// error of the rows (ConversionError, SubscriptError) leaves through them. Texts of the catalogue
/// and addresses go into the HTML as they are.
class HtmlBuilder final
{
public:
    static constexpr qint16 ProductsPerPage = 20;

    /// `controller` must outlive the builder. `currentDate` gives the date whose year stands in the
    /// print footer.
    explicit HtmlBuilder(const Controller &controller,
                         std::function<QDate()> currentDate = &QDate::currentDate);
    explicit HtmlBuilder(std::unique_ptr<const PageContext> pageContext,
                         std::function<QDate()> currentDate = &QDate::currentDate);
    ~HtmlBuilder();

    /// `firstItem` is the 1-based number of the page's first product. `node` may be nullptr.
    void WriteProductList(HtmlDocument &browser, const QString &caption, const ResultTable &table,
                          qint16 firstItem, const QString &categoryId, bool hasSingleProducts,
                          const CategoryNode *node) const;
    /// The links to the pages of a list of `count` products; each leads to `pageUrl` with
    /// `paramName`, an item number and `extraQuery`. Throws ConversionError when an item number
    /// leaves the 16 bits.
    QString BuildPager(qint16 firstItem, qint16 count, const QString &pageUrl,
                       const QString &paramName, const QString &extraQuery) const;
    void WriteSetList(HtmlDocument &browser, const QString &title, const ResultTable &table,
                      const CategoryNode *node) const;
    /// Lists the children of `node`; those of the top level for nullptr.
    void WriteCategoryList(HtmlDocument &browser, const QString &caption, const CategoryTree &tree,
                           const CategoryNode *node) const;
    /// `pageKey` is "wc" for the shopping cart and empty for every other page.
    QString BuildPrintHeader(const CategoryNode *node, const QString &pageKey) const;
    QString BuildPrintFooter() const;

    /// `table` holds the product in row 1; without it SubscriptError is thrown and nothing written.
    /// Title and facts are written before the pictures are built: they stand even when a scale is
    /// no number. `productRows`, the list that the user steps through, has no influence.
    void WriteProductDetails(HtmlDocument &browser, const ResultTable &table,
                             const ResultTable &productRows, const CategoryNode *node) const;
    /// `scale` is the picture's size relative to the instrument; 0 or less prints no scale. Empty
    /// without an image name.
    QString BuildImageCell(const QString &filePath, const QString &imageName, double scale) const;

    void WriteStartPage(HtmlDocument &browser, const CategoryTree &tree) const;

private:
    QString ProductListHtml(const ResultTable &table, qint16 firstItem, const QString &categoryId,
                            bool hasSingleProducts) const;
    QString SetListHtml(const ResultTable &table) const;
    QString FactsHtml(const ResultTable &table) const;
    QString ImagesHtml(const ResultTable &table) const;

    std::unique_ptr<const PageContext> context;
    std::function<QDate()> today;
};

/// The first data row (from 1) whose first column equals `key`; 0 without one.
qint16 FindRowById(const ResultTable &table, const QString &key);

} // namespace Tesk
