#include "base/Errors.h"
#include "cart/file/tests/CartFiles.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/CartMessages.h"
#include "support/Require.h"

#include <QStringList>

#include <algorithm>
#include <cstdint>

using namespace Tesk;
using Fuzzing::Require;

namespace {

enum Field : qsizetype { IdField, ArtNrField, TitleField, AmountField, AltCategoryField };

/// Two articles; a set that was added, whose members count from 1; and one of a file, from 0.
clsShoppingCart SomeCart()
{
    clsShoppingCart cart;
    const std::vector<SetTemplateRow> members{{QStringLiteral("11"), QStringLiteral("A 11"),
                                               QStringLiteral("member"), QStringLiteral("2")},
                                              {QStringLiteral("12"), QStringLiteral("A 12"),
                                               QStringLiteral("member"), QStringLiteral("0")}};
    for (const char *const id : {"1", "2", "3", "4"})
        cart.AddItem(CartFiles::MakeItem(QLatin1String(id), QStringLiteral("A"),
                                         QStringLiteral("article"), 5));
    cart.Entries().At(1)->AddSetTemplate(members, 1);
    cart.Entries().At(2)->AddSetTemplate(members);
    return cart;
}

void CheckEdit(const QString &text, clsShoppingCart &cart)
{
    const QStringList before = CartFiles::LinesOf(cart);
    CartMessages::StoreEdit(text, cart);
    const QStringList after = CartFiles::LinesOf(cart);
    Require(after.size() == before.size(), "an edit keeps the lines");
    const auto [old, changed] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    if (changed == after.end())
        return;
    Require(std::equal(std::next(old), before.end(), std::next(changed), after.end()),
            "an edit changes one line");
    const QStringList oldFields = old->split(u'|');
    const QStringList fields = changed->split(u'|');
    Require(fields.mid(IdField, AmountField) == oldFields.mid(IdField, AmountField),
            "an edit leaves the article alone");
    if (fields[AmountField] != oldFields[AmountField]) {
        const int amount = fields[AmountField].toInt();
        Require(text.startsWith(QStringLiteral("amountChange:")), "an amount is asked for");
        Require(amount >= 1 && amount <= 999, "an amount is within its bounds");
        Require(fields.mid(AltCategoryField) == oldFields.mid(AltCategoryField),
                "an amount is all that changes");
    } else {
        Require(text.contains(QStringLiteral("altCategoryChange:")), "a category is asked for");
        Require(text.endsWith(fields.mid(AltCategoryField).join(u'|')),
                "a category is stored as it was typed");
    }
}

/// A line that goes takes its members along, so that what is left is the cart without a stretch.
void CheckDeletion(const QString &text, clsShoppingCart &cart)
{
    const QStringList before = CartFiles::LinesOf(cart);
    try {
        CartMessages::DeleteLine(text, cart);
    } catch (const CatalogueError &error) {
        Require(!error.Message().isEmpty(), "an error says what is wrong");
        Require(CartFiles::LinesOf(cart) == before, "what names no line deletes none");
        return;
    }
    const QStringList after = CartFiles::LinesOf(cart);
    // From an empty cart, and a set without members, nothing can be deleted.
    Require(after.size() < before.size() || before.isEmpty() || text.contains(u'_'),
            "a deletion deletes a line");
    const auto gap =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end()).second -
        after.begin();
    Require(before.mid(gap + before.size() - after.size()) == after.mid(gap),
            "a deletion leaves the other lines");
}

} // namespace

/// Takes the input's lines, as UTF-8, for status texts of the cart's page, one after the other.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    clsShoppingCart cart = SomeCart();
    const QString texts =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const QString &text : texts.split(u'\n')) {
        if (CartMessages::IsDeletion(text))
            CheckDeletion(text, cart);
        else
            CheckEdit(text, cart);
    }
    return 0;
}
