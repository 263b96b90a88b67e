#include "browser/WebBrowser.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/Dialogs.h"
#include "support/EngineTest.h"
#include "support/Files.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QFile>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <vector>

using namespace Tesk;

namespace {

constexpr qint16 ScissorsId = 2;

const QString LineWithoutPrice =
    QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|1");

QString LineWithPrice(const QString &price)
{
    return QStringLiteral("AB 10/116|Operating scissors, straight, sharp/blunt|%1 EUR|1")
        .arg(price);
}

/// Prices stand in lists of sets and of search results.
void OpenSets(CatalogueWindow &catalogue)
{
    const CategoryNode *const leaf = FindLeaf(catalogue, [](const ResultTable &rows) {
        return rows.HasData() && rows.Text(1, 0) == QLatin1String("482");
    });
    QVERIFY(leaf != nullptr);
    QVERIFY(WaitForFillAfter(catalogue, [&] { ClickInTree(catalogue, leaf); }));
}

void Load(CatalogueWindow &catalogue, const std::vector<CatalogueWindow::DialogAnswer> &answers)
{
    const MainMenu &menus = *catalogue.Window().menus;
    QVERIFY(CatalogueWindow::AnswerDialogs(
        [&] { ChooseFromMenu(catalogue, menus.mFile, menus.mLoadPriceList); }, answers));
}

/// What the list shows in the row of the set.
QString RowText(CatalogueWindow &catalogue)
{
    return catalogue
        .Evaluate(QStringLiteral("[...document.querySelectorAll('tr.contListRow')]"
                                 ".map(row => row.innerText.replace(/\\s+/g, ' '))"
                                 ".find(text => text.includes('TS 90/100'))"))
        .toString();
}

} // namespace

/// The price list chosen from the menu.
class TestPrices final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        catalogue = std::make_unique<CatalogueWindow>(SampleCatalogue);
        QVERIFY(catalogue->WaitForFilledPage(QStringLiteral("welcome.html")));
        catalogue->GetController().AddProductToCart(ScissorsId, 1, QString());
        OpenSets(*catalogue);
    }

    void cleanup() { catalogue.reset(); }

    void testPricesShowAtOnceInListAndCart()
    {
        CartTab cart(*catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({LineWithoutPrice}));
        const QString list = File("TS90/100\t58,10\r\nAB 10/116\t12,50\r\nTS 90/110\t\r\n"
                                  "TS 90/150\t1\t2\r\n");
        Load(*catalogue, {ChooseFile(list)});
        QVERIFY(cart.WaitForLines({LineWithPrice(QStringLiteral("12,50"))}));
        catalogue->Window().tabMain->setCurrentIndex(frmCatalog::ProductsTab);
        QVERIFY(
            WaitUntil([&] { return RowText(*catalogue).contains(QLatin1String("58,10 EUR")); }));
        QVERIFY(InnerText(*catalogue, QStringLiteral("list")).contains(QLatin1String("Price")));
        // One price is empty, and a line of three fields is none.
        QCOMPARE(InnerText(*catalogue, QStringLiteral("list")).count(QLatin1String("EUR")), 1);
        QCOMPARE(
            catalogue->GetRegistry().RegGetString(SettingsKey, QStringLiteral("PriceListPath")),
            list);

        const QString next = File("TS 90/100\t99", "next.txt");
        Load(*catalogue, {ChooseFile(next)});
        QVERIFY(WaitUntil([&] { return RowText(*catalogue).contains(QLatin1String("99 EUR")); }));
    }

    void testPriceShowsOnTheDetails()
    {
        catalogue->Window().ShowStandaloneDetails(QStringLiteral("2"));
        QVERIFY(WaitUntil([&] {
            return InnerText(*catalogue, QStringLiteral("productDetails"))
                .contains(QLatin1String("AB 10/116"));
        }));
        Load(*catalogue, {ChooseFile(File("AB 10/116\t12,50\r\n"))});
        QVERIFY(WaitUntil([&] {
            return InnerText(*catalogue, QStringLiteral("productDetails"))
                .replace(QChar::Nbsp, QLatin1Char(' '))
                .contains(QLatin1String("12,50 EUR"));
        }));
    }

    void testDoubledNumberIsNamedAndTheProgramGoesOn()
    {
        const QString list =
            File("AB 10/116\t12,50\r\nTS 90/100\t3,00\r\nAB10/116\t13,00\r\nTS 90/110\t1,00\r\n");
        QString message;
        Load(*catalogue, {ChooseFile(list), PressButton(QMessageBox::Ok, &message)});
        QVERIFY2(message.contains(list), qPrintable(message));
        QVERIFY2(message.contains(QLatin1String("AB10/116")), qPrintable(message));
        // What stands before the fault is in force.
        QVERIFY(WaitUntil([&] { return RowText(*catalogue).contains(QLatin1String("3,00 EUR")); }));
        QCOMPARE(InnerText(*catalogue, QStringLiteral("list")).count(QLatin1String("EUR")), 1);
        CartTab cart(*catalogue);
        QVERIFY(cart.Open());
        QVERIFY(cart.WaitForLines({LineWithPrice(QStringLiteral("12,50"))}));
        QVERIFY(catalogue->GetRegistry()
                    .RegGetString(SettingsKey, QStringLiteral("PriceListPath"))
                    .isEmpty());
    }

    void testEmptyFileIsNamedAndTheProgramGoesOn()
    {
        const QString list = File("");
        QString message;
        Load(*catalogue, {ChooseFile(list), PressButton(QMessageBox::Ok, &message)});
        QVERIFY2(message.contains(list), qPrintable(message));
        Load(*catalogue, {ChooseFile(File("TS 90/100\t5,00\r\n", "good.txt"))});
        QVERIFY(WaitUntil([&] { return RowText(*catalogue).contains(QLatin1String("5,00 EUR")); }));
    }

    void testFolderIsNoPriceList()
    {
        // The dialog opens a folder in place of choosing it.
        Load(*catalogue, {[&](QWidget *dialog) {
            ChooseFile(folder->path())(dialog);
            QVERIFY(dialog->isVisible());
            // The first Escape may only close the names that the dialog proposes.
            for (int press = 0; press < 2 && dialog->isVisible(); ++press)
                Cancel()(dialog);
        }});
        QVERIFY(!catalogue->GetController().Prices().HasPriceList());
        QVERIFY(!RowText(*catalogue).contains(QLatin1String("EUR")));
    }

    void testCancelChangesNothing()
    {
        Load(*catalogue, {Cancel()});
        QVERIFY(!catalogue->GetController().Prices().HasPriceList());
        QVERIFY(RowText(*catalogue).contains(QLatin1String("Dressing set")));
    }

private:
    QString File(const QByteArray &bytes, const char *name = "prices.txt") const
    {
        const QString path = folder->filePath(QLatin1String(name));
        WriteBytes(path, bytes);
        return path;
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<CatalogueWindow> catalogue;
};

int main(int argc, char **argv)
{
    return RunEngineTest<TestPrices>(argc, argv);
}
#include "test_prices.moc"
