#include "base/tests/LogCapture.h"
#include "browser/DialogLimit.h"
#include "browser/PageWatch.h"
#include "browser/WebBrowser.h"
#include "cart/model/clsShoppingCart.h"
#include "cart/pane/ShoppingCart.h"
#include "core/CategoryTree.h"
#include "core/SQLiteWrapper.h"
#include "core/database/tests/DatabaseFiles.h"
#include "support/CartTab.h"
#include "support/CatalogueWindow.h"
#include "support/EngineTest.h"
#include "support/SampleCatalogue.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "support/WaitUntil.h"
#include "ui/main/MainMenu.h"

#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>

#include <chrono>

using namespace Tesk;

namespace {

const char *const Gate = "tesk.browser.gate";
const char *const HangingId = "1";
const char *const FloodingId = "2";

/// Closes every dialog as soon as it is there, and counts them.
class DialogCloser final : public QTimer
{
public:
    DialogCloser()
    {
        connect(this, &QTimer::timeout, this, [this] {
            if (auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
                ++count;
                dialog->reject();
            }
        });
        start(1);
    }

    int count = 0;
};

/// A version 3 copy of a catalogue's database.
void WriteCopy(const QString &source, const QString &target)
{
    SQLiteWrapper database{QString()};
    QVERIFY(database.Open(source));
    QFile schema(QStringLiteral(TABLES_DIR "/schema.sql"));
    QVERIFY(schema.open(QIODevice::ReadOnly));
    QByteArray sql = "BEGIN;" + schema.readAll();
    for (const char *table : {"categories", "products_global", "products_localized",
                              "products2categories", "products2sets", "reference_numbers"}) {
        const ResultTable rows =
            database.GetTable(QStringLiteral("SELECT * FROM ") + QLatin1String(table));
        QVERIFY2(rows.HasData(), table);
        for (int row = 1; row <= rows.UpperRow(); ++row) {
            QStringList values;
            for (int column = 0; column < rows.ColumnCount(); ++column)
                values.append(u'\'' + rows.Text(row, column).replace(u'\'', QLatin1String("''")) +
                              u'\'');
            sql += "INSERT INTO " + QByteArray(table) + " VALUES (" + values.join(u',').toUtf8() +
                   ");";
        }
    }
    Database::WriteVersion3(target, sql + "COMMIT");
}

/// Adds this to the titles of all languages.
QByteArray EachTitle(const QByteArray &html)
{
    QByteArray sql = "UPDATE categories SET ID = ID";
    for (const char *language : {"ge", "en", "fr", "sp", "it"})
        sql += QByteArray(", title_") + language + " = title_" + language + " || '" + html + "'";
    return sql;
}

/// Lets no page that hangs wait long for its end, until one has ended.
void LosePatienceOnce(CatalogueWindow &catalogue)
{
    PageWatch &watch = PageWatch::Of(catalogue.Window().wbMain->View()->page()->profile());
    watch.SetPatience({.interval = std::chrono::milliseconds{20}, .leaving = 5});
    QObject::connect(&watch, &PageWatch::ProcessEnds, &watch, [&watch] { watch.SetPatience({}); });
}

} // namespace

/// A catalogue whose texts hold markup of every kind, in the real window.
class TestHostileContent final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void testTextsOfTheCatalogueReachNothing();
    void testTextsOfTheCartReachNothing();
    void testWindowLivesBesideAProductThatHangs();
    void testCartOutlivesAProductThatHangs();
    void testFloodOfCartRequestsEnds();

private:
    QString Catalogue() const { return folder.filePath(QStringLiteral("app")); }
    QByteArray WithPlaces(QByteArray text) const
    {
        return text.replace("HOST", "127.0.0.1:" + QByteArray::number(server.serverPort()))
            .replace("OUTSIDE", folder.path().toUtf8());
    }
    QString OutsideUrl(const char *file) const
    {
        return QStringLiteral("file://") + folder.path() + QLatin1String(file);
    }
    QString Refused(const char *path) const
    {
        return QString::fromLatin1(WithPlaces(QByteArray("http://HOST/") + path));
    }
    static void ShowDetails(CatalogueWindow &catalogue, const char *id)
    {
        catalogue.Window().ShowStandaloneDetails(QLatin1String(id));
    }

    QTemporaryDir folder;
    QTcpServer server;
};

void TestHostileContent::initTestCase()
{
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QVERIFY(CopyApplicationDirectory(SampleCatalogue, Catalogue()));
    const QString file = Catalogue() + QLatin1String("/catalog.db");
    QVERIFY(QFile::remove(file));
    WriteCopy(SampleCatalogue + QLatin1String("/catalog.db"), file);
    // The same picture and text inside the application directory and beside it.
    const QByteArray picture = "<svg xmlns='http://www.w3.org/2000/svg' width='321' height='1'/>";
    for (const QString &place : {Catalogue() + QLatin1String("/content"), folder.path()}) {
        WriteBytes(place + QLatin1String("/canary.svg"), picture);
        WriteBytes(place + QLatin1String("/canary.html"),
                   "<script>parent.postMessage(`page ${location}`, '*')</script>");
    }
    Database::WriteVersion3(
        file, WithPlaces(
                  "UPDATE products_localized SET"
                  " name = '<b>Bold</b> H<sub>2</sub>O <script src=\"http://HOST/script\">"
                  "</script><img src=\"http://HOST/name\">' || name,"
                  " form = '<img class=inside src=\"canary.svg\">"
                  "<img class=outside src=\"file://OUTSIDE/canary.svg\">"
                  "<iframe src=\"canary.html\"></iframe>"
                  "<iframe src=\"file://OUTSIDE/canary.html\"></iframe>"
                  "<link rel=stylesheet href=\"http://HOST/style\"><img src=\"none\""
                  " onerror=\"window.told = window.told || []; window.onmessage = event => "
                  "told.push(event.data);"
                  "for (const place of [''canary.svg'', ''file://OUTSIDE/canary.svg'']) {"
                  " const r = new XMLHttpRequest; r.open(''GET'', place);"
                  " r.onload = () => told.push(`${r.responseText.length} ${place}`);"
                  " r.send() }"
                  "fetch(''http://HOST/fetch'').catch(() => 0);"
                  "new WebSocket(''ws://HOST/socket''); window.open(''http://HOST/window'')\">';") +
                  EachTitle(WithPlaces("<img src=\"http://HOST/category\">")));
    const auto addToDetails = [&](const char *id, const QByteArray &script) {
        Database::WriteVersion3(
            file, "UPDATE products_localized SET name = name || '<img src=none onerror=\"if ("
                  "/product_details.*id=" +
                      QByteArray(id) + "$/.test(location)) { " + script +
                      " }\">' WHERE ID = " + id);
    };
    addToDetails(HangingId, "console.error(`hangs`); for (;;);");
    addToDetails(FloodingId, "n = 0; setInterval(() => { status = `shoppingCart ${n++}:1` })");
}

void TestHostileContent::cleanup()
{
    QVERIFY(!server.waitForNewConnection(0));
    QVERIFY(!server.hasPendingConnections());
}

void TestHostileContent::testTextsOfTheCatalogueReachNothing()
{
    const LogCapture log;
    CatalogueWindow catalogue(Catalogue());
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
    QVERIFY(WaitUntil([&] { return log.Has(Gate, {Refused("category")}); }));
    ClickInTree(catalogue, FindLongLeaf(catalogue));
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
    for (const char *path : {"name", "style", "fetch", "window"})
        QVERIFY2(WaitUntil([&] { return log.Has(Gate, {Refused(path)}); }), path);
    for (const char *file : {"/canary.svg", "/canary.html"})
        QVERIFY2(WaitUntil([&] { return log.Has(Gate, {u' ' + OutsideUrl(file)}); }), file);
    QVERIFY(WaitUntil([&] { return log.Has(Gate, {QStringLiteral("/socket")}); }));
    // What lies inside comes, and what lies beside it does not.
    QVERIFY(catalogue.WaitFor(QStringLiteral("product_list.html"),
                              QStringLiteral("document.querySelector('.inside').naturalWidth == 321"
                                             " && told.some(text => text.startsWith('page'))"
                                             " && told.some(text => /^[1-9]/.test(text))")));
    QCOMPARE(catalogue.Evaluate(QStringLiteral("document.querySelector('.outside').naturalWidth")),
             QVariant(0));
    const QStringList told = catalogue.Evaluate(QStringLiteral("told")).toStringList();
    for (const QString &text : told)
        QVERIFY2(!text.contains(OutsideUrl("/canary")), qPrintable(text));
    // A maker's own formatting shows.
    QCOMPARE(catalogue.Evaluate(QStringLiteral("document.querySelector('a.prodItem b').innerText")),
             QVariant(QStringLiteral("Bold")));
    QVERIFY(catalogue.Click(QStringLiteral("tr.contListRow td:nth-child(2)")));
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_details.html")));
    QCOMPARE(catalogue.Evaluate(QStringLiteral("document.querySelector('h1 sub').innerText")),
             QVariant(QStringLiteral("2")));
    QVERIFY(!log.Has(Gate, {Refused("script")}));
}

void TestHostileContent::testTextsOfTheCartReachNothing()
{
    const LogCapture log;
    CatalogueWindow catalogue(Catalogue());
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
    clsShoppingCart &cart = catalogue.GetController().GetShoppingCart();
    const QString text = QString::fromLatin1(
        WithPlaces("\"><b>Bold</b><img src='http://HOST/cart'><img src=none onerror=\"fetch("
                   "'http://HOST/cart')\"><iframe src='file:///etc/cart'></iframe>"));
    catalogue.GetController().AddProductToCart(qint16{1}, 1, text);
    cart.Entries().At(0)->Title = text;
    CartTab tab(catalogue);
    QVERIFY(tab.Open());
    QVERIFY(WaitUntil([&] {
        return tab.Page().Evaluate(
                   QStringLiteral("document.querySelector('#list b')?.innerText")) ==
               QVariant(QStringLiteral("Bold"));
    }));
    QVERIFY(tab.Page().WaitForPageAfter(QStringLiteral("order_form.html"), [&] {
        catalogue.Window().ucShoppingCart->ExtContactCall(false);
    }));
    QVERIFY(WaitUntil([&] {
        return tab.Page().Evaluate(
                   QStringLiteral("document.querySelector('#list b')?.innerText")) ==
               QVariant(QStringLiteral("Bold"));
    }));
    QVERIFY(!log.Has(Gate, {QStringLiteral("/cart")}));
}

void TestHostileContent::testWindowLivesBesideAProductThatHangs()
{
    CatalogueWindow catalogue(Catalogue());
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
    const LogCapture log;
    ShowDetails(catalogue, HangingId);
    QVERIFY(WaitUntil([&] { return log.Has("tesk.browser.page", {QStringLiteral("hangs")}); }));
    QMenu *const menu = catalogue.Window().menus->mFile;
    menu->popup(catalogue.Window().mapToGlobal(QPoint(10, 10)));
    QTest::keyClick(menu, Qt::Key_Down);
    QVERIFY(menu->activeAction() != nullptr);
    menu->close();
    const CategoryNode *const leaf = FindLongLeaf(catalogue);
    ClickInTree(catalogue, leaf);
    LosePatienceOnce(catalogue);
    QVERIFY(WaitUntil([&] { return log.Has(Gate, {QStringLiteral("runs without end")}); }));
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
    QVERIFY(RowCount(catalogue) > 0);
}

// The two pages share the engine's process.
void TestHostileContent::testCartOutlivesAProductThatHangs()
{
    CatalogueWindow catalogue(Catalogue());
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
    catalogue.GetController().AddProductToCart(qint16{3}, 1, QString());
    const auto shows = [](const char *amount) {
        return QStringLiteral("document.querySelector('#fld_0')?.value == %1")
            .arg(QLatin1String(amount));
    };
    CartTab cart(catalogue);
    QVERIFY(cart.Open());
    QVERIFY(cart.Page().WaitFor(QStringLiteral("shopping_cart.html"), shows("1")));
    QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("8")));
    cart.Page().PressKey(Qt::Key_Tab);
    const clsShoppingCart &items = catalogue.GetController().GetShoppingCart();
    QVERIFY(WaitUntil([&] { return items.Entries().At(0)->Amount == 8; }));

    const LogCapture log;
    ShowDetails(catalogue, HangingId);
    QVERIFY(WaitUntil([&] { return log.Has("tesk.browser.page", {QStringLiteral("hangs")}); }));
    LosePatienceOnce(catalogue);
    QVERIFY(cart.Open());
    QVERIFY(log.Has(Gate, {QStringLiteral("runs without end")}));
    QVERIFY(cart.Page().WaitFor(QStringLiteral("shopping_cart.html"), shows("8")));
    QVERIFY(cart.Page().TypeInto(QStringLiteral("#fld_0"), QStringLiteral("9")));
    cart.Page().PressKey(Qt::Key_Tab);
    QVERIFY(WaitUntil([&] { return items.Entries().At(0)->Amount == 9; }));
}

void TestHostileContent::testFloodOfCartRequestsEnds()
{
    CatalogueWindow catalogue(Catalogue());
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("welcome.html")));
    const LogCapture log;
    const DialogCloser closer;
    ShowDetails(catalogue, FloodingId);
    QVERIFY(WaitUntil([&] { return log.Has(Gate, {QStringLiteral("requests of the page")}); }));
    ClickInTree(catalogue, FindLongLeaf(catalogue));
    QVERIFY(catalogue.WaitForFilledPage(QStringLiteral("product_list.html")));
    // A page that pauses for a second may ask anew.
    QVERIFY(closer.count >= DialogLimit::LongestRow);
}

int main(int argc, char **argv)
{
    return RunEngineTest<TestHostileContent>(argc, argv);
}
#include "test_hostile_content.moc"
