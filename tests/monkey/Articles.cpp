#include "Articles.h"

#include "support/CatalogueWindow.h"

namespace Tesk {

Articles::Articles(CatalogueWindow &catalogue)
    : queries(catalogue.GetController().Queries())
{
    for (const auto &node : catalogue.Window().Tree().Nodes()) {
        if (node->HasChildren())
            continue;
        const ResultTable rows = queries.QueryProductsOfCategory(node->tag);
        for (int row = 1; row <= rows.UpperRow(); ++row) {
            const QString number = GetField(QStringLiteral("p.artNr"), rows, row);
            const QString id = rows.Text(row, 0);
            if (ids.contains(number))
                continue;
            ids.insert(number, id);
            numbers.append(number);
            if (GetField(QStringLiteral("p.isSet"), rows, row) != QLatin1String("True"))
                continue;
            const ResultTable members = queries.QuerySetMembers(id);
            std::vector<Member> &set = sets[id];
            for (int member = 1; member <= members.UpperRow(); ++member)
                set.push_back({members.Text(member, 0),
                               GetField(QStringLiteral("s.iAmount"), members, member).toInt()});
        }
    }
}

std::optional<QString> Articles::IdOf(const QString &number) const
{
    const auto found = ids.find(number);
    return found == ids.end() ? std::nullopt : std::optional(*found);
}

std::optional<QString> Articles::IdOfReference(const QString &number) const
{
    const QString id = number.isEmpty() ? QString() : queries.FindProductIdsByRefNo(number);
    return id.toInt() > 0 ? std::optional(id) : std::nullopt;
}

std::optional<std::vector<Articles::Member>> Articles::MembersOf(const QString &id) const
{
    const auto found = sets.find(id);
    return found == sets.end() ? std::nullopt : std::optional(*found);
}

} // namespace Tesk
