#include "base/Errors.h"
#include "cart/file/ShoppingCartFile.h"
#include "cart/file/tests/CartFiles.h"
#include "cart/model/clsShoppingCart.h"
#include "support/MemoryFile.h"
#include "support/Require.h"
#include "support/Scratch.h"

using namespace Tesk;
using Fuzzing::Require;

namespace {

/// Whatever stands behind the fault is left out, what stands before is in the cart.
void LoadForeign(const QString &path, clsShoppingCart &cart)
{
    try {
        ShoppingCartFile::Load(path, cart);
    } catch (const CatalogueError &error) {
        Require(!error.Message().isEmpty(), "an error says what is wrong");
    }
}

} // namespace

/// Takes the input for a cart file. The cart that it gives, saved and loaded again, is the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Fuzzing::MemoryFile foreign;
    static const QString saved = Fuzzing::ScratchFolder() + QStringLiteral("/saved.csv");
    foreign.Write(data, size);
    clsShoppingCart cart;
    LoadForeign(foreign.Path(), cart);
    for (const auto &item : cart.Entries())
        Require(item->IsSet(), "every item of a file has a list of members");

    ShoppingCartFile::Save(cart, saved);
    clsShoppingCart again;
    ShoppingCartFile::Load(saved, again);
    Require(CartFiles::LinesOf(again) == CartFiles::LinesOf(cart),
            "a saved cart is loaded as it was");
    return 0;
}
