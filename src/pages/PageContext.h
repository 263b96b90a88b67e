#pragma once

#include <QString>

namespace Tesk {

/// What a page needs of the running program besides its rows: texts, addresses, prices, documents.
/// Names and results are those of the Controller; in addresses, the signs that would end a path or
/// a text in a page are percent-encoded.
class PageContext
{
public:
    virtual ~PageContext() = default;

    virtual QString GetText(const QString &key) const = 0;
    virtual QString GetContentBaseUrl() const = 0;
    virtual QString GetResourceBaseUrl() const = 0;
    /// The column of the product's size in the current unit.
    virtual QString GetSizeColumn() const = 0;
    virtual bool HasPriceList() const = 0;
    virtual QString GetPrice(const QString &artNr) const = 0;
    virtual bool HasPdfDocument(const QString &artNr) const = 0;
    virtual QString GetPdfDocumentUrl(const QString &artNr) const = 0;
    virtual QString GetInfoDocumentUrl(const QString &helpId) const = 0;
};

} // namespace Tesk
