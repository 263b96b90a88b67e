#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <vector>

namespace Tesk {

class Articles;
class clsShoppingCart;

/// The cart as it must be after what the user has done, kept beside the program's own.
class CartModel final
{
public:
    struct Line
    {
        QString id;
        int amount;
        QString category;
    };

    struct Item
    {
        Line line;
        std::vector<Line> members = {};
        /// The position of the first member: 1 as the catalogue gives them, 0 as a file does.
        int firstMember = 0;
    };

    /// `articles` outlives the model.
    explicit CartModel(const Articles &articles);

    void Add(const QString &id, int amount, const QString &category);
    void Clear() { items.clear(); }
    /// False when nothing may be deleted and the program must say so: the last member of a set that
    /// came from the catalogue. `key` is an item's position from 0, or "item_member".
    bool Delete(const QString &key);
    void SetAmount(const QString &key, int amount);
    void SetCategory(const QString &key, const QString &category);

    /// The cart has been written into this file.
    void Save(const QString &path);
    /// The file, which somebody else wrote, holds these items.
    void Know(const QString &path, const std::vector<Item> &content);
    bool Knows(const QString &path) const { return files.count(path) != 0; }
    /// The cart has been read from a file that Save or Know has named.
    void Load(const QString &path);
    /// All files that can be loaded, always in the same order.
    QStringList Files() const;

    /// "id|amount|category" of each line in order, members behind their set.
    QStringList Lines() const;
    static QStringList LinesOf(const clsShoppingCart &cart);

private:
    Line *Find(const QString &key);

    const Articles &articles;
    std::vector<Item> items;
    std::map<QString, std::vector<Item>> files;
};

} // namespace Tesk
