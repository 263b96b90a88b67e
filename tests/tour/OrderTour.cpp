#include "OrderTour.h"

#include "support/Dialogs.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QFile>
#include <QPushButton>

namespace Tesk {

namespace {

constexpr int LinesOfTheSet = 6;
constexpr int ProductsOfALongOrder = 36;

} // namespace

OrderTour::OrderTour(const QString &applicationDirectory, const QString &pictureFolder,
                     QSize windowSize, const QString &language, const QString &prefix)
    : applicationDirectory(applicationDirectory)
    , catalogue(applicationDirectory, language)
    , cart(catalogue)
    , notes(pictureFolder, prefix)
{
    catalogue.Window().resize(windowSize);
}

QStringList OrderTour::Take()
{
    notes.Check(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")),
                QStringLiteral("welcome page"));
    EmptyCart();
    AddArticles();
    EditLines();
    Prices();
    Request();
    Order();
    Contact();
    LongOrderOnPaper();
    About();
    return notes.Failures();
}

void OrderTour::EmptyCart()
{
    notes.Check(cart.Open(), QStringLiteral("the tab of the cart"));
    notes.Check(cart.WaitForText(Text("ucShoppingCartNoEntries")),
                QStringLiteral("the empty cart says so"));
    SavePicture(QStringLiteral("empty-cart"));
}

void OrderTour::AddArticles()
{
    const bool areAnswered = CatalogueWindow::AnswerDialogs(
        [this] { cart.Press("btnManual"); }, {[this](QWidget *dialog) {
            notes.SavePicture(QStringLiteral("add-articles"), dialog);
            Fill(dialog, "tbArtNrTesk0", QStringLiteral("AB10/116"));
            Fill(dialog, "tbAmount0", QStringLiteral("12"));
            Fill(dialog, "tbCatNr0", QStringLiteral("OP 2"));
            Fill(dialog, "tbArtNrCompetition1", QStringLiteral("11-010-11"));
            Fill(dialog, "tbArtNrTesk2", QStringLiteral("TS90/100"));
            Fill(dialog, "tbArtNrTesk3", QStringLiteral("ZZ 99/999"));
            const bool isTold = CatalogueWindow::AnswerDialogs(
                [&] { PressKey(dialog, Qt::Key_Tab); }, {[&](QWidget *box) {
                    notes.SavePicture(QStringLiteral("unknown-number-message"), box);
                    PressButton(QMessageBox::Ok)(box);
                }});
            notes.Check(isTold, QStringLiteral("a number that is unknown is told"));
            notes.SavePicture(QStringLiteral("unknown-number"), dialog);
            Fill(dialog, "tbArtNrTesk3", QString());
            ClickButton(dialog, "btnOK");
        }});
    notes.Check(areAnswered, QStringLiteral("the dialog for article numbers"));
    notes.Check(WaitUntil([this] { return cart.Lines().size() == 2 + LinesOfTheSet; }),
                QStringLiteral("two articles and a set with its members"));
    SavePicture(QStringLiteral("cart"));
}

void OrderTour::EditLines()
{
    notes.Check(cart.Page().TypeInto(QStringLiteral("#cat_1"), QStringLiteral("Ambulanz: Saal 4")),
                QStringLiteral("a category field"));
    notes.Check(cart.Page().TypeInto(QStringLiteral("#fld_1"), QStringLiteral("1200")),
                QStringLiteral("an amount field"));
    cart.Page().PressKey(Qt::Key_Tab);
    notes.Check(cart.Page().WaitFor(QStringLiteral("shopping_cart"),
                                    QStringLiteral("document.querySelector('.errorText')")),
                QStringLiteral("an amount that is too large is told"));
    SavePicture(QStringLiteral("amount-mended"));
}

void OrderTour::Prices()
{
    const MainMenu &menus = *catalogue.Window().menus;
    const bool isChosen = CatalogueWindow::AnswerDialogs(
        [&] { ChooseFromMenu(catalogue, menus.mFile, menus.mLoadPriceList); },
        {ChooseFile(applicationDirectory + QLatin1String("/price_list.txt"))});
    notes.Check(isChosen, QStringLiteral("the price list"));
    notes.Check(WaitUntil([this] { return cart.Lines().value(0).contains(QLatin1String("EUR")); }),
                QStringLiteral("the cart shows prices"));
    cart.Page().Hover(QStringLiteral("#contListRow2"));
    SavePicture(QStringLiteral("cart-with-prices"));
}

void OrderTour::Request()
{
    const bool isAnswered = CatalogueWindow::AnswerDialogs(
        [this] { cart.Press("btnSendRequest"); }, {[this](QWidget *dialog) {
            notes.SavePicture(QStringLiteral("request"), dialog);
            ClickButton(dialog, "SendButton");
            notes.Check(dialog->isVisible(), QStringLiteral("an empty request is not sent"));
            notes.SavePicture(QStringLiteral("request-refused"), dialog);
            ClickButton(dialog, "CancelButton");
        }});
    notes.Check(isAnswered, QStringLiteral("the request form"));
}

void OrderTour::Order()
{
    const bool isAnswered = CatalogueWindow::AnswerDialogs(
        [this] { cart.Press("btnSendOrder"); }, {[this](QWidget *dialog) {
            FillForm(dialog);
            Fill(dialog, "PON", QStringLiteral("2024/17-B"));
            Fill(dialog, "ContactNotes", QStringLiteral("Bitte bis Freitag.\nVielen Dank!"));
            notes.SavePicture(QStringLiteral("order"), dialog);
            ClickButton(dialog, "SendButton");
        }});
    notes.Check(isAnswered, QStringLiteral("the order form"));
    notes.Check(catalogue.MailAddresses().size() == 1, QStringLiteral("a mail is composed"));
    notes.Check(cart.Page().WaitFor(QStringLiteral("order_form.html"),
                                    QStringLiteral("document.querySelector('#list table')")),
                QStringLiteral("the order form is shown"));
    SavePicture(QStringLiteral("order-form"));
}

void OrderTour::Contact()
{
    const MainMenu &menus = *catalogue.Window().menus;
    const bool isAnswered = CatalogueWindow::AnswerDialogs(
        [&] { ChooseFromMenu(catalogue, menus.mExtra, menus.mContact); }, {[this](QWidget *dialog) {
            notes.SavePicture(QStringLiteral("contact"), dialog);
            Cancel()(dialog);
        }});
    notes.Check(isAnswered, QStringLiteral("the contact form"));
}

void OrderTour::LongOrderOnPaper()
{
    for (qint16 id = 3; id < 3 + ProductsOfALongOrder; ++id)
        catalogue.GetController().AddProductToCart(id, id, QStringLiteral("Kat. %1").arg(id));
    catalogue.Window().GoHome();
    notes.Check(cart.Open(), QStringLiteral("the tab of the cart again"));
    notes.Check(WaitUntil([this] {
                    return cart.Lines().size() == 2 + LinesOfTheSet + ProductsOfALongOrder;
                }),
                QStringLiteral("a long cart"));
    SavePicture(QStringLiteral("long-cart"));

    const auto print = [this](const QString &step, const char *button,
                              std::vector<CatalogueWindow::DialogAnswer> answers) {
        const QString file = folder.filePath(step + QLatin1String(".pdf"));
        answers.push_back([this, step, file](QWidget *dialog) {
            notes.SavePicture(step + QLatin1String("-dialog"), dialog);
            PrintInto(file)(dialog);
        });
        notes.Check(CatalogueWindow::AnswerDialogs([&] { cart.Press(button); }, answers) &&
                        WaitUntil([&] { return QFile::exists(file); }),
                    step);
        notes.SaveSheets(step, file);
    };
    print(QStringLiteral("printed-cart"), "btnPrint", {});
    print(QStringLiteral("printed-order"), "btnSendOrder", {[this](QWidget *dialog) {
              FillForm(dialog);
              ClickButton(dialog, "PrintButton");
          }});
}

void OrderTour::About()
{
    const MainMenu &menus = *catalogue.Window().menus;
    const bool isAnswered = CatalogueWindow::AnswerDialogs(
        [&] { ChooseFromMenu(catalogue, menus.mHelp, menus.mInfo); }, {[this](QWidget *dialog) {
            notes.SavePicture(QStringLiteral("about"), dialog);
            Cancel()(dialog);
        }});
    notes.Check(isAnswered, QStringLiteral("the about box"));
}

void OrderTour::FillForm(QWidget *dialog)
{
    Fill(dialog, "InstName", QStringLiteral("Klinik am Überlinger See gGmbH"));
    Fill(dialog, "CustomerId", QStringLiteral("K-4711"));
    Fill(dialog, "Street", QStringLiteral("Hauptstraße 5"));
    Fill(dialog, "PostalCodeCity", QStringLiteral("88662 Überlingen"));
    Fill(dialog, "Country", QStringLiteral("Deutschland"));
    Fill(dialog, "Phone", QStringLiteral("+49 7551 1234"));
    Fill(dialog, "Email", QStringLiteral("einkauf@klinik.example"));
    Fill(dialog, "PersonName", QStringLiteral("Änne Müller"));
}

QString OrderTour::Text(const char *key)
{
    return catalogue.GetController().GetText(QLatin1String(key));
}

void OrderTour::SavePicture(const QString &step)
{
    cart.Page().WaitForPaint();
    notes.SavePicture(step, &catalogue.Window());
}

} // namespace Tesk
