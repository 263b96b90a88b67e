#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Tesk {

class CatalogueQueries;
class CatalogueWindow;

/// What the catalogue offers, read once when the monkey starts.
class Articles final
{
public:
    struct Member
    {
        QString id;
        int amount;
    };

    explicit Articles(CatalogueWindow &catalogue);

    /// All article numbers, always in the same order.
    const QStringList &Numbers() const { return numbers; }
    /// The product's id; `number` in the catalogue's spelling.
    std::optional<QString> IdOf(const QString &number) const;
    /// The id of the product that a competitor's number stands for.
    std::optional<QString> IdOfReference(const QString &number) const;
    /// Nothing for a product that is no set.
    std::optional<std::vector<Member>> MembersOf(const QString &id) const;

private:
    const CatalogueQueries &queries;
    QStringList numbers;
    QHash<QString, QString> ids;
    QHash<QString, std::vector<Member>> sets;
};

} // namespace Tesk
