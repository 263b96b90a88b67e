#pragma once

#include "pages/PageContext.h"

#include <QHash>

#include <memory>

namespace Tesk {

/// A page context whose texts show their keys and whose other answers a test sets.
class FakePageContext final : public PageContext
{
public:
    bool hasPriceList = false;
    QString sizeColumn = QStringLiteral("p.sCm");
    QHash<QString, QString> prices;
    QHash<QString, QString> documents;

    QString GetText(const QString &key) const override;
    QString GetContentBaseUrl() const override;
    QString GetResourceBaseUrl() const override;
    QString GetSizeColumn() const override { return sizeColumn; }
    bool HasPriceList() const override { return hasPriceList; }
    QString GetPrice(const QString &artNr) const override { return prices.value(artNr); }
    bool HasPdfDocument(const QString &artNr) const override { return documents.contains(artNr); }
    QString GetPdfDocumentUrl(const QString &artNr) const override
    {
        return documents.value(artNr);
    }
    QString GetInfoDocumentUrl(const QString &helpId) const override;
};

} // namespace Tesk
