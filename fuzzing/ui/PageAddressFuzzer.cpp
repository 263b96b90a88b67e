#include "base/Errors.h"
#include "cart/pane/CartAddress.h"
#include "core/ContentAddresses.h"
#include "core/LanguageSupport.h"
#include "support/Require.h"
#include "ui/main/PageAddress.h"

#include <QStringList>

#include <cstdint>

using namespace Tesk;
using Fuzzing::Require;

namespace {

/// An address of any kind.
void CheckForeign(const QString &address)
{
    Require(address.endsWith(PageAddress::Id(address)) || address.contains(u'#'),
            "an id stands at the end");
    try {
        PageAddress::FirstItem(address);
    } catch (const ConversionError &error) {
        Require(!error.Message().isEmpty(), "an error says what is wrong");
    }
    CartAddress::ActionOf(address);
    CartAddress::ProductId(address);
}

/// A document inside the container of a catalogue in any folder.
void CheckDocument(const QString &path)
{
    const QString address = QStringLiteral("mk:@MSITStore:") + path;
    const QString german = PageAddress::InLanguage(address, QStringLiteral("ge"));
    for (const QString &code : LanguageSupport::GetLanguageCodes())
        Require(PageAddress::InLanguage(german, code) == PageAddress::InLanguage(address, code),
                "a document's language depends on the last choice alone");
}

/// Whether the folder's own name does not say what its pages are.
bool IsNeutral(const QString &folder)
{
    return !folder.contains(QStringLiteral(".html")) && !folder.contains(QStringLiteral("action="));
}

/// The addresses that the program makes, for a catalogue in any folder.
void CheckOwn(const QString &folder, qint16 firstItem, const QString &id)
{
    const QString base = ContentAddresses::ContentBase(folder);
    const QString list = QStringLiteral("%1/content/product_list.html?firstItem=%2&id=")
                             .arg(base, QString::number(firstItem));
    if (!id.contains(u'=') && !id.contains(u'?') && !id.contains(u'#')) {
        for (const char *const jump : {"", "#top"})
            Require(PageAddress::Id(list + id + QLatin1String(jump)) == id, "a list has its id");
    }
    Require(PageAddress::FirstItem(list + QStringLiteral("7")) == firstItem,
            "a list begins with the item it was asked for");
    if (!IsNeutral(folder))
        return;
    for (const auto action : {CartPageAction::None, CartPageAction::Save,
                              CartPageAction::SendRequest, CartPageAction::SendOrder})
        Require(CartAddress::ActionOf(base + CartAddress::Cart(action)) == action,
                "the cart's page is followed by what was asked for");
    Require(CartAddress::ActionOf(base + CartAddress::ChangedCart()) == CartPageAction::None,
            "a changed cart is followed by nothing");
    Require(CartAddress::ActionOf(base + CartAddress::OrderForm(true)) == CartPageAction::Print &&
                CartAddress::ActionOf(base + CartAddress::OrderForm(false)) == CartPageAction::None,
            "the order form is printed when that was asked for");
}

} // namespace

/// The input's lines, as UTF-8: an address, or the catalogue's folder, and the id of a page there.
/// The first two bytes are the first item of a list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const auto firstItem = static_cast<qint16>(data[0] + 256 * data[1]);
    const QStringList lines = QString::fromUtf8(reinterpret_cast<const char *>(data) + 2,
                                                static_cast<qsizetype>(size - 2))
                                  .split(u'\n');
    CheckForeign(lines[0]);
    CheckDocument(lines[0]);
    CheckOwn(lines[0], firstItem, lines.value(1));
    return 0;
}
