#include "cart/dialogs/ManualAdd.h"

#include "base/Errors.h"
#include "base/Numbers.h"
#include "core/Controller.h"

#include <exception>

namespace Tesk {

namespace {

/// The product's id; not above 0 when no product has the row's number.
qint16 ProductIdOf(const CartRowEntry &row, const CatalogueQueries &queries)
{
    if (!row.artNrTesk.isEmpty())
        return ToInt16(queries.FindProductIdsByArtNr(row.artNrTesk));
    if (!row.artNrCompetition.isEmpty())
        return ToInt16(queries.FindProductIdsByRefNo(row.artNrCompetition));
    return 0;
}

void AddRow(const CartRowEntry &row, Controller &controller)
{
    const qint16 id = ProductIdOf(row, controller.Queries());
    if (id > 0 && row.amount > 0)
        controller.AddProductToCart(id, row.amount, row.catNr);
}

} // namespace

void AddRowsToCart(const frmShoppingCartAdd::Entries &rows, Controller &controller)
{
    std::exception_ptr firstError;
    for (const CartRowEntry &row : rows) {
        try {
            AddRow(row, controller);
        } catch (const CatalogueError &) {
            if (!firstError)
                firstError = std::current_exception();
        }
    }
    // Only now: the rows are gone with their dialog, so one that fails must not cost the others.
    if (firstError)
        std::rethrow_exception(firstError);
}

} // namespace Tesk
