#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <set>

namespace Tesk {

class CartModel;
class Dice;

/// The folder where a session's files lie: carts and price lists, good and broken, that others
/// wrote, and what the program saves and prints.
class MonkeyFiles final
{
public:
    /// Writes the files and tells the model what is in the carts.
    explicit MonkeyFiles(CartModel &model);

    QString Folder() const { return folder.path(); }
    QString PathOf(const QString &name) const { return folder.filePath(name); }
    const QStringList &PriceLists() const { return priceLists; }

    /// Whether the program must name a fault when it reads this file.
    bool IsBroken(const QString &path) const { return broken.count(path) != 0; }
    /// The program has written a file of its own there.
    void Replaced(const QString &path) { broken.erase(path); }
    /// A name under which nothing can be saved: with the ending it is that of a folder.
    QString Barred() const;

private:
    void WriteCarts(CartModel &model);
    void WritePriceLists();
    QString Write(const QString &name, const QByteArray &bytes, bool isBroken);

    QTemporaryDir folder;
    QStringList priceLists;
    std::set<QString> broken;
};

} // namespace Tesk
