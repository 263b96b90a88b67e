#include "CartModel.h"

#include "Articles.h"

#include "base/CodePage.h"
#include "cart/model/clsShoppingCart.h"

#include <stdexcept>
#include <utility>

namespace Tesk {

namespace {

constexpr QLatin1Char FieldSeparator(';');

/// The positions that a key names; -1 where it names no member.
std::pair<int, int> Positions(const QString &key)
{
    const QStringList positions = key.split(u'_');
    return {positions.value(0).toInt(), positions.size() > 1 ? positions.value(1).toInt() : -1};
}

/// A line as a file gives it back: in the file's code page, and without what stands behind a
/// separator.
CartModel::Line FromFile(CartModel::Line line)
{
    line.category =
        CodePage::FromBytes(CodePage::ToBytes(line.category)).section(FieldSeparator, 0, 0);
    return line;
}

QString Text(const QString &id, int amount, const QString &category)
{
    return QStringList{id, QString::number(amount), category}.join(u'|');
}

QString Text(const CartModel::Line &line)
{
    return Text(line.id, line.amount, line.category);
}

QString Text(const clsShoppingCartItem &item)
{
    return Text(item.Id, item.Amount, item.AltCategory);
}

const QString MemberMark = QStringLiteral("  of it ");

} // namespace

CartModel::CartModel(const Articles &articles)
    : articles(articles)
{}

void CartModel::Add(const QString &id, int amount, const QString &category)
{
    Item item{{id, amount, category}};
    if (const auto members = articles.MembersOf(id)) {
        item.firstMember = 1;
        for (const Articles::Member &member : *members)
            item.members.push_back({member.id, member.amount, QString()});
    }
    items.push_back(std::move(item));
}

bool CartModel::Delete(const QString &key)
{
    const auto [position, memberPosition] = Positions(key);
    Item &item = items.at(static_cast<size_t>(position));
    if (memberPosition < 0) {
        items.erase(items.begin() + position);
        return true;
    }
    const int member = memberPosition - item.firstMember;
    if (item.members.size() == 1 && item.firstMember > 0)
        return false;
    if (member < 0 || member >= static_cast<int>(item.members.size()))
        throw std::out_of_range("the set has no such member");
    item.members.erase(item.members.begin() + member);
    return true;
}

void CartModel::SetAmount(const QString &key, int amount)
{
    Find(key)->amount = amount;
}

void CartModel::SetCategory(const QString &key, const QString &category)
{
    Find(key)->category = category;
}

CartModel::Line *CartModel::Find(const QString &key)
{
    const auto [position, memberPosition] = Positions(key);
    Item &item = items.at(static_cast<size_t>(position));
    if (memberPosition < 0)
        return &item.line;
    return &item.members.at(static_cast<size_t>(memberPosition - item.firstMember));
}

void CartModel::Save(const QString &path)
{
    std::vector<Item> content;
    for (const Item &item : items) {
        Item saved{FromFile(item.line)};
        for (const Line &member : item.members)
            saved.members.push_back(FromFile(member));
        content.push_back(std::move(saved));
    }
    files[path] = std::move(content);
}

void CartModel::Know(const QString &path, const std::vector<Item> &content)
{
    files[path] = content;
}

void CartModel::Load(const QString &path)
{
    items = files.at(path);
}

QStringList CartModel::Files() const
{
    QStringList paths;
    for (const auto &file : files)
        paths.append(file.first);
    return paths;
}

QStringList CartModel::Lines() const
{
    QStringList lines;
    for (const Item &item : items) {
        lines.append(Text(item.line));
        for (const Line &member : item.members)
            lines.append(MemberMark + Text(member));
    }
    return lines;
}

QStringList CartModel::LinesOf(const clsShoppingCart &cart)
{
    QStringList lines;
    for (const auto &item : cart.Entries()) {
        lines.append(Text(*item));
        if (!item->SetItems)
            continue;
        for (const auto &member : *item->SetItems)
            lines.append(MemberMark + Text(*member));
    }
    return lines;
}

} // namespace Tesk
