#pragma once

#include <QObject>
#include <QString>

#include <optional>

class QDialog;
class QFileDialog;
class QMessageBox;

namespace Tesk {

class Articles;
class CartModel;
class CatalogueWindow;
class Findings;
class MonkeyFiles;
class frmShoppingCartAdd;
class frmShoppingCartAmount;

/// Hears what the user confirms in the dialogs and what the pages report, and tells the model what
/// that must do to the cart.
class CartWitness final : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        CatalogueWindow &catalogue;
        const Articles &articles;
        MonkeyFiles &files;
        CartModel &model;
        Findings &findings;
    };

    /// All of it outlives the witness.
    explicit CartWitness(const Parts &parts);

    /// A dialog has opened.
    void Watch(QDialog *dialog);
    /// Everything that was under way has come to its end.
    void Rest();
    /// Whether the cart's page has reported a deletion since the last rest.
    bool IsDeletionHeard() const { return isDeletionHeard; }

private:
    void HearPage(const QString &statusText);
    void HearCart(const QString &statusText);
    void AmountConfirmed(const frmShoppingCartAmount &dialog, const QString &id);
    void RowsConfirmed(const frmShoppingCartAdd &dialog);
    void FileChosen(const QFileDialog &dialog);
    void Answered(const QMessageBox &box, int answer);
    void SavedAs(const QString &path);

    Parts parts;
    /// The products that the page has asked to add since the last dialog.
    QStringList requestedIds;
    /// Where the cart is saved once the user agrees to the file's being replaced.
    std::optional<QString> pathToReplace;
    bool isDeletionHeard = false;
};

} // namespace Tesk
