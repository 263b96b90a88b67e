#include "Tour.h"

#include "browser/WebBrowser.h"
#include "cart/dialogs/frmShoppingCartAmount.h"
#include "cart/model/clsShoppingCart.h"
#include "support/WaitUntil.h"
#include "ui/main/CategoryTreeView.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/PageProtocol.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

namespace Tesk {

namespace {

const QString AllPicturesAreShown =
    QStringLiteral("document.querySelector('#productImages img') !== null &&"
                   " [...document.images].every(i => i.complete && i.naturalWidth > 0)");

constexpr int ProductsOnAPage = 20;

} // namespace

Tour::Tour(const QString &applicationDirectory, const QString &pictureFolder, QSize windowSize)
    : catalogue(applicationDirectory)
    , notes(pictureFolder, QString())
{
    catalogue.GetController().Prices().LoadPriceList(applicationDirectory +
                                                     QLatin1String("/price_list.txt"));
    catalogue.Window().resize(windowSize);
}

QStringList Tour::Take()
{
    Welcome();
    ShowCategoryTree();
    Category();
    ProductList();
    SecondPage();
    Details();
    Scroller();
    AddToCart();
    DataSheet();
    Set();
    SetMembers();
    Inch();
    OtherLanguages();
    for (const int language : {0, 1, 2})
        WayBack(language);
    return notes.Failures();
}

void Tour::Welcome()
{
    Check(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")),
          QStringLiteral("welcome page"));
    Check(Shows(QStringLiteral("list"), QStringLiteral("Dissecting scissors")),
          QStringLiteral("the welcome page lists the sub-categories"));
    SavePicture(QStringLiteral("welcome"));
}

void Tour::ShowCategoryTree()
{
    catalogue.Window().tabMain->setCurrentIndex(frmCatalog::CategoriesTab);
    SavePicture(QStringLiteral("category-tree"));
    SelectCategory({QStringLiteral("Scissors")});
}

void Tour::Category()
{
    Check(catalogue.WaitForFilledPage(QStringLiteral("category_list.html")),
          QStringLiteral("category page"));
    Check(Shows(QStringLiteral("caption"), QStringLiteral("Scissors")),
          QStringLiteral("the category page bears the category's title"));
    SavePicture(QStringLiteral("category"));
}

void Tour::ProductList()
{
    const CategoryNode *node = nullptr;
    for (const auto &candidate : catalogue.Window().Tree().Nodes()) {
        if (candidate->text == QLatin1String("Dissecting scissors"))
            node = candidate.get();
    }
    Check(node != nullptr, QStringLiteral("there are dissecting scissors"));
    if (node == nullptr)
        return;
    Check(
        catalogue.Click(QStringLiteral("#list a[href$='category_list.html?id=%1']").arg(node->tag)),
        QStringLiteral("the category page links to the dissecting scissors"));
    Check(catalogue.WaitForFilledPage(QStringLiteral("product_list.html?firstItem=1&id=") +
                                      node->tag),
          QStringLiteral("product list"));
    Check(catalogue.Window().Protocol().ProductRows().UpperRow() > 60,
          QStringLiteral("the list has several pages"));
    Check(catalogue.Evaluate(QStringLiteral("document.querySelectorAll('tr.contListRow').length"))
                  .toInt() == ProductsOnAPage,
          QStringLiteral("a full page of products"));
    Check(Shows(QStringLiteral("list"), QStringLiteral("Article no.")), QStringLiteral("captions"));
    SavePicture(QStringLiteral("product-list"));

    catalogue.Hover(QStringLiteral("#contListRow3 .contListRowNext"));
    Check(catalogue.WaitFor(QStringLiteral("product_list"),
                            QStringLiteral("getComputedStyle(document.getElementById("
                                           "'contListRow3Preview')).display !== 'none'")),
          QStringLiteral("the preview shows"));
    SavePicture(QStringLiteral("preview"));
}

void Tour::SecondPage()
{
    Check(catalogue.Click(QStringLiteral("a[href*='firstItem=21&']")),
          QStringLiteral("pager link"));
    Check(catalogue.WaitForFilledPage(QStringLiteral("firstItem=21&")),
          QStringLiteral("second page"));
    Check(catalogue.Evaluate(QStringLiteral("!!document.getElementById('contListRow21')")).toBool(),
          QStringLiteral("the second page begins with row 21"));
    SavePicture(QStringLiteral("second-page"));
}

void Tour::Details()
{
    const QString artNr =
        GetField(QStringLiteral("p.artNr"), catalogue.Window().Protocol().ProductRows(), 23);
    Check(catalogue.Click(QStringLiteral("#contListRow23 td:nth-child(2)")), QStringLiteral("row"));
    Check(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")),
          QStringLiteral("details page"));
    Check(Shows(QStringLiteral("productDetails"), artNr), QStringLiteral("the row's product"));
    Check(catalogue.WaitFor(QStringLiteral("product_details"), AllPicturesAreShown),
          QStringLiteral("the product's pictures"));
    SavePicture(QStringLiteral("details"));
}

void Tour::AddToCart()
{
    const bool areAnswered = CatalogueWindow::AnswerDialogs(
        [this] {
            Check(catalogue.Click(QStringLiteral("a[href*='setStatusbar']")),
                  QStringLiteral("cart link"));
        },
        {[this](QWidget *dialog) {
             SavePicture(QStringLiteral("amount"), dialog);
             QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0"));
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
             Check(dialog->isVisible(), QStringLiteral("an amount of 0 is refused"));
             SavePicture(QStringLiteral("amount-refused"), dialog);
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
             QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
         },
         [this](QWidget *box) {
             SavePicture(QStringLiteral("added"), box);
             auto *const message = qobject_cast<QMessageBox *>(box);
             Check(message != nullptr && message->text().contains(u'3'),
                   QStringLiteral("the message names the amount"));
             QTest::keyClick(box, Qt::Key_Return);
         }});
    Check(areAnswered, QStringLiteral("amount dialog and success message"));
    Check(catalogue.GetController().GetShoppingCart().Count() == 1,
          QStringLiteral("the product is in the cart"));
}

void Tour::DataSheet()
{
    const ResultTable rows = catalogue.Window().Protocol().ProductRows();
    for (int row = 1; row <= rows.UpperRow(); ++row) {
        if (!catalogue.GetController().HasPdfDocument(
                GetField(QStringLiteral("p.artNr"), rows, row)))
            continue;
        catalogue.Window().wbMain->Navigate(catalogue.GetController().GetContentBaseUrl() +
                                            QLatin1String("/content/product_details.html?id=") +
                                            rows.Text(row, 0));
        Check(catalogue.WaitForFilledPage(QStringLiteral("product_details.html?id=") +
                                          rows.Text(row, 0)),
              QStringLiteral("details of a product with a data sheet"));
        Check(catalogue.WaitFor(QStringLiteral("product_details"), AllPicturesAreShown),
              QStringLiteral("the data sheet's symbol"));
        SavePicture(QStringLiteral("details-with-data-sheet"));
        Check(catalogue.Click(QStringLiteral("a[href$='.pdf']")),
              QStringLiteral("data sheet link"));
        Check(WaitUntil([this] {
                  return catalogue.Window().wbMain->Address().endsWith(QLatin1String(".pdf"));
              }),
              QStringLiteral("the data sheet opens"));
        Check(WaitUntil([this] { return IsPaperShown(); }),
              QStringLiteral("the data sheet is drawn"));
        // The viewer's page runs no scripts of ours that could tell when it is painted.
        SavePicture(QStringLiteral("data-sheet"), &catalogue.Window());
        return;
    }
    Check(false, QStringLiteral("one of the list's products has a data sheet"));
}

// The viewer's ground is dark, the sheet white.
bool Tour::IsPaperShown()
{
    const QImage picture = catalogue.Window().wbMain->grab().toImage();
    constexpr int step = 8; // pixels
    constexpr int light = 240;
    int looked = 0;
    int white = 0;
    for (int y = 0; y < picture.height(); y += step) {
        for (int x = 0; x < picture.width(); x += step) {
            ++looked;
            if (qGray(picture.pixel(x, y)) > light)
                ++white;
        }
    }
    return white > looked / 5;
}

void Tour::Set()
{
    SelectCategory({QStringLiteral("Sets"), QStringLiteral("Basic sets")});
    Check(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")), QStringLiteral("sets"));
    SavePicture(QStringLiteral("sets"));
    Check(catalogue.Click(QStringLiteral("#contListRow1 td:nth-child(2)")),
          QStringLiteral("set row"));
    Check(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")),
          QStringLiteral("set"));
    Check(Shows(QStringLiteral("list"), QStringLiteral(" St.")),
          QStringLiteral("the set's members have amounts"));
    SavePicture(QStringLiteral("set"));
}

void Tour::Inch()
{
    QComboBox *const units = catalogue.Window().header->cbUnitSelection;
    units->setFocus();
    QTest::keyClick(units, Qt::Key_Down);
    Check(catalogue.WaitFor(
              QStringLiteral("product_details"),
              QStringLiteral("/\\d\"/.test(document.getElementById('list')?.innerText)")),
          QStringLiteral("lengths in inches"));
    SavePicture(QStringLiteral("inch"));
    QTest::keyClick(units, Qt::Key_Up);
}

void Tour::OtherLanguages()
{
    SelectCategory({QStringLiteral("Scissors"), QStringLiteral("Dissecting scissors")});
    Check(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")), QStringLiteral("list"));
    const QStringList codes = LanguageSupport::GetLanguageCodes();
    for (const int index : {0, 2, 3, 4}) {
        QTest::mouseClick(catalogue.Window().header->btnLang[static_cast<size_t>(index)],
                          Qt::LeftButton);
        const QString title = catalogue.Window().CurrentNode()->text;
        Check(WaitUntil([&] { return Shows(QStringLiteral("caption"), title); }),
              QStringLiteral("the list in the language ") + codes[index]);
        Check(Shows(QStringLiteral("list"),
                    catalogue.GetController().GetText(QStringLiteral("productListCaptionNr"))),
              QStringLiteral("the captions in the language ") + codes[index]);
        SavePicture(QStringLiteral("product-list-") + codes[index]);
    }
    catalogue.Window().GoHome();
    Check(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")), QStringLiteral("home"));
    SavePicture(QStringLiteral("welcome-it"));
}

void Tour::Check(bool isRight, const QString &what)
{
    notes.Check(isRight, what);
}

bool Tour::Shows(const QString &elementId, const QString &text)
{
    return catalogue
        .Evaluate(QStringLiteral("document.getElementById('%1')?.innerText").arg(elementId))
        .toString()
        .contains(text);
}

void Tour::SelectCategory(const QStringList &titles)
{
    frmCatalog &window = catalogue.Window();
    window.tabMain->setCurrentIndex(frmCatalog::CategoriesTab);
    CategoryTreeView *const tree = window.TreeViewCategories;
    QTreeWidgetItem *item = tree->invisibleRootItem();
    for (const QString &title : titles) {
        item->setExpanded(true);
        QTreeWidgetItem *next = nullptr;
        for (int i = 0; i < item->childCount(); ++i) {
            if (item->child(i)->text(0) == title)
                next = item->child(i);
        }
        Check(next != nullptr, QStringLiteral("the tree has the category ") + title);
        if (next == nullptr)
            return;
        item = next;
    }
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
}

void Tour::SavePicture(const QString &step)
{
    // A page behind another tab is not painted; what stands before it is laid out by queued events.
    if (catalogue.Window().wbMain->isVisible())
        catalogue.WaitForPaint();
    else
        QCoreApplication::processEvents();
    SavePicture(step, &catalogue.Window());
}

void Tour::SavePicture(const QString &step, QWidget *picture)
{
    notes.SavePicture(step, picture);
}

} // namespace Tesk
