#include "core/Controller.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/ContentAddresses.h"

#include <QDir>
#include <QFileInfo>

namespace Tesk {

namespace {

constexpr QLatin1String ResourceFile("resources.chm");
constexpr QLatin1String DatabaseFile("catalog.db");
constexpr QLatin1String ContentFolder("content");
constexpr QLatin1String PdfFolder("PDF");

constexpr qint32 Metric = 0;

/// The item that a row of products stands for.
ShoppingCartItemList::Item ItemOf(const ResultTable &products, int row)
{
    auto item = std::make_shared<clsShoppingCartItem>();
    item->ArtNr = GetField(QStringLiteral("p.artNr"), products, row);
    item->Title = GetField(QStringLiteral("l.name"), products, row);
    return item;
}

} // namespace

Controller::Controller(const QString &folder, Registry &registry, const QString &cacheFolder,
                       const QLocale &userLocale)
    : applicationDirectory(folder)
    , database(cacheFolder)
    , languages(registry, PathOf(ContentFolder), userLocale)
    , queries(
          database, [this] { return languages.CurrentCode(); }, userLocale)
    , priceList(registry)
{}

Controller::~Controller() = default;

void Controller::BeginInitApplication()
{
    database.BeginOpen(PathOf(DatabaseFile));
}

void Controller::InitApplication()
{
    isStarting = true;
    BuildPdfIndex();
    contentBaseUrl = ContentAddresses::ContentBase(applicationDirectory);
    RequireFile(ResourceFile);
    resourceBaseUrl = ContentAddresses::ResourceBase(applicationDirectory);
    RequireFile(DatabaseFile);
    database.Open(PathOf(DatabaseFile));
    unit = Metric;
    languages.InitLanguages();
    isStarting = false;
}

QString Controller::GetWelcomeDocumentUrl() const
{
    return QStringLiteral("%1/Dokumente/welcome_%2.html")
        .arg(resourceBaseUrl, languages.CurrentCode());
}

QString Controller::GetInfoDocumentUrl(const QString &name) const
{
    return QStringLiteral("%1/Dokumente/info_%2_%3.html")
        .arg(resourceBaseUrl, languages.CurrentCode(), name.mid(1));
}

bool Controller::HasPdfDocument(const QString &key) const
{
    return pdfIndex.contains(key);
}

QString Controller::GetPdfDocumentUrl(const QString &key) const
{
    return pdfIndex.value(key);
}

void Controller::CloseDatabase()
{
    database.Close();
}

QString Controller::GetSizeColumn() const
{
    return unit == Metric ? QStringLiteral("p.sCm") : QStringLiteral("p.sInch");
}

void Controller::AddProductToCart(qint16 id, qint16 amount, const QString &altCategory)
{
    const QString productId = QString::number(id);
    const ResultTable product = queries.QueryProduct(productId);
    if (product.UpperRow() != 1)
        return;
    const ShoppingCartItemList::Item item = ItemOf(product, 1);
    item->Id = productId;
    item->Amount = amount;
    item->AltCategory = altCategory;
    if (GetField(QStringLiteral("p.isSet"), product, 1) == QLatin1String("True"))
        item->SetItems = SetMembers(productId);
    shoppingCart.AddItem(item);
}

ShoppingCartItemList Controller::SetMembers(const QString &setId) const
{
    const ResultTable rows = queries.QuerySetMembers(setId);
    ShoppingCartItemList members(1);
    for (int row = 1; row <= rows.UpperRow(); ++row) {
        const ShoppingCartItemList::Item member = ItemOf(rows, row);
        member->Id = GetField(QStringLiteral("p.ID"), rows, row);
        member->Amount = ToInt16(GetField(QStringLiteral("s.iAmount"), rows, row));
        members.Append(member);
    }
    return members;
}

void Controller::BuildPdfIndex()
{
    const QStringList files =
        QDir(PathOf(PdfFolder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    QHash<QString, QString> fileOfKey;
    for (const QString &fileName : files) {
        if (!ContentAddresses::IsPdfFile(fileName))
            continue;
        const QString key = ContentAddresses::PdfKey(fileName);
        if (fileOfKey.contains(key))
            throw DuplicateKeyError(
                QStringLiteral("The data sheets \"%1\" and \"%2\" in the folder PDF both belong to "
                               "the article number \"%3\". Remove one of them.")
                    .arg(fileOfKey.value(key), fileName, key));
        fileOfKey.insert(key, fileName);
        pdfIndex.insert(key, ContentAddresses::PdfDocument(applicationDirectory, fileName));
    }
}

void Controller::RequireFile(const QString &fileName) const
{
    if (!QFileInfo(PathOf(fileName)).isFile())
        throw FileError(
            QStringLiteral("Can't find the file '%1' in working directory. Exit Application.")
                .arg(fileName));
}

QString Controller::PathOf(const QString &fileName) const
{
    return QDir(applicationDirectory).filePath(fileName);
}

} // namespace Tesk
