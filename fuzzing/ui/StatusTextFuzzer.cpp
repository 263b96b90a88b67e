#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/Controller.h"
#include "core/Registry.h"
#include "support/Require.h"
#include "support/Scratch.h"
#include "ui/main/CartRequestText.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <optional>

using namespace Tesk;
using Fuzzing::Require;

namespace {

QString ApplicationFolder()
{
    const QDir folder(Fuzzing::ScratchFolder());
    Require(folder.mkpath(QStringLiteral("content")), "the application directory can be made");
    for (const QString &code : LanguageSupport::GetLanguageCodes())
        Fuzzing::WriteFile(folder.filePath(QStringLiteral("content/loc_%1.txt").arg(code)),
                           "key=text\r\n");
    Fuzzing::WriteFile(folder.filePath(QStringLiteral("resources.chm")), {});
    Require(QFile::link(QStringLiteral(SAMPLES_DIR "/catalog.db"),
                        folder.filePath(QStringLiteral("catalog.db"))),
            "the sample is the catalogue's database");
    return folder.path();
}

/// The catalogue on the sample's products.
class Catalogue final
{
public:
    Catalogue()
    {
        controller.InitApplication();
        const ResultTable products = controller.Queries().SearchByArtNr(QString());
        for (int row = 1; row <= products.UpperRow(); ++row)
            ids.insert(products.Text(row, 0));
        Require(!ids.isEmpty(), "the catalogue has products");
    }

    /// Adds as a confirmed request does, and answers what came into the cart.
    ShoppingCartItemList::Item Add(const QString &id, qint16 amount)
    {
        clsShoppingCart &cart = controller.GetShoppingCart();
        cart.Clear();
        controller.AddProductToCart(ToInt16(id), amount, QString());
        Require(cart.Count() <= 1, "a request adds one product");
        return cart.Count() == 0 ? nullptr : cart.Entries().At(0);
    }

    bool Has(const QString &id) const { return ids.contains(id); }

private:
    QString folder = ApplicationFolder();
    Registry registry{folder + QStringLiteral("/settings.json")};
    Controller controller{folder, registry, folder, QLocale::c()};
    QSet<QString> ids;
};

void CheckAdded(Catalogue &catalogue, const QString &id)
{
    constexpr qint16 amount = 7;
    const ShoppingCartItemList::Item item = catalogue.Add(id, amount);
    Require((item != nullptr) == catalogue.Has(QString::number(ToInt16(id))),
            "just the products of the catalogue can be added");
    if (!item)
        return;
    Require(item->Id == QString::number(ToInt16(id)) && item->Amount == amount,
            "the product that was asked for is added, as many as were asked for");
    Require(!item->ArtNr.isEmpty() && !item->Title.isEmpty(), "the line says what it is");
}

} // namespace

/// Takes the input, as UTF-8, for a status text of a catalogue page and confirms what it asks for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Catalogue catalogue;
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const std::optional<QString> id = CartRequestText::ProductId(text);
    Require(id.has_value() == text.contains(QStringLiteral("shoppingCart")),
            "only a text of the cart asks for a product");
    if (!id)
        return 0;
    Require(text.endsWith(*id) && !id->contains(u':'), "the id ends the text");
    try {
        CheckAdded(catalogue, *id);
    } catch (const ConversionError &) {
        return 0;
    }
    return 0;
}
