#include "CartWitness.h"

#include "Articles.h"
#include "CartModel.h"
#include "Findings.h"
#include "MonkeyFiles.h"
#include "RandomTexts.h"

#include "browser/LocalPage.h"
#include "browser/WebBrowser.h"
#include "cart/dialogs/frmShoppingCartAdd.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "cart/pane/ShoppingCart.h"
#include "support/CatalogueWindow.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QWebEngineView>

namespace Tesk {

namespace {

const QString SavedEnding = QStringLiteral(".csv");
const QLatin1String CartFiles{"*.csv"};
const QLatin1String Deletion{"delItem:"};

QString TextOf(const QDialog &dialog, const QString &field)
{
    return dialog.findChild<QLineEdit *>(field)->text();
}

LocalPage *PageOf(const WebBrowser *browser)
{
    return qobject_cast<LocalPage *>(browser->View()->page());
}

} // namespace

CartWitness::CartWitness(const Parts &parts)
    : parts(parts)
{
    // As the engine tells them: the program's own signal comes back only after its dialogs.
    frmCatalog &window = parts.catalogue.Window();
    connect(PageOf(window.wbMain), &LocalPage::StatusTextSet, this, &CartWitness::HearPage);
    connect(PageOf(window.ucShoppingCart->Browser()), &LocalPage::StatusTextSet, this,
            &CartWitness::HearCart);
}

void CartWitness::Rest()
{
    requestedIds.clear();
    pathToReplace.reset();
    isDeletionHeard = false;
}

void CartWitness::HearPage(const QString &statusText)
{
    if (statusText.contains(QLatin1String("shoppingCart")))
        requestedIds.append(statusText.section(u':', -1));
}

void CartWitness::HearCart(const QString &statusText)
{
    if (!statusText.startsWith(Deletion))
        return;
    isDeletionHeard = true;
    const QString key = statusText.mid(Deletion.size());
    parts.findings.Note(QStringLiteral("delete line ") + key);
    if (!parts.model.Delete(key))
        parts.findings.ExpectError();
}

void CartWitness::Watch(QDialog *dialog)
{
    if (const auto *const amount = qobject_cast<frmShoppingCartAmount *>(dialog)) {
        // Those behind the first are not heard while its dialog is open.
        const QString id = requestedIds.value(0);
        connect(dialog, &QDialog::finished, this, [this, amount, id](int result) {
            requestedIds.clear();
            if (result == QDialog::Accepted)
                AmountConfirmed(*amount, id);
        });
    } else if (const auto *const add = qobject_cast<frmShoppingCartAdd *>(dialog)) {
        connect(dialog, &QDialog::accepted, this, [this, add] { RowsConfirmed(*add); });
    } else if (const auto *const file = qobject_cast<QFileDialog *>(dialog)) {
        connect(dialog, &QDialog::accepted, this, [this, file] { FileChosen(*file); });
    } else if (const auto *const box = qobject_cast<QMessageBox *>(dialog)) {
        connect(dialog, &QDialog::finished, this,
                [this, box](int answer) { Answered(*box, answer); });
    }
}

void CartWitness::AmountConfirmed(const frmShoppingCartAmount &dialog, const QString &id)
{
    const QString text = TextOf(dialog, QStringLiteral("tbAmount"));
    const std::optional<int> amount = RandomTexts::AmountOf(text).inAmountDialog;
    if (!amount) {
        parts.findings.Fail(QStringLiteral("the amount \"%1\" was taken").arg(text));
        return;
    }
    parts.findings.Note(QStringLiteral("add %1 of product %2").arg(*amount).arg(id));
    parts.model.Add(id, *amount, QString());
}

void CartWitness::RowsConfirmed(const frmShoppingCartAdd &dialog)
{
    for (int row = 0; row < frmShoppingCartAdd::RowCount; ++row) {
        const auto text = [&](const char *field) {
            return TextOf(dialog, QLatin1String(field) + QString::number(row));
        };
        const QString number = text("tbArtNrTesk");
        const QString reference = text("tbArtNrCompetition").trimmed();
        // Without a number of the maker's the competitor's decides, where it is one.
        const std::optional<QString> id = number.isEmpty() ? parts.articles.IdOfReference(reference)
                                                           : parts.articles.IdOf(number);
        if (number.isEmpty() && !id)
            continue;
        const std::optional<int> amount = RandomTexts::AmountOf(text("tbAmount")).inAddDialog;
        if (!id || !amount) {
            parts.findings.Fail(
                QStringLiteral("\"%1\" of \"%2\" was taken").arg(text("tbAmount"), number));
            continue;
        }
        parts.findings.Note(
            QStringLiteral("add %1 of %2").arg(*amount).arg(number.isEmpty() ? reference : number));
        parts.model.Add(*id, *amount, text("tbCatNr"));
    }
}

void CartWitness::FileChosen(const QFileDialog &dialog)
{
    const QString path = dialog.selectedFiles().value(0);
    parts.findings.Note(QStringLiteral("file ") + path);
    if (!QFileInfo(path).absoluteDir().exists())
        return; // The program says so and asks again.
    const bool isCart = dialog.nameFilters().join(u' ').contains(CartFiles);
    if (dialog.acceptMode() == QFileDialog::AcceptSave) {
        const QString file =
            path.endsWith(SavedEnding, Qt::CaseInsensitive) ? path : path + SavedEnding;
        if (QFileInfo(file).isFile())
            pathToReplace = file;
        else
            SavedAs(file);
        return;
    }
    if (parts.files.IsBroken(path))
        parts.findings.ExpectError();
    if (isCart && !parts.model.Knows(path))
        parts.findings.Fail(QStringLiteral("a file that is no cart was loaded: ") + path);
    else if (isCart)
        parts.model.Load(path);
}

void CartWitness::SavedAs(const QString &path)
{
    if (QFileInfo(path).isDir()) {
        parts.findings.ExpectError();
        return;
    }
    parts.model.Save(path);
    parts.files.Replaced(path);
}

void CartWitness::Answered(const QMessageBox &box, int answer)
{
    const auto isAbout = [&](const char *key) {
        return box.text() == parts.catalogue.GetController().GetText(QLatin1String(key));
    };
    parts.findings.Note(QStringLiteral("\"%1\": %2")
                            .arg(QString(box.text()).replace(u'\n', u' '))
                            .arg(answer, 0, 16));
    if (isAbout("mShoppingCartDeleteConfirm")) {
        if (answer == QMessageBox::Yes)
            parts.model.Clear();
    } else if (pathToReplace && box.standardButtons() == (QMessageBox::Yes | QMessageBox::No)) {
        if (answer == QMessageBox::Yes)
            SavedAs(*pathToReplace);
        pathToReplace.reset();
    }
}

} // namespace Tesk
