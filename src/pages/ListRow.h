#pragma once

#include <QString>

namespace Tesk {

class PageContext;
class ResultTable;

/// The HTML that the rows of product lists and set lists share, for one product's row.
class ListRow final
{
public:
    /// `rowNumber` is the product's row in `products`, from 1; it also numbers the row in the page.
    /// Both references must outlive the object.
    ListRow(const PageContext &pageContext, const ResultTable &products, qint16 rowNumber);

    QString Field(const QString &columnName) const;
    bool IsSet() const;

    /// The row's opening tag; a click anywhere in the row opens the product.
    QString Start() const;
    QString NumberCell() const;
    QString NameCell() const;
    QString SizeAndFormCells() const;
    /// The floating preview itself, hidden by the page's style sheet.
    QString PreviewCell() const;
    /// The picture that shows the preview while the pointer is on it.
    QString PreviewTriggerCell() const;

private:
    const PageContext &context;
    const ResultTable &table;
    qint16 row;
};

/// A list's start up to the captions of number and description.
QString ListStart(const PageContext &context);
QString SizeAndFormCaptions(const PageContext &context);
/// The rest of the row of captions.
QString CaptionsEnd();
/// What stands in place of a list without products.
QString NoProductsHtml(const PageContext &context);

QString AddToCartCell(const PageContext &context, const QString &productId);
QString InStockCell(const PageContext &context);
/// `picture` is the address of the picture, relative to the page.
QString NotInStockCell(const PageContext &context, const QString &picture);

} // namespace Tesk
