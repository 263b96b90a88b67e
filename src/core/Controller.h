#pragma once

#include "cart/model/clsShoppingCart.h"
#include "core/CatalogueQueries.h"
#include "core/LanguageSupport.h"
#include "core/PriceList.h"
#include "core/SQLiteWrapper.h"

#include <QHash>
#include <QString>

namespace Tesk {

class Registry;

/// The program's spine: start-up, and the state that lives for the whole run.
class Controller final
{
public:
    /// `folder`: the application directory, in which all files are looked for, native separators.
    /// `cacheFolder` is the database's (SQLiteWrapper). `userLocale` is the one that chooses the
    /// first language and in which the user types lengths.
    Controller(const QString &folder, Registry &registry, const QString &cacheFolder,
               const QLocale &userLocale = QLocale::system());
    ~Controller();

    Controller(const Controller &) = delete;
    Controller &operator=(const Controller &) = delete;

    /// Begins to open the database beside whatever else the program does before InitApplication().
    void BeginInitApplication();
    /// The start-up sequence; called once. Throws FileError when resources.chm, catalog.db or a
    /// language file is missing, DuplicateKeyError for two data sheets of one key or a doubled
    /// language key: the program cannot run then. A database that cannot be opened is no error
    /// here; its queries find nothing.
    void InitApplication();

    QString ApplicationDirectory() const { return applicationDirectory; }
    /// `file:///` and the application directory, "/" separators, no "/" at its end.
    QString GetContentBaseUrl() const { return contentBaseUrl; }
    /// `mk:@MSITStore:` and the path of resources.chm with "::".
    QString GetResourceBaseUrl() const { return resourceBaseUrl; }
    QString GetWelcomeDocumentUrl() const;
    /// The first character of `name` is dropped.
    QString GetInfoDocumentUrl(const QString &name) const;
    /// `key`: an article number in upper case; its exact spelling counts.
    bool HasPdfDocument(const QString &key) const;
    /// Empty for a key without a document.
    QString GetPdfDocumentUrl(const QString &key) const;

    void CloseDatabase();

    /// 0 = metric, anything else = inch.
    qint32 GetUnit() const { return unit; }
    void SetUnit(qint32 newUnit) { unit = newUnit; }
    /// "p.sCm" or "p.sInch".
    QString GetSizeColumn() const;

    clsShoppingCart &GetShoppingCart() { return shoppingCart; }
    bool HasPriceList() const { return priceList.HasPriceList(); }
    QString GetPrice(const QString &artNr) const { return priceList.GetPrice(artNr); }

    /// Adds the product and, for a set, its members (from position 1, with their counts in one
    /// set). Does nothing for an id that does not find exactly one product. Throws ConversionError
    /// for a member's amount that is no 16-bit number; the cart then stays as it was.
    void AddProductToCart(qint16 id, qint16 amount, const QString &altCategory);

    const CatalogueQueries &Queries() const { return queries; }
    LanguageSupport &Languages() { return languages; }
    const LanguageSupport &Languages() const { return languages; }
    PriceList &Prices() { return priceList; }
    QString GetText(const QString &key) const { return languages.GetText(key); }
    /// True while InitApplication runs.
    bool IsStarting() const { return isStarting; }

private:
    void BuildPdfIndex();
    void RequireFile(const QString &fileName) const;
    QString PathOf(const QString &fileName) const;
    ShoppingCartItemList SetMembers(const QString &setId) const;

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
    clsShoppingCart shoppingCart;
};

} // namespace Tesk
