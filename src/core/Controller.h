#pragma once

#include "core/CatalogueQueries.h"
#include "core/LanguageSupport.h"
#include "core/PriceList.h"
#include "core/SQLiteWrapper.h"

#include <QHash>
#include <QString>

#include <memory>

namespace Tesk {

class clsShoppingCart;
class Registry;

/// The program's spine: start-up, and the state that lives for the whole run.
class Controller
{
public:
    /// `applicationDirectory`: the folder in which all files are looked for, native separators.
    Controller(const QString &applicationDirectory, Registry &registry, const QString &cacheFolder);
    ~Controller();

    Controller(const Controller &) = delete;
    Controller &operator=(const Controller &) = delete;

    /// The start-up sequence; called once. Throws FileError when a required file is missing or
    /// unreadable, DuplicateKeyError for two data sheets of one key or a doubled language key: the
    /// program cannot run then.
    void InitApplication();

    QString ApplicationDirectory() const { return applicationDirectory; }
    /// `file:///` and the application directory, "/" separators, no "/" at its end.
    QString GetContentBaseUrl() const { return contentBaseUrl; }
    /// `mk:@MSITStore:` and the path of resources.chm with "::".
    QString GetResourceBaseUrl() const { return resourceBaseUrl; }
    QString GetWelcomeDocumentUrl() const;
    /// The first character of `name` is dropped.
    QString GetInfoDocumentUrl(const QString &name) const;
    bool HasPdfDocument(const QString &key) const;
    /// Empty for a key without a document.
    QString GetPdfDocumentUrl(const QString &key) const;

    void CloseDatabase();

    /// 0 = metric, anything else = inch.
    qint32 GetUnit() const { return unit; }
    void SetUnit(qint32 newUnit) { unit = newUnit; }
    /// "p.sCm" or "p.sInch".
    QString GetSizeColumn() const;

    clsShoppingCart &GetShoppingCart() { return *shoppingCart; }
    bool HasPriceList() const { return priceList.HasPriceList(); }
    QString GetPrice(const QString &artNr) const { return priceList.GetPrice(artNr); }

    /// Adds the product and, for a set, its members. Does nothing for an unknown id. Throws
    /// ConversionError for a member's amount that is no 16-bit number.
    void AddProductToCart(qint16 id, qint16 amount, const QString &altCategory);

    const CatalogueQueries &Queries() const { return queries; }
    LanguageSupport &Languages() { return languages; }
    const LanguageSupport &Languages() const { return languages; }
    PriceList &Prices() { return priceList; }
    QString GetText(const QString &key) const { return languages.GetText(key); }
    bool IsStarting() const { return isStarting; }

private:
    void BuildPdfIndex();

    QString applicationDirectory;
    QString contentBaseUrl;
    QString resourceBaseUrl;
    QHash<QString, QString> pdfIndex;
    qint32 unit = 0;
    bool isStarting = false;
    SQLiteWrapper database;
    LanguageSupport languages;
    CatalogueQueries queries;
    PriceList priceList;
    std::unique_ptr<clsShoppingCart> shoppingCart;
};

} // namespace Tesk
